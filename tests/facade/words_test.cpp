#include <cmath>
#include <limits>

#include "facade/class1_fixture.h"

namespace paperway {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

using Words = Class1Test;

TEST_F(Words, OfAmounts) {
  const std::pair<double, const char*> cases[] = {
      {0, "zero "},
      {0.75, "zero "},
      {-5, "zero "},
      {1, "One Only"},
      {19, "Nineteen Only"},
      {20, "Twenty- Only"},
      {21, "Twenty-One Only"},
      {100, "One Hundred  Only"},
      {105, "One Hundred Five Only"},
      {1000, "One Thousand  Only"},
      {1000.05, "One Thousand  and Five Paisa Only"},
      {12.50, "Twelve and Fifty- Paisa Only"},
      {12.125, "Twelve and Twelve Paisa Only"},
      {12.375, "Twelve and Thirty-Eight Paisa Only"},
      {12.004, "Twelve Only"},
      {12.999, "Thirteen Only"},
      {std::nextafter(13, 0), "Thirteen Only"},
      {100000, "One Lack  Only"},
      {1234567.89,
       "Twelve Lack Thirty-Four Thousand Five Hundred Sixty-Seven and Eighty-Nine Paisa Only"},
      {1e7, "One Crore  Only"},
      {10012345, "One Crore Twelve Thousand Three Hundred Forty-Five Only"},
      {737373773.73,
       "Seventy-Three Crore Seventy-Three Lack Seventy-Three Thousand Seven Hundred Seventy-Three "
       "and Seventy-Three Paisa Only"},
      {999999999,
       "Ninety-Nine Crore Ninety-Nine Lack Ninety-Nine Thousand Nine Hundred Ninety-Nine Only"},
      {999999999.999, "# Error # Only"},
      {1e9, "# Error # Only"},
      {1000000000.25, "# Error # and Twenty-Five Paisa Only"},
      {1e17 + 16, "# Error # Only"},
      {1e308, "# Error # Only"}};
  for (const auto& [amount, words] : cases) EXPECT_EQ(class1_.NumToText(amount), words) << amount;
  EXPECT_EQ(errorOf([&] { class1_.NumToText(NAN); }), "Num is not a finite number.");
  EXPECT_EQ(errorOf([&] { class1_.NumToText(-kInfinity); }), "Num is not a finite number.");
}

TEST_F(Words, OfMonths) {
  EXPECT_EQ(class1_.MonName(2), "Febuary");
  EXPECT_EQ(class1_.MonName(12), "December");
  EXPECT_EQ(errorOf([&] { class1_.MonName(0); }), "Mon is 0; months are 1 to 12.");
  EXPECT_EQ(errorOf([&] { class1_.MonName(13); }), "Mon is 13; months are 1 to 12.");
}

TEST_F(Words, DesiIsThePartBehindThePoint) {
  EXPECT_EQ(class1_.Desi(2.1), 0.1F);
  EXPECT_EQ(class1_.Desi(-2.25), 0.75F);
  EXPECT_EQ(errorOf([&] { class1_.Desi(kInfinity); }), "Kk is not a finite number.");
}

TEST_F(Words, RoundCurrRoundsHalvesUpAndZeroToNothing) {
  const std::pair<ValueView, Value> cases[] = {
      {0, {}},       {"no number", {}}, {"", {}},         {"-0.00", {}},   {2.344, 2.34},
      {2.346, 2.35}, {-2.346, -2.35},   {0.125, 0.13},    {-0.125, -0.12}, {" 12.5 kg", 12.5},
      {0.001, 0.0},  {-7, -7.0},        {0.1 + 0.2, 0.3}, {"1.005x", 1.0}};
  for (const auto& [value, rounded] : cases) {
    EXPECT_EQ(class1_.round_curr(value), rounded) << defaultText(value);
  }
  EXPECT_EQ(errorOf([&] { class1_.round_curr({}); }), "currValue is null.");
  EXPECT_EQ(errorOf([&] { class1_.round_curr(std::string(400, '9')); }),
            "currValue is not a finite number.");
}

}  // namespace
}  // namespace paperway
