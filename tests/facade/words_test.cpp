#include <cmath>
#include <limits>

#include "support/class1_test.h"
#include "support/expect_each.h"

namespace paperway {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

using Words = Class1Test;

TEST_F(Words, OfAmounts) {
  expectEach(
      [&](double amount) { return class1_.NumToText(amount); },
      Row{0, "zero "},
      Row{0.75, "zero "},
      Row{-5, "zero "},
      Row{1, "One Only"},
      Row{19, "Nineteen Only"},
      Row{20, "Twenty- Only"},
      Row{21, "Twenty-One Only"},
      Row{100, "One Hundred  Only"},
      Row{105, "One Hundred Five Only"},
      Row{1000, "One Thousand  Only"},
      Row{1000.05, "One Thousand  and Five Paisa Only"},
      Row{12.50, "Twelve and Fifty- Paisa Only"},
      Row{12.125, "Twelve and Twelve Paisa Only"},
      Row{12.375, "Twelve and Thirty-Eight Paisa Only"},
      Row{12.004, "Twelve Only"},
      Row{12.999, "Thirteen Only"},
      Row{std::nextafter(13, 0), "Thirteen Only"},
      Row{100000, "One Lack  Only"},
      Row{1e7, "One Crore  Only"},
      Row{10012345, "One Crore Twelve Thousand Three Hundred Forty-Five Only"},
      Row{737373773.73,
          "Seventy-Three Crore Seventy-Three Lack Seventy-Three Thousand Seven Hundred Seventy-"
          "Three and Seventy-Three Paisa Only"},
      Row{999999999,
          "Ninety-Nine Crore Ninety-Nine Lack Ninety-Nine Thousand Nine Hundred Ninety-Nine Only"},
      Row{999999999.999, "# Error # Only"},
      Row{1e9, "# Error # Only"},
      Row{1000000000.25, "# Error # and Twenty-Five Paisa Only"},
      Row{1e17 + 16, "# Error # Only"},
      Row{1e308, "# Error # Only"});
  EXPECT_EQ(errorOf([&] { class1_.NumToText(NAN); }), "Num is not a finite number.");
  EXPECT_EQ(errorOf([&] { class1_.NumToText(-kInfinity); }), "Num is not a finite number.");
}

TEST_F(Words, OfMonths) {
  EXPECT_EQ(class1_.MonName(2) + class1_.MonName(12), "FebuaryDecember");
  EXPECT_EQ(errorOf([&] { class1_.MonName(0); }), "Mon is 0; months are 1 to 12.");
  EXPECT_EQ(errorOf([&] { class1_.MonName(13); }), "Mon is 13; months are 1 to 12.");
}

TEST_F(Words, DesiIsThePartBehindThePoint) {
  EXPECT_EQ(class1_.Desi(2.1), 0.1F);
  EXPECT_EQ(class1_.Desi(-2.25), 0.75F);
  EXPECT_EQ(errorOf([&] { class1_.Desi(kInfinity); }), "Kk is not a finite number.");
}

TEST_F(Words, RoundCurrRoundsHalvesUpAndZeroToNothing) {
  expectEach([&](const ValueView& value) { return class1_.round_curr(value); },
             Row{0, Value()},
             Row{"no number", Value()},
             Row{"", Value()},
             Row{"-0.00", Value()},
             Row{2.344, 2.34},
             Row{2.346, 2.35},
             Row{-2.346, -2.35},
             Row{0.125, 0.13},
             Row{-0.125, -0.12},
             Row{" 12.5 kg", 12.5},
             Row{0.001, 0.0},
             Row{-7, -7.0},
             Row{0.1 + 0.2, 0.3},
             Row{"1.005x", 1.0},
             Row{5e15, 5e15});
  EXPECT_EQ(errorOf([&] { class1_.round_curr({}); }), "currValue is null.");
  EXPECT_EQ(errorOf([&] { class1_.round_curr(std::string(400, '9')); }),
            "currValue is not a finite number.");
}

}  // namespace
}  // namespace paperway
