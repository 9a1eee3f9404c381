#include "report/layout.h"

#include "paperway/automation_error.h"

namespace paperway {
namespace {

[[noreturn]] void refuse(const char* member, const std::string& reason) {
  throw AutomationError(AutomationError::kInvalidCall, member, reason);
}

std::size_t width(const char* member, std::int16_t sp1) {
  if (sp1 < 0)
    refuse(member, "sp1 is a width and cannot be negative: " + std::to_string(sp1) + ".");
  return static_cast<std::size_t>(sp1);
}

std::string blanks(std::size_t count) {
  return std::string(count, ' ');
}

}  // namespace

std::string TxtL(std::string_view DispField, std::int16_t sp1) {
  const std::size_t wanted = width("TxtL", sp1);
  std::string cell(leftCharacters(trimBlanks(DispField), wanted));
  return cell + blanks(wanted - characterCount(cell));
}

std::string TxtR(std::string_view DispField, std::int16_t sp1) {
  const std::size_t wanted = width("TxtR", sp1);
  const std::string_view cell = rightCharacters(trimBlanks(DispField), wanted);
  return blanks(wanted - characterCount(cell)) + std::string(cell);
}

std::string StrCenter(std::string_view strTxt, std::uint8_t maxlen) {
  const std::string_view text = trimBlanks(strTxt);
  const std::size_t length = characterCount(text);
  if (length > maxlen) {
    refuse("StrCenter", "strTxt has " + std::to_string(length) + " characters, more than maxlen " +
                            std::to_string(maxlen) + ".");
  }
  const std::size_t free = maxlen - length;
  std::size_t half = free / 2;
  if (free % 2 == 1 && half % 2 == 1) ++half;
  return blanks(half) + std::string(text);
}

std::string Print_line(std::int16_t Start_pos, std::string_view Print_str,
                       std::string_view Data_str) {
  const std::size_t length = characterCount(Print_str);
  if (Start_pos < 0 || static_cast<std::size_t>(Start_pos) < length) {
    refuse("Print_line", "Start_pos " + std::to_string(Start_pos) +
                             " lies before the end of Print_str, which has " +
                             std::to_string(length) + " characters.");
  }
  std::string line(Print_str);
  line += blanks(static_cast<std::size_t>(Start_pos) - length);
  return line += Data_str;
}

}  // namespace paperway
