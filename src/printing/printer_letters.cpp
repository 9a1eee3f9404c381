#include "printing/printer_letters.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <utility>

#include "paperway/platform/user_store.h"
#include "printed/code_tables.h"
#include "printed/control_codes.h"

namespace paperway {
namespace {

constexpr const char* kApplication = "paperway";  // of all programs: it is the printer's
constexpr const char* kSection = "CodeTable";

/// For the codes from 128 up of windows-1252.
constexpr std::string_view kPlain =
    "E?,f\".++^%S<O?Z"
    "?"
    "?''\"\"*--~Ts>o?zY"
    " !cL*Y|S\"ca<--r-o+23'uP.,1o>????"
    "AAAAAAACEEEEIIIIDNOOOOOxOUUUUYPs"
    "aaaaaaaceeeeiiiidnooooo/ouuuuypy";
static_assert(kPlain.size() == 128);

bool isAscii(std::string_view bytes) {
  unsigned char all = 0;
  for (const char byte : bytes) all |= static_cast<unsigned char>(byte);
  return all < 0x80;
}

const CodePage* tableOf(int number) {
  const CodePage* const page = CodePage::byNumber(number);
  return page == &CodePage::windows1252() ? nullptr : page;
}

/// Of a page that is not the one in which printers begin.
const CodeTable* assignedTable(int page) {
  const auto isIt = [&](const CodeTable& table) { return table.page == page; };
  const CodeTable* const table = std::find_if(std::begin(kCodeTables), std::end(kCodeTables), isIt);
  return page == 437 || table == std::end(kCodeTables) ? nullptr : table;
}

}  // namespace

int keptCodeTable(UserStore& store, const std::string& printer) {
  if (printer.empty()) return 0;
  const std::string kept = store.get(kApplication, kSection, printer, "");
  int table = 0;
  std::from_chars(kept.data(), kept.data() + kept.size(), table);
  return CodePage::byNumber(table) == nullptr ? 0 : table;
}

void keepCodeTable(UserStore& store, const std::string& printer, int table) {
  if (keptCodeTable(store, printer) == table) return;
  store.save(kApplication, kSection, printer, table == 0 ? "" : std::to_string(table));
}

std::string plainLetters(std::uint64_t count, int table) {
  if (count == 0) return "";
  const bool one = count == 1;
  return std::to_string(count) + (one ? " letter" : " letters") + " that code page " +
         std::to_string(table) +
         (one ? " lacks is printed as a plain one." : " lacks are printed as plain ones.");
}

/// Printers begin in 437, but may begin in the italic table beside it; the codes 128 to 159 may be
/// control codes unless they are told otherwise.
std::string selectCodeTable(int table) {
  if (tableOf(table) == nullptr) return "";
  std::string commands;
  if (const CodeTable* assigned = assignedTable(table)) {
    commands = std::string("\x1B(t\x03\0\x01", 6) + static_cast<char>(assigned->number) + '\0';
  }
  return commands + "\x1Bt\x01\x1B" + "6";
}

PrinterLetters::PrinterLetters(int table, std::function<void(std::string_view)> sink)
    : table_(tableOf(table)), sink_(std::move(sink)) {}

void PrinterLetters::block(std::string_view bytes) {
  if (table_ == nullptr) return sink_(bytes);
  if (held_.empty()) return take(bytes);
  const std::string whole = std::exchange(held_, {}) + std::string(bytes);
  take(whole);
}

void PrinterLetters::take(std::string_view bytes) {
  while (!bytes.empty()) {
    const std::size_t code = std::min(bytes.find(kEscape), bytes.size());
    letters(bytes.substr(0, code));
    bytes.remove_prefix(code);
    const std::size_t length = bytes.empty() ? 0 : codeLength(bytes);
    if (length > bytes.size()) {
      held_ = bytes;
      break;
    }
    out_ += bytes.substr(0, length);
    bytes.remove_prefix(length);
  }
  sink_(out_);
  out_.clear();
}

void PrinterLetters::letters(std::string_view bytes) {
  if (isAscii(bytes)) {
    out_ += bytes;
    return;
  }
  const CodePage& report = CodePage::windows1252();
  for (const char byte : bytes) {
    const char32_t character = report.decode(byte);
    const auto code = static_cast<unsigned char>(byte);
    if (code < 0x80) {
      out_ += byte;
    } else if (table_->has(character)) {
      out_ += table_->encode(character);
    } else {
      out_ += kPlain[code - 0x80U];
      ++plain_;
    }
  }
}

void PrinterLetters::end() {
  if (!held_.empty()) sink_(std::exchange(held_, {}));
}

}  // namespace paperway
