#pragma once

#include <span>
#include <string_view>
#include <vector>

namespace paperway {

/// One byte of a format pattern; a literal one stood behind a backslash or in quotes.
struct Symbol {
  char character;
  bool literal;

  bool is(char symbol) const { return !literal && character == symbol; }
  bool isPlace() const { return is('0') || is('#'); }
};

using Symbols = std::span<const Symbol>;

std::vector<Symbol> readSymbols(std::string_view pattern);

/// The parts between semicolons.
std::vector<Symbols> splitSections(Symbols symbols);

}  // namespace paperway
