#include "util/format_pattern.h"

#include <limits>

#include "support/expect_each.h"

namespace paperway {
namespace {

std::string formatted(const char* pattern, const ValueView& value) {
  return FormatPattern(pattern)(value);
}

constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t kLeast = std::numeric_limits<std::int64_t>::min();

TEST(NumberPattern, PlacesAndPoint) {
  expectEach(formatted,
             Row{"0", 0, "0"},
             Row{"0", -5, "-5"},
             Row{"0000", -7, "-0007"},
             Row{"#", 0, ""},
             Row{"#.##", 5, "5."},
             Row{"#.##", 0, "."},
             Row{"#.##", .5, ".5"},
             Row{".00", 12.345, "12.35"},
             Row{"0.0##", 1.25, "1.25"},
             Row{"0.#0", 1, "1.00"},
             Row{"#0#", 5, "05"},
             Row{"000000000000000000000", 5, "000000000000000000005"},
             Row{"0.000000000000000000", .5, "0.500000000000000000"},
             Row{"0.0.0", 1.25, "1.2.5"});
}

TEST(NumberPattern, RoundsHalfAwayFromZeroOnDecimalDigits) {
  expectEach(formatted,
             Row{"0.00", 2.345, "2.35"},
             Row{"0.00", 1.005, "1.01"},
             Row{"0.00", 2.3449999, "2.34"},
             Row{"0", 0.5, "1"},
             Row{"0", 0.4999999999999999, "1"},
             Row{"0.00", 0.1 + 0.2, "0.30"},
             Row{"0.00000000000000000000", 0.1 + 0.2, "0.30000000000000000000"},
             Row{"#,##0.00", 99999999999999.99, "100,000,000,000,000.00"},
             Row{"0", 123456789012345678.0, "123456789012346000"},
             Row{"0", 1e22, "10000000000000000000000"});
}

TEST(NumberPattern, ZeroHasNoSign) {
  expectEach(formatted,
             Row{"0.00", -0.004, "0.00"},
             Row{"0.00", -0.0, "0.00"},
             Row{"0.00;(0.00)", -0.004, "0.00"},
             Row{"0.00;(0.00);nil", -0.004, "nil"},
             Row{"0.00%", -0.00001, "0.00%"},
             Row{"#", -0.4, ""},
             Row{"0,", -499, "0"});
}

TEST(NumberPattern, WholeNumbersKeepAllTheirDigits) {
  expectEach(formatted,
             Row{"0", kMost, "9223372036854775807"},
             Row{"0.00", kLeast, "-9223372036854775808.00"},
             Row{"#,##0", kMost, "9,223,372,036,854,775,807"},
             Row{"#,##0.0000", std::int64_t{999999999999999}, "999,999,999,999,999.0000"},
             Row{"0%", kMost, "922337203685477580700%"},
             Row{"0,,", kLeast, "-9223372036855"});
}

TEST(NumberPattern, GroupsOfThree) {
  expectEach(formatted,
             Row{"#,##0.00", 1234567.891, "1,234,567.89"},
             Row{"#,##0.00", 999.995, "1,000.00"},
             Row{"##,##,##0.00", 12345678.9, "12,345,678.90"},
             Row{"#,###", 0, ""},
             Row{"0,000", 5, "0,005"},
             Row{"0,000,000", 1234, "0,001,234"},
             Row{",0", 1234, "1,234"},
             Row{"#,##0\"\"-00", 1234567, "1,234,5-67"},
             Row{"#,##0.0E+0", 1234567, "1,234.6E+3"});
}

TEST(NumberPattern, ScalesAndTakesPercent) {
  expectEach(formatted,
             Row{"0,", 12500, "13"},
             Row{"0.0,", 12, "12.0,"},
             Row{"0,.0", 12345, "12.3"},
             Row{"0,,.00", 1234567.8, "1.23"},
             Row{"0, \"k\"", 12345, "12 k"},
             Row{"0%", .125, "13%"},
             Row{"0.00%", 1.005, "100.50%"},
             Row{"%0", .5, "%50"},
             Row{"0%%", .5, "5000%%"},
             Row{"0,%", 12345, "1235%"},
             Row{"0\\%", 5, "5%"},
             Row{"0,.00", 5, "0.01"});
}

TEST(NumberPattern, Exponents) {
  expectEach(formatted,
             Row{"0.00E+00", 0, "0.00E+00"},
             Row{"0.00e-00", .0012, "1.20e-03"},
             Row{"0.00e+0", -12345, "-1.23e+4"},
             Row{"0.00E+00", 9.999, "1.00E+01"},
             Row{"##0.0E+0", 12345, "123.5E+2"},
             Row{".00E+0", 12345, ".12E+5"},
             Row{"#.##E+##", 5, "5.E+0"},
             Row{"0E+000 x", 1e200, "1E+200 x"},
             Row{"0E+", 5, "5E+"},
             Row{"E+0", 5, "E+5"},
             Row{"0E+0E+0.0,0", 50, "5E+1E+0.0,0"},
             Row{"0-\\xE+0", 50, "5-xE+1"});
}

TEST(NumberPattern, Literals) {
  expectEach(formatted,
             Row{"$0.00", -5, "-$5.00"},
             Row{"+ 0 -", 5, "+ 5 -"},
             Row{"\\#0", 5, "#5"},
             Row{"\"0#,.\"0", 5, "0#,.5"},
             Row{"0\\", 5, "5\\"},
             Row{"0\"open", 5, "5open"},
             Row{"000-0000", 12345551234, "1234555-1234"},
             Row{"##-##", 5, "-5"},
             Row{"0\\x.\\y0\\z0", 1.25, "1x.y2z5"},
             Row{"00:00", 930, "09:30"},
             Row{"No..0", 7, "No.7.0"},
             Row{"0 nos.", 7, "7 nos."},
             Row{"₹0", -5, "-₹5"},
             Row{"0@<", 5, "5@<"},
             Row{"\"none\"", 5, "none"});
}

TEST(NumberPattern, Sections) {
  expectEach(formatted,
             Row{"$0;;\\Z\\e\\r\\o", -5, "-$5"},
             Row{"$0;;\\Z\\e\\r\\o", 0, "Zero"},
             Row{"0;(0);", 0, "0"},
             Row{"0;;;\"none\";more", ValueView(), "none"},
             Row{"0;-0;0;", ValueView(), ""},
             Row{"\"a;b\"0;\\;0", -5, ";5"},
             Row{"0;\"less\"", -5, "less"},
             Row{"0;n.a., or %", -5, "n.a., or %"},
             Row{";(0)", 5.5, "5.5"},
             Row{";(0)", -5, "(5)"},
             Row{";", -5.5, "-5.5"});
}

TEST(NumberPattern, OtherKindsOfValues) {
  expectEach(formatted,
             Row{"0.00", " 12.5 ", "12.50"},
             Row{"0.00", "1E3", "1000.00"},
             Row{"0.00", "-2.345", "-2.35"},
             Row{"0.00", "12 kg", "12 kg"},
             Row{"0.00", "1,234", "1,234"},
             Row{"0.00", "", ""},
             Row{"0.00", "2026-03-05 18:00", "46086.75"},
             Row{"0", Date{2026, 3, 5}, "46086"},
             Row{"0.00", std::numeric_limits<double>::infinity(), "1.#INF"},
             Row{"", Date{2026, 3, 5}, "3/5/2026"});
}

TEST(NamedPattern, Numbers) {
  expectEach(formatted,
             Row{"General Number", 1234567.50, "1234567.5"},
             Row{"Currency", 1234.5, "$1,234.50"},
             Row{"CURRENCY", -1234.5, "($1,234.50)"},
             Row{"Fixed", 1234.567, "1234.57"},
             Row{"Percent", .1234, "12.34%"},
             Row{"Scientific", 1234567, "1.23E+06"},
             Row{"Yes/No", 0, "No"},
             Row{"yes/no", -0.3, "Yes"},
             Row{"True/False", "0", "False"},
             Row{"On/Off", ValueView(), ""},
             Row{"Yes/No", "maybe", "maybe"});
}

const Date kDate{2026, 3, 5, 14, 7, 9};
const Date kMidnight{2026, 11, 25};

TEST(DatePattern, Parts) {
  expectEach(formatted,
             Row{"dd-mmm-yyyy", kDate, "05-Mar-2026"},
             Row{"DD/MM/YY", kDate, "05/03/26"},
             Row{"d.m.yyyy", kDate, "5.3.2026"},
             Row{"dddd, mmmm d", kDate, "Thursday, March 5"},
             Row{"ddd w ww q y", kDate, "Thu 5 10 1 64"},
             Row{"ww q", Date{2028, 12, 31}, "54 4"},
             Row{"y", Date{2024, 12, 31}, "366"},
             Row{"ddddd", kDate, "3/5/2026"},
             Row{"dddddd", kDate, "Thursday, March 5, 2026"},
             Row{"yyyy", Date{476, 9, 4}, "0476"},
             Row{"yyy", kDate, "2664"},
             Row{"mmmmm", kDate, "March3"},
             Row{"c", kDate, "3/5/2026 2:07:09 PM"},
             Row{"c", 0.25, "6:00:00 AM"},
             Row{"c", 0, "12:00:00 AM"},
             Row{"yyyy\\y\"d\"", kDate, "2026yd"},
             Row{"dé;d", kDate, "5é;5"});
}

TEST(DatePattern, Times) {
  expectEach(formatted,
             Row{"hh:mm:ss", kDate, "14:07:09"},
             Row{"hh:nn mm", kDate, "14:07 03"},
             Row{"mm hh mm", kDate, "03 14 07"},
             Row{"h mmm", kDate, "14 Mar"},
             Row{"h\"m\"m", kDate, "14m7"},
             Row{"n s", kDate, "7 9"},
             Row{"h AM/PM", kDate, "2 PM"},
             Row{"hh am/pm m", kDate, "02 pm 3"},
             Row{"h A/P", kDate, "2 P"},
             Row{"ha/p", kMidnight, "12a"},
             Row{"h AMPM", kMidnight, "12 AM"},
             Row{"h a", kDate, "14 a"},
             Row{"ttttt", kDate, "2:07:09 PM"},
             Row{"hh ttttt", kDate, "14 2:07:09 PM"});
}

TEST(DatePattern, NamesAndOtherKindsOfValues) {
  expectEach(formatted,
             Row{"General Date", kDate, "3/5/2026 2:07:09 PM"},
             Row{"Long Date", kDate, "Thursday, March 5, 2026"},
             Row{"Medium Date", kDate, "05-Mar-26"},
             Row{"short date", kDate, "3/5/2026"},
             Row{"Long Time", kDate, "2:07:09 PM"},
             Row{"Medium Time", kDate, "02:07 PM"},
             Row{"Short Time", kDate, "14:07"},
             Row{"dd-mmm-yyyy", 46086, "05-Mar-2026"},
             Row{"dd-mmm-yyyy hh", 46086.75, "05-Mar-2026 18"},
             Row{"dd-mmm-yyyy", "2026-03-05T10:00:00Z", "05-Mar-2026"},
             Row{"dd-mmm-yyyy", "5 March", "5 March"},
             Row{"dd-mmm-yyyy", "9999999", "9999999"},
             Row{"dd-mmm-yyyy", 1e10, "10000000000"},
             Row{"dd-mmm-yyyy", ValueView(), ""});
}

TEST(TextPattern, PlacesFillFromTheRight) {
  expectEach(formatted,
             Row{"@@@@@", "abc", "  abc"},
             Row{"!@@@@@", "abc", "abc  "},
             Row{"&&&&&", "abc", "abc"},
             Row{"!@-@", "abcd", "a-bcd"},
             Row{"@-@", "abcd", "abc-d"},
             Row{"(@@@) @@@-@@@@", "5551234", "(   ) 555-1234"},
             Row{"(&&&) &&&-&&&&", "5551234", "() 555-1234"},
             Row{">", "Zoë", "ZOË"},
             Row{"<@@@@", "ZOË", " zoë"},
             Row{">@\\@<", "aB", "ab@"},
             Row{"[>]", "ab", "[AB]"},
             Row{"@@@@@@@@@@", Date{2026, 3, 5}, "  3/5/2026"},
             Row{"@@@", "", "   "},
             Row{"@@@", ValueView(), ""},
             Row{"@@@;\"none\"", "", "none"},
             Row{"@@@;\"none\"", ValueView(), "none"},
             Row{"@@@;", "", ""},
             Row{"@@@-00", "abc", "abc-00"});
}

}  // namespace
}  // namespace paperway
