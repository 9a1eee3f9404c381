#include "util/format_pattern.h"

#include <gtest/gtest.h>
#include <limits>
#include <random>

#include "util/text.h"

namespace paperway {
namespace {

struct Case {
  const char* pattern;
  ValueView value;
  const char* text;
};

template <std::size_t N>
void expectTexts(const Case (&cases)[N]) {
  for (const Case& each : cases) {
    EXPECT_EQ(FormatPattern(each.pattern)(each.value), each.text)
        << "pattern " << each.pattern << ", value " << defaultText(each.value);
  }
}

constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t kLeast = std::numeric_limits<std::int64_t>::min();

TEST(NumberPattern, PlacesAndPoint) {
  expectTexts({{"0", 0, "0"},
               {"0", -5, "-5"},
               {"0000", 7, "0007"},
               {"0000", -7, "-0007"},
               {"0.00", 1234.5, "1234.50"},
               {"#", 0, ""},
               {"#.##", 5, "5."},
               {"#.##", 0, "."},
               {"#.##", .5, ".5"},
               {"#.00", .5, ".50"},
               {".00", 12.345, "12.35"},
               {"0.", 5, "5."},
               {"0.0##", 1.25, "1.25"},
               {"0.0##", 1, "1.0"},
               {"0.#0", 1, "1.00"},
               {"#0#", 5, "05"},
               {"000000000000000000000", 5, "000000000000000000005"},
               {"0.000000000000000000", .5, "0.500000000000000000"},
               {"0.0.0", 1.25, "1.2.5"}});
}

TEST(NumberPattern, RoundsHalfAwayFromZeroOnDecimalDigits) {
  expectTexts({{"0.00", 2.345, "2.35"},
               {"0.00", 1.005, "1.01"},
               {"0.00", -2.345, "-2.35"},
               {"0.00", 2.3449999, "2.34"},
               {"0", 0.5, "1"},
               {"0", 2.5, "3"},
               {"0", 0.4999999999999999, "1"},
               {"0.0", 0.05, "0.1"},
               {"0.00", 999999.995, "1000000.00"},
               {"0.00", 12345678901.125, "12345678901.13"},
               {"0.00", 0.1 + 0.2, "0.30"},
               {"0.00000000000000000000", 0.1 + 0.2, "0.30000000000000000000"},
               {"#,##0.00", 99999999999999.99, "100,000,000,000,000.00"},
               {"0", 123456789012345678.0, "123456789012346000"},
               {"0", 1e22, "10000000000000000000000"}});
}

TEST(NumberPattern, ZeroHasNoSign) {
  expectTexts({{"0.00", -0.004, "0.00"},
               {"0.00", -0.0, "0.00"},
               {"0.00;(0.00)", -0.004, "0.00"},
               {"0.000;(0.00)", -0.004, "0.000"},
               {"0.00;(0.00);nil", -0.004, "nil"},
               {"0.00;(0.00);nil", 0.004, "nil"},
               {"0.00%", -0.00001, "0.00%"},
               {"#", -0.4, ""},
               {"0,", -499, "0"}});
}

TEST(NumberPattern, WholeNumbersKeepAllTheirDigits) {
  expectTexts({{"0", kMost, "9223372036854775807"},
               {"0.00", kLeast, "-9223372036854775808.00"},
               {"#,##0", kMost, "9,223,372,036,854,775,807"},
               {"#,##0.0000", std::int64_t{999999999999999}, "999,999,999,999,999.0000"},
               {"0%", kMost, "922337203685477580700%"},
               {"0,,", kLeast, "-9223372036855"}});
}

TEST(NumberPattern, GroupsOfThree) {
  expectTexts({{"#,##0.00", 1234567.891, "1,234,567.89"},
               {"#,##0.00", 999.995, "1,000.00"},
               {"##,##,##0.00", 12345678.9, "12,345,678.90"},
               {"#,###", 1000000, "1,000,000"},
               {"#,###", 0, ""},
               {"0,000", 5, "0,005"},
               {"0,000,000", 1234, "0,001,234"},
               {",0", 1234, "1,234"},
               {"#,##0\"\"-00", 1234567, "1,234,5-67"},
               {"#,##0.0E+0", 1234567, "1,234.6E+3"}});
}

TEST(NumberPattern, ScalesAndTakesPercent) {
  expectTexts({{"0,", 12500, "13"},
               {"0.0,", 12, "12.0,"},
               {"0,.0", 12345, "12.3"},
               {"0,,.00", 1234567.8, "1.23"},
               {"0, \"k\"", 12345, "12 k"},
               {"0%", .125, "13%"},
               {"0.00%", 1.005, "100.50%"},
               {"%0", .5, "%50"},
               {"0%%", .5, "5000%%"},
               {"0,%", 12345, "1235%"},
               {"0\\%", 5, "5%"},
               {"0,.00", 5, "0.01"}});
}

TEST(NumberPattern, Exponents) {
  expectTexts({{"0.00E+00", 12345, "1.23E+04"},
               {"0.00E+00", 0, "0.00E+00"},
               {"0.00e-00", .0012, "1.20e-03"},
               {"0.00e+0", -12345, "-1.23e+4"},
               {"0.00E+00", 9.999, "1.00E+01"},
               {"##0.0E+0", 12345, "123.5E+2"},
               {".00E+0", 12345, ".12E+5"},
               {"#.##E+##", 5, "5.E+0"},
               {"0E+000 x", 1e200, "1E+200 x"},
               {"0E+", 5, "5E+"},
               {"E+0", 5, "E+5"},
               {"0E+0E+0.0,0", 50, "5E+1E+0.0,0"},
               {"0-\\xE+0", 50, "5-xE+1"}});
}

TEST(NumberPattern, Literals) {
  expectTexts({{"$0.00", 5, "$5.00"},
               {"$0.00", -5, "-$5.00"},
               {"(0)", -5, "-(5)"},
               {"+ 0 -", 5, "+ 5 -"},
               {"\\#0", 5, "#5"},
               {"\"0#,.\"0", 5, "0#,.5"},
               {"0\\", 5, "5\\"},
               {"0\"open", 5, "5open"},
               {"000-0000", 12345551234, "1234555-1234"},
               {"##-##", 5, "-5"},
               {"0\\x.\\y0\\z0", 1.25, "1x.y2z5"},
               {"00:00", 930, "09:30"},
               {"0 days", 3, "3 days"},
               {"Rs. #,##0.00", 1234.5, "Rs. 1,234.50"},
               {"No. 000", 7, "No. 007"},
               {"No..0", 7, "No.7.0"},
               {"0 nos.", 7, "7 nos."},
               {"₹0", -5, "-₹5"},
               {"0@<", 5, "5@<"},
               {"\"none\"", 5, "none"}});
}

TEST(NumberPattern, Sections) {
  expectTexts({{"0;(0)", -5, "(5)"},
               {"$0;;\\Z\\e\\r\\o", -5, "-$5"},
               {"$0;;\\Z\\e\\r\\o", 0, "Zero"},
               {"0;(0);", 0, "0"},
               {"0.00;(0.00);\"nil\";\"none\"", ValueView(), "none"},
               {"0;;;\"none\";more", ValueView(), "none"},
               {"0;-0;0;", ValueView(), ""},
               {"\"a;b\"0;\\;0", -5, ";5"},
               {"0;\"less\"", -5, "less"},
               {"0;n.a., or %", -5, "n.a., or %"},
               {";(0)", 5.5, "5.5"},
               {";(0)", -5, "(5)"},
               {";", -5.5, "-5.5"}});
}

TEST(NumberPattern, OtherKindsOfValues) {
  expectTexts({{"0.00", " 12.5 ", "12.50"},
               {"0.00", "1E3", "1000.00"},
               {"0.00", "-2.345", "-2.35"},
               {"0.00", "12 kg", "12 kg"},
               {"0.00", "1,234", "1,234"},
               {"0.00", "", ""},
               {"0.00", "2026-03-05 18:00", "46086.75"},
               {"0", Date{2026, 3, 5}, "46086"},
               {"0.00", std::numeric_limits<double>::infinity(), "1.#INF"},
               {"", Date{2026, 3, 5}, "3/5/2026"}});
}

TEST(NamedPattern, Numbers) {
  expectTexts({{"General Number", 1234567.50, "1234567.5"},
               {"Currency", 1234.5, "$1,234.50"},
               {"CURRENCY", -1234.5, "($1,234.50)"},
               {"Fixed", 1234.567, "1234.57"},
               {"Percent", .1234, "12.34%"},
               {"Scientific", 1234567, "1.23E+06"},
               {"Yes/No", 0, "No"},
               {"yes/no", -0.3, "Yes"},
               {"True/False", "0", "False"},
               {"On/Off", 0, "Off"},
               {"On/Off", ValueView(), ""},
               {"Yes/No", "maybe", "maybe"}});
}

const Date kAfternoon{2026, 3, 5, 14, 7, 9};
const Date kMidnight{2026, 11, 25};

TEST(DatePattern, Parts) {
  expectTexts({{"dd-mmm-yyyy", kAfternoon, "05-Mar-2026"},
               {"DD/MM/YY", kAfternoon, "05/03/26"},
               {"d.m.yyyy", kAfternoon, "5.3.2026"},
               {"dddd, mmmm d", kAfternoon, "Thursday, March 5"},
               {"ddd w ww q y", kAfternoon, "Thu 5 10 1 64"},
               {"ww q", Date{2028, 12, 31}, "54 4"},
               {"y", Date{2024, 12, 31}, "366"},
               {"ddddd", kAfternoon, "3/5/2026"},
               {"dddddd", kAfternoon, "Thursday, March 5, 2026"},
               {"yyyy", Date{476, 9, 4}, "0476"},
               {"yyy", kAfternoon, "2664"},
               {"mmmmm", kAfternoon, "March3"},
               {"c", kAfternoon, "3/5/2026 2:07:09 PM"},
               {"c", 0.25, "6:00:00 AM"},
               {"c", 0, "12:00:00 AM"},
               {"yyyy\\y\"d\"", kAfternoon, "2026yd"},
               {"dé;d", kAfternoon, "5é;5"}});
}

TEST(DatePattern, Times) {
  expectTexts({{"hh:mm:ss", kAfternoon, "14:07:09"},
               {"hh:nn mm", kAfternoon, "14:07 03"},
               {"mm hh mm", kAfternoon, "03 14 07"},
               {"h mmm", kAfternoon, "14 Mar"},
               {"h\"m\"m", kAfternoon, "14m7"},
               {"n s", kAfternoon, "7 9"},
               {"h AM/PM", kAfternoon, "2 PM"},
               {"hh am/pm m", kAfternoon, "02 pm 3"},
               {"h A/P", kAfternoon, "2 P"},
               {"ha/p", kMidnight, "12a"},
               {"h AMPM", kMidnight, "12 AM"},
               {"h a", kAfternoon, "14 a"},
               {"ttttt", kAfternoon, "2:07:09 PM"},
               {"hh ttttt", kAfternoon, "14 2:07:09 PM"}});
}

TEST(DatePattern, NamesAndOtherKindsOfValues) {
  expectTexts({{"General Date", kAfternoon, "3/5/2026 2:07:09 PM"},
               {"Long Date", kAfternoon, "Thursday, March 5, 2026"},
               {"Medium Date", kAfternoon, "05-Mar-26"},
               {"short date", kAfternoon, "3/5/2026"},
               {"Long Time", kAfternoon, "2:07:09 PM"},
               {"Medium Time", kAfternoon, "02:07 PM"},
               {"Short Time", kAfternoon, "14:07"},
               {"dd-mmm-yyyy", 46086, "05-Mar-2026"},
               {"dd-mmm-yyyy hh", 46086.75, "05-Mar-2026 18"},
               {"dd-mmm-yyyy", "2026-03-05T10:00:00Z", "05-Mar-2026"},
               {"dd-mmm-yyyy", "5 March", "5 March"},
               {"dd-mmm-yyyy", "9999999", "9999999"},
               {"dd-mmm-yyyy", 1e10, "10000000000"},
               {"dd-mmm-yyyy", ValueView(), ""}});
}

TEST(TextPattern, PlacesFillFromTheRight) {
  expectTexts({{"@@@@@", "abc", "  abc"},
               {"!@@@@@", "abc", "abc  "},
               {"&&&&&", "abc", "abc"},
               {"!@-@", "abcd", "a-bcd"},
               {"@-@", "abcd", "abc-d"},
               {"(@@@) @@@-@@@@", "5551234", "(   ) 555-1234"},
               {"(&&&) &&&-&&&&", "5551234", "() 555-1234"},
               {">", "Zoë", "ZOË"},
               {"<@@@@", "ZOË", " zoë"},
               {">@\\@<", "aB", "ab@"},
               {"[>]", "ab", "[AB]"},
               {"@@@@@@@@@@", Date{2026, 3, 5}, "  3/5/2026"},
               {"@@@", "", "   "},
               {"@@@", ValueView(), ""},
               {"@@@;\"none\"", "", "none"},
               {"@@@;\"none\"", ValueView(), "none"},
               {"@@@;", "", ""},
               {"@@@-00", "abc", "abc-00"}});
}

/// Literals among the places take another road than those at the ends.
TEST(NumberPattern, BothRoadsAgreeAndReadBack) {
  const FormatPattern straight("#,##0.00");
  const FormatPattern winding("#,##0\\x.00");
  const auto unwound = [&](ValueView value) {
    std::string text = winding(value);
    return text.erase(text.find('x'), 1);
  };
  std::mt19937_64 random(7);
  for (int i = 0; i < 20000; ++i) {
    const auto units = static_cast<std::int64_t>(random()) >> (12 + i % 50);
    ASSERT_EQ(straight(units), unwound(units));
    for (const int parts : {7, 100, 1000}) {
      const double number = static_cast<double>(units) / parts;
      ASSERT_EQ(straight(number), unwound(number)) << number;
    }
    const double cents = columnNumber(static_cast<double>(units) / 100);
    ASSERT_EQ(parseNumber(FormatPattern("0.00")(cents)), cents);
  }
}

TEST(FormatPattern, AnyTextCompilesAndCopies) {
  for (const char* pattern :
       {"\"", "\\", ";;;;;;;", "%", ".", ",", "E+", "\xFF\xC3", "!", "AM/", "//"}) {
    const FormatPattern compiled(pattern);
    const FormatPattern copy = compiled;
    for (const ValueView value :
         {ValueView(), ValueView(-1.5), ValueView("x"), ValueView(Date{})}) {
      EXPECT_EQ(copy(value), compiled(value)) << pattern;
    }
  }
}

}  // namespace
}  // namespace paperway
