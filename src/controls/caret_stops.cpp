#include "controls/caret_stops.h"

#include <algorithm>

namespace paperway {

CharacterClass classOf(char byte) {
  const auto c = static_cast<unsigned char>(byte);
  if (c <= ' ') return CharacterClass::blank;
  const bool letter = (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c >= 0xC0;
  return letter || (c >= '0' && c <= '9') || c == '_' ? CharacterClass::word
                                                      : CharacterClass::other;
}

std::size_t CaretStops::textEnd() const {
  const bool closed = !text_.empty() && text_[text_.size() - 1] == '\f';
  return text_.size() - (closed ? 1 : 0);
}

bool CaretStops::insideLineEnd(std::size_t offset) const {
  return offset > 0 && offset < text_.size() && text_[offset] == '\n' && text_[offset - 1] == '\r';
}

std::size_t CaretStops::nextStop(std::size_t offset) const {
  if (offset >= textEnd()) return textEnd();
  if (formats_.at(offset).hidden()) {
    while (offset < textEnd() && formats_.at(offset).hidden()) ++offset;
    return offset;
  }
  ++offset;
  return insideLineEnd(offset) ? offset + 1 : offset;
}

std::size_t CaretStops::previousStop(std::size_t offset) const {
  if (offset == 0) return 0;
  if (formats_.at(offset - 1).hidden()) {
    while (offset > 0 && formats_.at(offset - 1).hidden()) --offset;
    return offset;
  }
  --offset;
  return insideLineEnd(offset) ? offset - 1 : offset;
}

std::size_t CaretStops::wordStop(std::size_t offset, bool forward) const {
  const auto classBeside = [&](std::size_t at) { return classOf(text_[forward ? at : at - 1]); };
  const std::size_t limit = forward ? textEnd() : 0;
  offset = std::min(offset, textEnd());  // a selection may reach behind the closing form feed
  const auto skip = [&](auto&& wanted) {
    while (offset != limit && wanted(classBeside(offset))) {
      offset = forward ? nextStop(offset) : previousStop(offset);
    }
  };
  const auto blank = [](CharacterClass c) { return c == CharacterClass::blank; };
  if (!forward) skip(blank);
  if (offset == limit) return offset;
  const CharacterClass first = classBeside(offset);
  if (!blank(first)) skip([first](CharacterClass c) { return c == first; });
  if (forward) skip(blank);
  return offset;
}

}  // namespace paperway
