#include "fuzz/fuzz.h"
#include "paperway/value.h"
#include "util/code_page.h"
#include "util/numbers.h"
#include "util/text.h"

using namespace paperway;

/// Two texts with a line feed between them.
std::vector<std::string> fuzz::seeds() {
  return {"Zoë Åß € 😀 и ΟΔΟΣ\nåß",
          "  1234.50 CR\n-.5",
          "2026-03-05 14:07:09+05:30\nŸŠŒŽ",
          "\xF4\x8F\xBF\xBF\xED\xA0\x80\n\xC3",
          "abcdefghijklmnopqrstuvwxyz\nJKL"};
}

namespace {

void checkCuts(std::string_view text, std::size_t cut) {
  const std::size_t count = characterCount(text);
  cut = std::min(cut, count);
  const std::string whole =
      std::string(leftCharacters(text, cut)) + std::string(rightCharacters(text, count - cut));
  fuzz::require(whole == text, "left and right characters make the text");
}

void checkCodePage(std::string_view text) {
  const CodePage& page = CodePage::windows1252();
  fuzz::require(page.encode(page.decode(text)) == text, "decoding and encoding keeps the bytes");
  fuzz::require(page.encode(text).size() == characterCount(text), "one byte a character");
}

void checkCase(std::string_view text, std::string_view part) {
  fuzz::require(equalIgnoringCase(upperCase(text), lowerCase(text)), "case makes no difference");
  const std::size_t found = findIgnoringCase(text, part);
  if (found == std::string_view::npos) return;
  const std::string_view there = leftCharacters(text.substr(found), characterCount(part));
  fuzz::require(equalIgnoringCase(there, part), "what is found is the text");
}

}  // namespace

void fuzz::check(std::string_view text) {
  const std::string_view part = fuzz::takeUntil(text, '\n');
  checkCuts(text, part.size());
  checkCodePage(text);
  checkCase(text, part);
  fuzz::require(validUtf8Length(text.substr(0, validUtf8Length(text))) == validUtf8Length(text),
                "the valid part is valid");
  if (const auto date = parseIsoDate(text)) {
    fuzz::require(serialToDate(dateToSerial(*date)) == date, "a date is its serial's");
  }
  const auto number = parseNumber(text);
  if (number && text.find_first_of("eE") == std::string_view::npos) {
    fuzz::require(leadingNumber(text) == *number, "a whole number is its own beginning");
  }
}
