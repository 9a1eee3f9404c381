#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

namespace paperway {

/// Texts are UTF-8 and are measured in characters (code points).

/// Bytes before the first one that is not ASCII.
std::size_t asciiLength(std::string_view text);

inline bool isAscii(std::string_view text) {
  constexpr std::uint64_t kHighBits = 0x8080808080808080;
  std::uint64_t seen = 0;
  std::size_t i = 0;
  for (std::uint64_t word = 0; i + sizeof word <= text.size(); i += sizeof word) {
    std::memcpy(&word, text.data() + i, sizeof word);
    seen |= word;
  }
  for (; i < text.size(); ++i) seen |= static_cast<unsigned char>(text[i]);
  return (seen & kHighBits) == 0;
}

/// ASCII without control characters.
inline bool isPrintableAscii(std::string_view text) {
  constexpr std::uint64_t kEach = 0x0101010101010101;
  std::uint64_t seen = 0;  // the high bit of a byte: it is below 32, 127 or above
  std::size_t i = 0;
  for (std::uint64_t word = 0; i + sizeof word <= text.size(); i += sizeof word) {
    std::memcpy(&word, text.data() + i, sizeof word);
    seen |= word | (word - kEach * 0x20) | (word + kEach);
  }
  for (; i < text.size(); ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    seen |= static_cast<std::uint64_t>(byte < 0x20 || byte >= 0x7F) << 7;
  }
  return (seen & kEach * 0x80) == 0;
}

/// Blanks (character 32 alone) off both ends.
std::string_view trimBlanks(std::string_view text);

/// Offset of the first byte that does not belong to well-formed UTF-8; text.size() when all does.
std::size_t validUtf8Length(std::string_view text);

std::size_t characterCount(std::string_view text);

/// Decodes the character at `offset` and moves `offset` behind it. A byte that starts none gives
/// U+FFFD and moves by one.
char32_t nextCharacter(std::string_view text, std::size_t& offset);
void appendCharacter(std::string& out, char32_t character);

/// The first, or last, `count` characters.
std::string_view leftCharacters(std::string_view text, std::size_t count);
std::string_view rightCharacters(std::string_view text, std::size_t count);

/// Takes the first line off the text. A line ends at CR LF or at LF; a lone CR is text.
std::string_view takeLine(std::string_view& text);

/// Upper and lower case of single characters: ASCII, Latin, Greek and Cyrillic letters that have a
/// partner of one character.
char32_t upperCase(char32_t character);
char32_t lowerCase(char32_t character);
std::string upperCase(std::string_view text);
std::string lowerCase(std::string_view text);

bool equalIgnoringCase(std::string_view left, std::string_view right);

/// Offset of `part` in `text` from byte `from` on, ignoring case; npos when it is not there.
std::size_t findIgnoringCase(std::string_view text, std::string_view part, std::size_t from = 0);

}  // namespace paperway
