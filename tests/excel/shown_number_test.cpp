#include "excel/shown_number.h"

#include "support/expect_each.h"
#include "util/format_pattern.h"

namespace paperway {
namespace {

using Number = std::optional<double>;

TEST(ShownNumber, ReadsWhatPatternsShow) {
  expectEach(shownNumber,
             Row{"1,234.50", Number(1234.5)},
             Row{" -12 ", Number(-12)},
             Row{"12-", Number(-12)},
             Row{"(3.5)", Number(-3.5)},
             Row{"(7%)", Number(-0.07)},
             Row{"-50 %", Number(-0.5)},
             Row{"1.5E+03", Number(1500)},
             Row{"2e-2", Number(0.02)},
             Row{".5", Number(0.5)},
             Row{"5.", Number(5)},
             Row{"0.1234567890123456789", Number(0.1234567890123456789)},
             Row{"99999999999999999999", Number(1e20)},
             Row{"", Number()},
             Row{".", Number()},
             Row{"--1", Number()},
             Row{"(-1)", Number()},
             Row{"1 2", Number()},
             Row{"1.2,3", Number()},
             Row{"12 kg", Number()});
}

TEST(ShownNumber, LeavesOutThePatternsWords) {
  const auto back = [](const char* pattern, double number) {
    return ShownNumberReader(pattern)(FormatPattern(pattern)(number));
  };
  expectEach(back,
             Row{"Rs. #,##0.00", -1234.5, Number(-1234.5)},
             Row{"0 \"kg\"", 12.0, Number(12)},
             Row{"$#,##0.00;($#,##0.00)", -5.5, Number(-5.5)},
             Row{"0.00 Dr;0.00 Cr", -2.0, Number(2)},  // no sign is shown
             Row{"0.00 \"Dr\";-0.00 \"Cr\"", -2.0, Number(-2)},
             Row{"0\"%\"", 12.0, Number(12)},
             Row{"0%", 0.12, Number(0.12)},
             Row{"Fixed", 0.125, Number(0.13)},
             Row{"00-00", 1234.0, Number()});
}

}  // namespace
}  // namespace paperway
