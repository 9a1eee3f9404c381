#include "apps/paperway/visible.h"

#include <algorithm>
#include <array>

namespace paperway::command {
namespace {

constexpr unsigned char kFirstOfC1 = 0xC2;  // the UTF-8 of U+0080 to U+009F begins with it
constexpr std::string_view kUnknown = "\xEF\xBF\xBD";
constexpr std::size_t kLongest = 4;

/// Writes what stands for a byte, at most kLongest bytes; behind them. `held`: a kFirstOfC1 came.
char* show(char* out, unsigned char byte, std::string_view kept, bool& held) {
  const auto put = [&out](std::string_view text) {
    out = std::copy(text.begin(), text.end(), out);
  };
  if (held && byte >= 0x80 && byte < 0xA0) {
    put(kUnknown);
    held = false;
    return out;
  }
  if (held) *out++ = static_cast<char>(kFirstOfC1);
  held = byte == kFirstOfC1;
  const char character = static_cast<char>(byte);
  if (byte == 0x7F) {
    put("\xE2\x90\xA1");  // U+2421
  } else if (byte < 0x20 && kept.find(character) == std::string_view::npos) {
    put("\xE2\x90");  // U+2400 and up
    *out++ = static_cast<char>(0x80 + byte);
  } else if (!held) {
    *out++ = character;
  }
  return out;
}

}  // namespace

std::string visible(std::string_view text) {
  std::string result;
  bool held = false;
  for (const char byte : text) {
    std::array<char, kLongest> shown;
    char* const end = show(shown.data(), static_cast<unsigned char>(byte), "", held);
    result.append(shown.data(), end);
  }
  return result;
}

/// Takes no memory: it tells also that there is none.
std::streamsize VisibleControls::xsputn(const char* text, std::streamsize size) {
  std::array<char, 512> shown;
  char* end = shown.data();
  const auto flush = [&] {
    const std::streamsize length = end - shown.data();
    end = shown.data();
    return before_->sputn(shown.data(), length) == length;
  };
  for (std::streamsize i = 0; i < size; ++i) {
    end = show(end, static_cast<unsigned char>(text[i]), "\n\t", held_);
    if (end > shown.data() + shown.size() - kLongest && !flush()) return 0;
  }
  return flush() ? size : 0;
}

VisibleControls::int_type VisibleControls::overflow(int_type character) {
  if (traits_type::eq_int_type(character, traits_type::eof())) return 0;
  const char byte = traits_type::to_char_type(character);
  return xsputn(&byte, 1) == 1 ? character : traits_type::eof();
}

}  // namespace paperway::command
