#include <bit>
#include <cstring>

#include "fuzz/fuzz.h"
#include "util/decimal.h"
#include "util/format_pattern.h"
#include "util/numbers.h"
#include "util/text.h"
#include "util/value_text.h"

using namespace paperway;

/// A pattern, a line feed, a value.
std::vector<std::string> fuzz::seeds() {
  return {"#,##0.00\n-1234.565",
          "0000\n7",
          "##,##,##0.00;(0.00);\"nil\";\\n\n0",
          "$0.00E+00 \"x\"\n1e-300",
          "0,,.0#%\n9999999",
          "000-0000\n5551234",
          "dd-mmm-yyyy hh:nn:ss AM/PM\n2026-03-05T14:07:09.5Z",
          "c ddddd dddddd w ww q y yy m mm mmmm h:m a/p ttttt\n46086.75",
          "!(@@@) &&&-@@@@;<none>\nZoë € 😀",
          "Medium Time\n0.5",
          "yes/no\n-0",
          "\n12"};
}

namespace {

double asReal(std::string_view bytes) {
  double real = 0;
  std::memcpy(&real, bytes.data(), std::min(bytes.size(), sizeof real));
  return real;
}

void formatBoth(const FormatPattern& pattern, ValueView value) {
  static const std::string kBefore = "before";
  std::string out = kBefore;
  pattern.append(out, value);
  fuzz::require(out == kBefore + FormatPattern(pattern)(value), "a copy appended gives the same");
}

/// Whole cents take short roads; literals among the places take another than those at the ends.
void checkAmount(double amount) {
  static const FormatPattern plain("0.00"), straight("#,##0.00"), winding("#,##0\\x.00");
  const double cents = columnNumber(amount);
  fuzz::require(cents == Decimal::fromDouble(amount).toDouble(), "the short road ends as the long");
  fuzz::require(parseNumber(plain(cents)) == cents, "a formatted amount reads back");
  std::string unwound = winding(amount);
  unwound.erase(unwound.find('x'), 1);
  fuzz::require(unwound == straight(amount), "a literal among the places changes no other");
}

}  // namespace

void fuzz::check(std::string_view input) {
  const std::string_view patternText = fuzz::takeUntil(input, '\n');
  const FormatPattern pattern(patternText);
  const double real = asReal(input);
  for (const ValueView value : {ValueView(),
                                ValueView(input),
                                ValueView(real),
                                ValueView(-0.005),
                                ValueView(static_cast<std::int64_t>(input.size()) << 56),
                                ValueView(serialToDate(real).value_or(Date{}))}) {
    formatBoth(pattern, value);
  }
  if (isAscii(patternText) && isAscii(input)) {
    fuzz::require(isAscii(pattern(input)), "ASCII in, ASCII out");
  }
  const auto whole = std::bit_cast<std::int64_t>(real);
  checkAmount(static_cast<double>(whole >> (12 + patternText.size() % 50)) / 100);
  const std::string text = defaultText(real);
  if (const auto read = parseNumber(text)) {
    fuzz::require(*read == columnNumber(real), "the default text reads back as the number");
  }
}
