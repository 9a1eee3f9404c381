#include "paperway/value.h"

#include <cmath>
#include <limits>

#include "support/expect_each.h"
#include "util/numbers.h"
#include "util/value_text.h"

namespace paperway {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr std::int64_t kLowest = std::numeric_limits<std::int64_t>::min();

TEST(DefaultText, OfEachKind) {
  expectEach(defaultText,
             Row{ValueView(), ""},
             Row{"as it is ", "as it is "},
             Row{0, "0"},
             Row{kLowest, "-9223372036854775808"},
             Row{-0.0, "0"},
             Row{-0.05, "-0.05"},
             Row{1234.50, "1234.5"},
             Row{0.1 + 0.2, "0.3"},
             Row{2.0 / 3, "0.666666666666667"},
             Row{0.1234567890123455, "0.123456789012346"},
             Row{0.0001, "0.0001"},
             Row{0.00001, "1E-05"},
             Row{-0.0000123456, "-1.23456E-05"},
             Row{999999999999999.9, "1E+15"},
             Row{123456789012345678.0, "1.23456789012346E+17"},
             Row{kInfinity, "1.#INF"},
             Row{Date{2026, 3, 5}, "3/5/2026"},
             Row{Date{2026, 12, 25, 0, 5, 9}, "12/25/2026 12:05:09 AM"},
             Row{Date{2026, 12, 25, 13, 0, 0}, "12/25/2026 1:00:00 PM"});
}

TEST(NumberText, HasALeadingBlankAndNoZeroBeforeThePoint) {
  expectEach(numberText,
             Row{0, " 0"},
             Row{12, " 12"},
             Row{-12, "-12"},
             Row{.5, " .5"},
             Row{-.5, "-.5"},
             Row{10.5, " 10.5"},
             Row{1e15, " 1E+15"},
             Row{0.00001, " 1E-05"});
}

TEST(LeadingNumber, ReadsAsFarAsItGoes) {
  expectEach(leadingNumber,
             Row{"", 0},
             Row{"  12", 12},
             Row{"\t12", 0},
             Row{"-1.5x", -1.5},
             Row{"+7", 7},
             Row{"--7", 0},
             Row{"- 7", 0},
             Row{"1 2", 1},
             Row{"1,234.50", 1},
             Row{".5", .5},
             Row{"-.5.5", -.5},
             Row{"5.", 5},
             Row{".", 0},
             Row{"1E3", 1},
             Row{"1.2.3", 1.2},
             Row{"&H10", 0},
             Row{"2.345 kg", 2.345},
             Row{"3/5/2026", 3},
             Row{"1234567890.12345", 1234567890.12345},
             Row{"0.000000000000000000001", 1e-21},
             Row{"12345678901234567890123", 12345678901234567890123.0});
  EXPECT_EQ(leadingNumber("-" + std::string(400, '9')), -kInfinity);
  EXPECT_EQ(leadingNumber("0." + std::string(400, '0') + "1"), 0);
}

TEST(ColumnNumber, OfEachKind) {
  expectEach(columnNumber,
             Row{ValueView(), 0},
             Row{"1,234", 1},
             Row{std::int64_t{1234567890123456789}, 1234567890123460000.0},
             Row{kLowest, -9.22337203685478e18},
             Row{0.1 + 0.2, 0.3},
             Row{1.5e-7, 1.5e-7},
             Row{1234.56, 1234.56},
             Row{99999999999999.95, 100000000000000.0},
             Row{Date{2026, 11, 5}, 11});
}

TEST(ParseNumber, TakesTheWholeTextOrNothing) {
  expectEach(parseNumber,
             Row{"12", 12},
             Row{" -1.5 ", -1.5},
             Row{"1E3", 1000},
             Row{"+.5", .5},
             Row{"5.", 5},
             Row{"1e-2", .01});
  for (const char* text : table(
           "", "  ", "-", ".", "1,234", "12x", "1 2", "inf", "nan", "0x10", "--1", "1E", "1E999")) {
    EXPECT_FALSE(parseNumber(text)) << text;
  }
}

TEST(IsoDate, ReadsWholeTexts) {
  expectEach(parseIsoDate,
             Row{"2026-03-05", Date{2026, 3, 5}},
             Row{"0100-01-01", Date{100, 1, 1}},
             Row{"2000-02-29", Date{2000, 2, 29}},
             Row{"2026-03-05T14:07", Date{2026, 3, 5, 14, 7}},
             Row{"2026-03-05 14:07:09.999", Date{2026, 3, 5, 14, 7, 9}},
             Row{"2026-03-05t14:07:09z", Date{2026, 3, 5, 14, 7, 9}},
             Row{"2026-03-05T14:07:09.5+05:30", Date{2026, 3, 5, 14, 7, 9}},
             Row{"2026-03-05T14:07-0800", Date{2026, 3, 5, 14, 7}},
             Row{"2026-03-05 14:07:09+05", Date{2026, 3, 5, 14, 7, 9}});
}

TEST(IsoDate, RefusesAnythingElse) {
  for (const char* text : table("",
                                "2026-03-5",
                                "2026-3-05",
                                "2026/03/05",
                                "2026-13-01",
                                "2026-00-01",
                                "2026-02-29",
                                "1900-02-29",
                                "2026-04-31",
                                "2026-03-00",
                                "0099-12-31",
                                " 2026-03-05",
                                "2026-03-05 ",
                                "2026-03-05T",
                                "2026-03-05 14",
                                "2026-03-05 1:07",
                                "2026-03-05 24:00",
                                "2026-03-05 14:60",
                                "2026-03-05 14:07:60",
                                "2026-03-05 14:07:09.",
                                "2026-03-05 14:07 PM",
                                "2026-03-05 14:07+5",
                                "20260305")) {
    EXPECT_FALSE(parseIsoDate(text)) << text;
  }
}

TEST(Serial, CountsDaysFromTheEndOf1899) {
  const std::pair<Date, double> cases[] = {{{1899, 12, 30}, 0},
                                           {{1900, 1, 1}, 2},
                                           {{2026, 3, 5, 18}, 46086.75},
                                           {{1899, 12, 29, 6}, -1.25},
                                           {{100, 1, 1}, -657434},
                                           {{9999, 12, 31}, 2958465}};
  for (const auto& [date, serial] : cases) {
    EXPECT_EQ(dateToSerial(date), serial);
    EXPECT_EQ(serialToDate(serial), date) << serial;
  }
}

TEST(Serial, RoundsToTheSecondWithinTheCalendar) {
  EXPECT_EQ(serialToDate(46086.9999999), (Date{2026, 3, 6}));
  EXPECT_EQ(serialToDate(-0.25), (Date{1899, 12, 30, 6}));
  for (const double serial :
       {2958466.0, 2958465.9999999, -657435.0, 1e300, std::numeric_limits<double>::quiet_NaN()}) {
    EXPECT_FALSE(serialToDate(serial)) << serial;
  }
}

}  // namespace
}  // namespace paperway
