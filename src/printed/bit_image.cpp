#include "printed/bit_image.h"

#include "printed/control_codes.h"

namespace paperway {
namespace {

constexpr std::size_t kHead = 4;  // ESC, a letter and two bytes of a count
constexpr double kNinePins = 72;  // rows to the inch
constexpr double kMorePins = 180;

/// Columns to the inch of a mode of ESC *.
double densityOf(unsigned char mode) {
  switch (mode) {
    case 1:
    case 2:
    case 33:
      return 120;
    case 3:
      return 240;
    case 4:
      return 80;
    case 5:
      return 72;
    case 6:
    case 38:
      return 90;
    case 7:
      return 144;
    case 39:
    case 71:
      return 180;
    case 40:
    case 72:
    case 73:
      return 360;
    default:
      return 60;
  }
}

BitImage imageOfMode(unsigned char mode, std::string_view columns) {
  if (mode < 32) return {densityOf(mode), kNinePins, 1, columns};
  if (mode < 64) return {densityOf(mode), kMorePins, 3, columns};
  return {densityOf(mode), 2 * kMorePins, 6, columns};
}

}  // namespace

bool BitImage::hasDot(std::size_t column, std::size_t row) const {
  const auto byte = static_cast<unsigned char>(columns[column * columnBytes + row / 8]);
  const std::size_t bit = ninePins && row == 8 ? 0 : 7 - row % 8;
  return (byte >> bit & 1U) != 0;
}

std::optional<BitImage> bitImageOf(std::string_view code) {
  if (code.size() <= kHead || code[0] != kEscape) return {};
  const std::string_view columns = code.substr(kHead);
  switch (code[1]) {
    case 'K':
      return imageOfMode(0, columns);
    case 'L':
    case 'Y':
      return imageOfMode(1, columns);
    case 'Z':
      return imageOfMode(3, columns);
    case '*':
      return imageOfMode(static_cast<unsigned char>(code[2]), columns.substr(1));
    case '^':
      return BitImage{code[2] == 1 ? 120.0 : 60.0, kNinePins, 2, columns.substr(1), true};
    default:
      return {};
  }
}

}  // namespace paperway
