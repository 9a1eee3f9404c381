#include "printed/control_codes.h"

#include <algorithm>

namespace paperway {
namespace {

using std::string_view_literals::operator""sv;

constexpr std::size_t kMostStops = 32;  // of a tab list

constexpr std::string_view kOneParameter = "-WxktpSAJj3NlQaUrsRwImiqV+ !/%\x19"sv;
constexpr std::string_view kTwoParameters = "$\\cef?"sv;

/// A code as far as it has come.
class Code {
 public:
  explicit Code(std::string_view bytes) : bytes_(bytes) {}

  std::size_t length() const {
    const char letter = at(1);
    if (bytes_.size() < 2) return 2;
    if (kOneParameter.find(letter) != std::string_view::npos) return 3;
    if (kTwoParameters.find(letter) != std::string_view::npos) return 4;
    return lengthByLetter(letter);
  }

 private:
  std::size_t lengthByLetter(char letter) const {
    switch (letter) {
      case 'C':  // a page length in lines, or NUL and inches
        return bytes_.size() > 2 && at(2) == '\0' ? 4 : 3;
      case 'X':
      case ':':
        return 5;
      case 'B':
      case 'D':
        return list(2);
      case 'b':
        return list(3);
      case '*':
        return withData(3, columnBytes(number(2)));
      case '^':
        return withData(3, 2);
      case 'K':
      case 'L':
      case 'Y':
      case 'Z':
        return withData(2, 1);
      case '(':
        return withData(3, 1);
      default:
        return 2;
    }
  }

  char at(std::size_t offset) const { return offset < bytes_.size() ? bytes_[offset] : '\0'; }
  std::size_t number(std::size_t offset) const { return static_cast<unsigned char>(at(offset)); }

  /// Of a bit image in this mode.
  static std::size_t columnBytes(std::size_t mode) { return mode < 32 ? 1 : mode < 64 ? 3 : 6; }

  /// A count of two bytes, and so many pieces of data behind it.
  std::size_t withData(std::size_t count, std::size_t each) const {
    const std::size_t head = count + 2;
    if (bytes_.size() < head) return head;
    return head + (number(count) + 256 * number(count + 1)) * each;
  }

  /// Tab stops end at a NUL, or where one is not behind the last.
  std::size_t list(std::size_t first) const {
    std::size_t end = first;
    for (; end < bytes_.size() && end < first + kMostStops; ++end) {
      if (number(end) == 0 || (end > first && number(end) <= number(end - 1))) break;
    }
    return end + 1;
  }

  std::string_view bytes_;
};

}  // namespace

std::size_t codeLength(std::string_view bytes) {
  return bytes.empty() || bytes[0] != kEscape ? 1 : Code(bytes).length();
}

}  // namespace paperway
