#include "util/format_symbols.h"

#include <algorithm>

namespace paperway {

std::vector<Symbol> readSymbols(std::string_view pattern) {
  std::vector<Symbol> symbols;
  symbols.reserve(pattern.size());
  bool quoted = false;
  for (std::size_t i = 0; i < pattern.size(); ++i) {
    const char c = pattern[i];
    if (c == '"') {
      quoted = !quoted;
    } else if (c == '\\' && !quoted && i + 1 < pattern.size()) {
      symbols.push_back({pattern[++i], true});
    } else {
      symbols.push_back({c, quoted});
    }
  }
  return symbols;
}

std::vector<Symbols> splitSections(Symbols symbols) {
  std::vector<Symbols> sections;
  auto begin = symbols.begin();
  while (true) {
    const auto end =
        std::find_if(begin, symbols.end(), [](const Symbol& symbol) { return symbol.is(';'); });
    sections.emplace_back(begin, end);
    if (end == symbols.end()) return sections;
    begin = end + 1;
  }
}

}  // namespace paperway
