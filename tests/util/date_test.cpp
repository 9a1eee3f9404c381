#include <gtest/gtest.h>
#include <limits>

#include "support/table.h"
#include "util/value.h"

namespace paperway {
namespace {

TEST(IsoDate, ReadsWholeTexts) {
  using Row = std::pair<const char*, Date>;
  const auto cases = table(Row{"2026-03-05", {2026, 3, 5}}, Row{"0100-01-01", {100, 1, 1}},
                           Row{"2024-02-29", {2024, 2, 29}}, Row{"2000-02-29", {2000, 2, 29}},
                           Row{"2026-03-05T14:07", {2026, 3, 5, 14, 7}},
                           Row{"2026-03-05 14:07:09", {2026, 3, 5, 14, 7, 9}},
                           Row{"2026-03-05 14:07:09.999", {2026, 3, 5, 14, 7, 9}},
                           Row{"2026-03-05t14:07:09z", {2026, 3, 5, 14, 7, 9}},
                           Row{"2026-03-05T14:07:09.5+05:30", {2026, 3, 5, 14, 7, 9}},
                           Row{"2026-03-05T14:07-0800", {2026, 3, 5, 14, 7}},
                           Row{"2026-03-05 14:07:09+05", {2026, 3, 5, 14, 7, 9}});
  for (const auto& [text, date] : cases) EXPECT_EQ(parseIsoDate(text), date) << text;
}

TEST(IsoDate, RefusesAnythingElse) {
  for (const char* text :
       table("", "2026-03-5", "2026-3-05", "05-03-2026", "2026/03/05", "2026-13-01", "2026-00-01",
             "2026-02-29", "1900-02-29", "2026-04-31", "2026-03-00", "0099-12-31", " 2026-03-05",
             "2026-03-05 ", "2026-03-05T", "2026-03-05 14", "2026-03-05 1:07", "2026-03-05 24:00",
             "2026-03-05 14:60", "2026-03-05 14:07:60", "2026-03-05 14:07:", "2026-03-05 14:07:09.",
             "2026-03-05 14:07 PM", "2026-03-05 14:07+5", "20260305")) {
    EXPECT_FALSE(parseIsoDate(text)) << text;
  }
}

TEST(Serial, CountsDaysFromTheEndOf1899) {
  using Row = std::pair<Date, double>;
  const auto cases =
      table(Row{{1899, 12, 30}, 0}, Row{{1899, 12, 31}, 1}, Row{{1900, 1, 1}, 2},
            Row{{2026, 3, 5}, 46086}, Row{{2026, 3, 5, 18}, 46086.75}, Row{{1899, 12, 29}, -1},
            Row{{1899, 12, 29, 6}, -1.25}, Row{{100, 1, 1}, -657434}, Row{{9999, 12, 31}, 2958465});
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
  for (int serial = -657434; serial <= 2958465; serial += 997) {
    const auto date = serialToDate(serial + (serial < 0 ? -0.123 : 0.123));
    ASSERT_TRUE(date);
    ASSERT_EQ(serialToDate(dateToSerial(*date)), date) << serial;
  }
}

TEST(Calendar, DaysOfWeekAndYear) {
  EXPECT_EQ(dayOfWeek({2026, 3, 5}), 4);
  EXPECT_EQ(dayOfWeek({1899, 12, 30}), 6);
  EXPECT_EQ(dayOfYear({2026, 1, 1}), 1);
  EXPECT_EQ(dayOfYear({2024, 12, 31}), 366);
}

}  // namespace
}  // namespace paperway
