#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "util/code_page.h"

namespace paperway {

class UserStore;

/// The code table that the user says a printer has; 0 when nothing is said.
int keptCodeTable(UserStore& store, const std::string& printer);
/// 0 takes it back.
void keepCodeTable(UserStore& store, const std::string& printer, int table);

/// In which table such a printer begins: in its own when no command selects that, else in 437.
constexpr int firstCodeTable(int table) {
  return table == 1252 ? 1252 : 437;
}

/// "3 letters that code page 437 lacks are printed as plain ones.", or nothing.
std::string plainLetters(std::uint64_t count, int table);

/// The commands that make a printer use this table: those of a printer that can be told of tables
/// at all. Windows-1252 has none; a printer is set to it by hand.
std::string selectCodeTable(int table);

/// Report text on its way to a printer that has letters of its own: bytes from 128 up become those
/// of its table, and what the table lacks the nearest plain letter. Codes, their parameters and
/// data pass as they are. Takes the text in blocks of any size.
class PrinterLetters {
 public:
  /// A table of kPrinterCodePages; any other leaves the text as it is.
  PrinterLetters(int table, std::function<void(std::string_view)> sink);

  void block(std::string_view bytes);
  /// The text ends here; another may follow.
  void end();

  /// Letters that became plain ones.
  std::uint64_t plain() const { return plain_; }

 private:
  void letters(std::string_view bytes);
  void take(std::string_view bytes);

  const CodePage* const table_;
  const std::function<void(std::string_view)> sink_;
  std::string out_;
  std::string held_;  // a code that is not complete
  std::uint64_t plain_ = 0;
};

}  // namespace paperway
