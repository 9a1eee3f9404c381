#include "util/text_tools.h"

#include "paperway/automation_error.h"
#include "util/code_page.h"
#include "util/text.h"
#include "util/value_text.h"

namespace paperway {
namespace {

constexpr std::size_t kLongestText = 32767;

bool isDigit(int code) {
  return code >= '0' && code <= '9';
}

void appendUnit(std::string& out, char32_t unit) {
  out += "&#";
  out += std::to_string(static_cast<std::int16_t>(unit));
  out += ';';
}

std::string codesOf(std::string_view text, const char* member, const char* argument) {
  std::string codes = CodePage::windows1252().encode(text);
  if (codes.size() <= kLongestText) return codes;
  throw AutomationError(AutomationError::kOverflow, member,
                        std::string(argument) + " has " + std::to_string(codes.size()) +
                            " characters; 32767 are the most.");
}

std::string shift(std::string_view text, std::string_view password, int sign, const char* member) {
  if (password.empty()) return std::string(text);
  std::string codes = codesOf(text, member, "strText");
  const std::string keys = codesOf(password, member, "strPwd");
  for (std::size_t i = 0; i < codes.size(); ++i) {
    codes[i] = static_cast<char>(codes[i] + sign * keys[(i + 1) % keys.size()]);
  }
  return CodePage::windows1252().decode(codes);
}

}  // namespace

std::int16_t OnlyNum(std::int16_t KEY) {
  return isDigit(KEY) || KEY == 8 || KEY == 13 ? KEY : std::int16_t{1};
}

std::string ReverseName(std::string_view str) {
  std::string reversed(str.size(), '\0');
  std::size_t room = str.size();
  for (std::size_t start = 0, end = 0; start < str.size(); start = end) {
    nextCharacter(str, end);
    room -= end - start;
    reversed.replace(room, end - start, str.substr(start, end - start));
  }
  return reversed;
}

std::string Allow_Only_azAZ_01(std::string_view STr1) {
  std::string kept;
  for (const char c : STr1) {
    const bool letter = (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
    if (letter || isDigit(c) || c == ' ' || c == '|') kept += c;
  }
  return kept;
}

std::string UniToHex(ValueView strSource) {
  const std::string text = defaultText(strSource);
  std::string out;
  for (std::size_t offset = 0; offset < text.size();) {
    const char32_t character = nextCharacter(text, offset);
    if (character < 0x10000) {
      appendUnit(out, character);
    } else {
      appendUnit(out, 0xD800 + ((character - 0x10000) >> 10));
      appendUnit(out, 0xDC00 + ((character - 0x10000) & 0x3FF));
    }
  }
  return out;
}

std::string ParseFileName(std::string_view PstrFileIn, std::uint8_t NoExtention) {
  std::string_view name = PstrFileIn.substr(PstrFileIn.rfind('\\') + 1);
  if (NoExtention == 1) name = name.substr(0, name.find('.'));
  return std::string(name);
}

std::string EncryptText(std::string_view strText, std::string_view strPwd) {
  return shift(strText, strPwd, 1, "EncryptText");
}

std::string DecryptText(std::string_view strText, std::string_view strPwd) {
  return shift(strText, strPwd, -1, "DecryptText");
}

}  // namespace paperway
