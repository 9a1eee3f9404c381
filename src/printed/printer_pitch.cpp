#include "printed/printer_pitch.h"

#include <algorithm>

namespace paperway {
namespace {

constexpr char kEscape = '\x1B';
constexpr std::string_view kOneParameter = "-WxktpSCAJj3NlQaUrsRwImi !/%\x19";

constexpr bool isControl(char byte) {
  return static_cast<unsigned char>(byte) < ' ' || byte == '\x7F';
}

constexpr bool isOn(char parameter) {
  return parameter == 1 || parameter == '1';
}

}  // namespace

std::size_t PrinterPitch::command(std::string_view bytes) {
  if (bytes.empty() || !isControl(bytes[0])) return 0;
  switch (bytes[0]) {
    case kEscape:
      return escape(bytes);
    case '\x0E':
      wideLine_ = true;
      break;
    case '\x0F':
      condensed_ = true;
      break;
    case '\x12':
      condensed_ = false;
      break;
    case '\x14':
    case '\r':
    case '\n':
    case '\f':
    case '\v':
      wideLine_ = false;
      break;
    default:
      break;
  }
  return 1;
}

std::size_t PrinterPitch::escape(std::string_view bytes) {
  const char code = bytes.size() > 1 ? bytes[1] : '\0';
  const bool takesOne = code != '\0' && kOneParameter.find(code) != std::string_view::npos;
  const char parameter = takesOne && bytes.size() > 2 ? bytes[2] : '\0';
  std::size_t length = takesOne ? 3 : 2;
  switch (code) {
    case 'P':
      base_ = 10;
      break;
    case 'M':
      base_ = 12;
      break;
    case 'g':
      base_ = 15;
      break;
    case 'W':
      wide_ = isOn(parameter);
      break;
    case '!':
      selectAll(static_cast<unsigned char>(parameter));
      break;
    case '@':
      *this = PrinterPitch();
      break;
    case 'C':
      if (parameter == '\0') ++length;  // a page length in inches
      break;
    default:
      break;
  }
  return std::min(length, bytes.size());
}

void PrinterPitch::selectAll(unsigned mask) {
  base_ = (mask & 1) != 0 ? 12 : 10;
  condensed_ = (mask & 4) != 0;
  wide_ = (mask & 32) != 0;
}

double PrinterPitch::singleCpi() const {
  if (!condensed_ || base_ == 15) return base_;
  return base_ == 12 ? 20 : 120.0 / 7;
}

}  // namespace paperway
