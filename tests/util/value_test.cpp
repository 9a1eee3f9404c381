#include "util/value.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>

#include "support/table.h"

namespace paperway {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr std::int64_t kLowest = std::numeric_limits<std::int64_t>::min();

TEST(DefaultText, OfEachKind) {
  using Row = std::pair<ValueView, const char*>;
  const auto cases =
      table(Row{ValueView(), ""}, Row{"as it is ", "as it is "}, Row{0, "0"},
            Row{kLowest, "-9223372036854775808"}, Row{-0.0, "0"}, Row{-0.05, "-0.05"},
            Row{1234.50, "1234.5"}, Row{0.1 + 0.2, "0.3"}, Row{2.0 / 3, "0.666666666666667"},
            Row{0.0001, "0.0001"}, Row{0.00001, "1E-05"}, Row{-0.0000123456, "-1.23456E-05"},
            Row{999999999999999.0, "999999999999999"}, Row{999999999999999.9, "1E+15"},
            Row{123456789012345678.0, "1.23456789012346E+17"}, Row{1.5e-300, "1.5E-300"},
            Row{kInfinity, "1.#INF"}, Row{Date{2026, 3, 5}, "3/5/2026"},
            Row{Date{2026, 12, 25, 0, 5, 9}, "12/25/2026 12:05:09 AM"},
            Row{Date{2026, 12, 25, 13, 0, 0}, "12/25/2026 1:00:00 PM"});
  for (const auto& [value, text] : cases) EXPECT_EQ(defaultText(value), text);
}

TEST(NumberText, HasALeadingBlankAndNoZeroBeforeThePoint) {
  using Row = std::pair<double, const char*>;
  const auto cases =
      table(Row{0, " 0"}, Row{12, " 12"}, Row{-12, "-12"}, Row{.5, " .5"}, Row{-.5, "-.5"},
            Row{10.5, " 10.5"}, Row{1e15, " 1E+15"}, Row{0.00001, " 1E-05"});
  for (const auto& [number, text] : cases) EXPECT_EQ(numberText(number), text);
}

TEST(LeadingNumber, ReadsAsFarAsItGoes) {
  using Row = std::pair<const char*, double>;
  const auto cases = table(
      Row{"", 0}, Row{"  ", 0}, Row{"12", 12}, Row{"  12", 12}, Row{"\t12", 0}, Row{"-1.5x", -1.5},
      Row{"+7", 7}, Row{"--7", 0}, Row{"- 7", 0}, Row{"1 2", 1}, Row{"1,234.50", 1}, Row{".5", .5},
      Row{"-.5.5", -.5}, Row{"5.", 5}, Row{".", 0}, Row{"1E3", 1}, Row{"1.2.3", 1.2}, Row{"abc", 0},
      Row{"&H10", 0}, Row{"00012", 12}, Row{"0.1", 0.1}, Row{"2.345 kg", 2.345}, Row{"3/5/2026", 3},
      Row{"1234567890.12345", 1234567890.12345}, Row{"0.000000000000000000001", 1e-21},
      Row{"12345678901234567890123", 12345678901234567890123.0});
  for (const auto& [text, number] : cases) EXPECT_EQ(leadingNumber(text), number) << text;
  EXPECT_EQ(leadingNumber("-" + std::string(400, '9')), -kInfinity);
  EXPECT_EQ(leadingNumber("0." + std::string(400, '0') + "1"), 0);
}

TEST(ColumnNumber, OfEachKind) {
  using Row = std::pair<ValueView, double>;
  const auto cases = table(Row{ValueView(), 0}, Row{"1,234", 1},
                           Row{std::int64_t{1234567890123456789}, 1234567890123460000.0},
                           Row{kLowest, -9.22337203685478e18}, Row{0.1 + 0.2, 0.3},
                           Row{1.5e-7, 1.5e-7}, Row{1234.56, 1234.56},
                           Row{99999999999999.95, 100000000000000.0}, Row{Date{2026, 11, 5}, 11});
  for (const auto& [value, number] : cases) {
    EXPECT_EQ(columnNumber(value), number) << defaultText(value);
  }
}

TEST(ParseNumber, TakesTheWholeTextOrNothing) {
  using Row = std::pair<const char*, std::optional<double>>;
  const auto cases =
      table(Row{"12", 12}, Row{" -1.5 ", -1.5}, Row{"1E3", 1000}, Row{"+.5", .5}, Row{"5.", 5},
            Row{"1e-2", .01}, Row{"", std::nullopt}, Row{"  ", std::nullopt},
            Row{"-", std::nullopt}, Row{".", std::nullopt}, Row{"1,234", std::nullopt},
            Row{"12x", std::nullopt}, Row{"1 2", std::nullopt}, Row{"inf", std::nullopt},
            Row{"nan", std::nullopt}, Row{"0x10", std::nullopt}, Row{"--1", std::nullopt},
            Row{"1E", std::nullopt}, Row{"1E999", std::nullopt});
  for (const auto& [text, number] : cases) EXPECT_EQ(parseNumber(text), number) << text;
}

TEST(Decimal, RoundsHalfAwayFromZeroAtFifteenDigits) {
  using Row = std::tuple<double, const char*, int>;
  const auto cases =
      table(Row{1.005, "1005", 1}, Row{-0.00125, "125", -2},
            Row{0.1234567890123455, "123456789012346", 0}, Row{9999999999999995.0, "1", 17},
            Row{9999999999999994.0, "999999999999999", 16}, Row{kInfinity, "", 0});
  for (const auto& [number, digits, exponent] : cases) {
    const Decimal decimal = Decimal::fromDouble(number);
    EXPECT_EQ(std::string(decimal.digits, static_cast<std::size_t>(decimal.count)), digits);
    EXPECT_EQ(decimal.exponent, exponent) << number;
    EXPECT_EQ(decimal.negative, number < 0);
  }
}

/// The short roads for amounts agree with the long one.
TEST(Decimal, AgreesWithTheTextOfAmounts) {
  std::mt19937_64 random(1);
  for (int i = 0; i < 20000; ++i) {
    const auto amount = static_cast<double>(static_cast<std::int64_t>(random()) >> (i % 50)) / 100;
    const double rounded = Decimal::fromDouble(amount).toDouble();
    ASSERT_EQ(columnNumber(amount), rounded) << i;
    ASSERT_EQ(parseNumber(defaultText(amount)), rounded) << defaultText(amount);
  }
}

}  // namespace
}  // namespace paperway
