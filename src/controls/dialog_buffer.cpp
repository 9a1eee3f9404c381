#include "controls/dialog_buffer.h"

#include <algorithm>

#include "util/text.h"

namespace paperway {
namespace {

// A byte that is no UTF-8 stands as a code that no character has.
constexpr char32_t kStrayByte = 0xDC00;

}  // namespace

std::u32string DialogBuffer::charactersOf(std::string_view text) {
  std::u32string characters;
  for (std::size_t offset = 0; offset < text.size();) {
    const std::size_t begin = offset;
    const char32_t character = nextCharacter(text, offset);
    const bool stray = character == U'\xFFFD' && offset == begin + 1;
    characters += stray ? kStrayByte | static_cast<unsigned char>(text[begin]) : character;
  }
  return characters;
}

void DialogBuffer::setSize(std::int32_t size) {
  size_ = std::max(size, 0);
  if (size_ == 0) return;
  length_ = static_cast<std::size_t>(size_);
  written_.clear();
}

void DialogBuffer::allocate() {
  if (size_ == 0) setSize(usual_);
}

void DialogBuffer::setText(std::string_view text) {
  const std::u32string characters = charactersOf(text);
  if (size_ == 0) {
    setSize(usual_);
  } else if (characters.size() > length_) {
    setSize(static_cast<std::int32_t>(characters.size()));
  }
  put(characters.size() == length_ ? characters : characters + U'\0');
}

void DialogBuffer::put(std::u32string_view characters) {
  characters = characters.substr(0, length_);
  if (written_.size() < characters.size()) written_.resize(characters.size());
  std::copy(characters.begin(), characters.end(), written_.begin());
}

std::optional<std::size_t> DialogBuffer::end(std::size_t place) const {
  const std::size_t found = written_.find(U'\0', place);
  if (found != std::u32string::npos) return found;
  const std::size_t behind = std::max(place, written_.size());
  if (behind < length_) return behind;
  return std::nullopt;
}

std::string DialogBuffer::text(std::size_t begin, std::size_t end) const {
  std::string text;
  for (std::size_t i = begin; i < std::min(end, length_); ++i) {
    const char32_t character = i < written_.size() ? written_[i] : U'\0';
    if (character >= kStrayByte + 0x80 && character <= kStrayByte + 0xFF) {
      text += static_cast<char>(character & 0xFF);
    } else {
      appendCharacter(text, character);
    }
  }
  return text;
}

std::string DialogBuffer::textFrom(std::size_t begin) const {
  return text(begin, end(begin).value_or(length_));
}

}  // namespace paperway
