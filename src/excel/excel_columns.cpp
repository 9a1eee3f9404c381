#include "excel/excel_columns.h"

#include "paperway/automation_error.h"

namespace paperway {

namespace {

constexpr std::int32_t kLetters = 26;
constexpr std::int32_t kLastColumn = 260;
constexpr std::int32_t kBeforeA = 'A' - 1;

}  // namespace

std::string GetExcelCol(std::int32_t col) {
  if (col < -kBeforeA) {
    throw AutomationError(AutomationError::kInvalidCall, "GetExcelCol",
                          "There is no column " + std::to_string(col) + ".");
  }
  if (col > kLastColumn) return "";
  if (col <= kLetters) return {static_cast<char>(kBeforeA + col)};
  const std::int32_t place = col - kLetters - 1;
  return {static_cast<char>('A' + place / kLetters), static_cast<char>('A' + place % kLetters)};
}

}  // namespace paperway
