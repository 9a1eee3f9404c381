#include "util/value.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>

namespace paperway {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr std::int64_t kLowest = std::numeric_limits<std::int64_t>::min();

TEST(DefaultText, OfEachKind) {
  const struct {
    ValueView value;
    const char* text;
  } cases[] = {{ValueView(), ""},
               {"as it is ", "as it is "},
               {0, "0"},
               {kLowest, "-9223372036854775808"},
               {-0.0, "0"},
               {-0.05, "-0.05"},
               {1234.50, "1234.5"},
               {0.1 + 0.2, "0.3"},
               {2.0 / 3, "0.666666666666667"},
               {0.0001, "0.0001"},
               {0.00001, "1E-05"},
               {-0.0000123456, "-1.23456E-05"},
               {999999999999999.0, "999999999999999"},
               {999999999999999.9, "1E+15"},
               {123456789012345678.0, "1.23456789012346E+17"},
               {1.5e-300, "1.5E-300"},
               {kInfinity, "1.#INF"},
               {Date{2026, 3, 5}, "3/5/2026"},
               {Date{2026, 12, 25, 0, 5, 9}, "12/25/2026 12:05:09 AM"},
               {Date{2026, 12, 25, 13, 0, 0}, "12/25/2026 1:00:00 PM"}};
  for (const auto& each : cases) EXPECT_EQ(defaultText(each.value), each.text);
}

TEST(NumberText, HasALeadingBlankAndNoZeroBeforeThePoint) {
  const struct {
    double number;
    const char* text;
  } cases[] = {{0, " 0"},    {12, " 12"},     {-12, "-12"},     {.5, " .5"},
               {-.5, "-.5"}, {10.5, " 10.5"}, {1e15, " 1E+15"}, {0.00001, " 1E-05"}};
  for (const auto& each : cases) EXPECT_EQ(numberText(each.number), each.text);
}

TEST(LeadingNumber, ReadsAsFarAsItGoes) {
  const struct {
    const char* text;
    double number;
  } cases[] = {{"", 0},
               {"  ", 0},
               {"12", 12},
               {"  12", 12},
               {"\t12", 0},
               {"-1.5x", -1.5},
               {"+7", 7},
               {"--7", 0},
               {"- 7", 0},
               {"1 2", 1},
               {"1,234.50", 1},
               {".5", .5},
               {"-.5.5", -.5},
               {"5.", 5},
               {".", 0},
               {"1E3", 1},
               {"1.2.3", 1.2},
               {"abc", 0},
               {"&H10", 0},
               {"00012", 12},
               {"0.1", 0.1},
               {"2.345 kg", 2.345},
               {"3/5/2026", 3},
               {"1234567890.12345", 1234567890.12345},
               {"0.000000000000000000001", 1e-21},
               {"12345678901234567890123", 12345678901234567890123.0}};
  for (const auto& each : cases) EXPECT_EQ(leadingNumber(each.text), each.number) << each.text;
  EXPECT_EQ(leadingNumber("-" + std::string(400, '9')), -kInfinity);
  EXPECT_EQ(leadingNumber("0." + std::string(400, '0') + "1"), 0);
}

TEST(ColumnNumber, OfEachKind) {
  const struct {
    ValueView value;
    double number;
  } cases[] = {{ValueView(), 0},
               {"1,234", 1},
               {std::int64_t{1234567890123456789}, 1234567890123460000.0},
               {kLowest, -9.22337203685478e18},
               {0.1 + 0.2, 0.3},
               {1.5e-7, 1.5e-7},
               {1234.56, 1234.56},
               {99999999999999.95, 100000000000000.0},
               {Date{2026, 11, 5}, 11}};
  for (const auto& each : cases) {
    EXPECT_EQ(columnNumber(each.value), each.number) << defaultText(each.value);
  }
}

TEST(ParseNumber, TakesTheWholeTextOrNothing) {
  const struct {
    const char* text;
    std::optional<double> number;
  } cases[] = {{"12", 12},
               {" -1.5 ", -1.5},
               {"1E3", 1000},
               {"+.5", .5},
               {"5.", 5},
               {"1e-2", .01},
               {"", std::nullopt},
               {"  ", std::nullopt},
               {"-", std::nullopt},
               {".", std::nullopt},
               {"1,234", std::nullopt},
               {"12x", std::nullopt},
               {"1 2", std::nullopt},
               {"inf", std::nullopt},
               {"nan", std::nullopt},
               {"0x10", std::nullopt},
               {"--1", std::nullopt},
               {"1E", std::nullopt},
               {"1E999", std::nullopt}};
  for (const auto& each : cases) EXPECT_EQ(parseNumber(each.text), each.number) << each.text;
}

TEST(Decimal, RoundsHalfAwayFromZeroAtFifteenDigits) {
  const struct {
    double number;
    const char* digits;
    int exponent;
  } cases[] = {{1.005, "1005", 1},
               {-0.00125, "125", -2},
               {0.1234567890123455, "123456789012346", 0},
               {9999999999999995.0, "1", 17},
               {9999999999999994.0, "999999999999999", 16},
               {kInfinity, "", 0}};
  for (const auto& each : cases) {
    const Decimal decimal = Decimal::fromDouble(each.number);
    EXPECT_EQ(std::string(decimal.digits, static_cast<std::size_t>(decimal.count)), each.digits);
    EXPECT_EQ(decimal.exponent, each.exponent) << each.number;
    EXPECT_EQ(decimal.negative, each.number < 0);
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
