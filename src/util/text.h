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

inline constexpr std::uint64_t kEachByte = 0x0101010101010101;

/// Takes the bytes of a text in words of eight. A short text is filled up with blanks; the last
/// word of a longer one begins within the one before.
template <class Take>
void forEachWord(std::string_view text, Take take) {
  std::uint64_t word = kEachByte * ' ';
  if (text.size() < sizeof word) {
    for (const char c : text) word = word << 8 | static_cast<unsigned char>(c);
    return take(word);
  }
  const char* const last = text.data() + text.size() - sizeof word;
  for (const char* at = text.data(); at < last; at += sizeof word) {
    std::memcpy(&word, at, sizeof word);
    take(word);
  }
  std::memcpy(&word, last, sizeof word);
  take(word);
}

inline bool isAscii(std::string_view text) {
  std::uint64_t seen = 0;
  forEachWord(text, [&seen](std::uint64_t word) { seen |= word; });
  return (seen & kEachByte * 0x80) == 0;
}

/// ASCII without control characters.
inline bool isPrintableAscii(std::string_view text) {
  std::uint64_t seen = 0;  // the high bit of a byte: it is below 32, 127 or above
  forEachWord(text, [&seen](std::uint64_t word) {
    seen |= word | (word - kEachByte * 0x20) | (word + kEachByte);
  });
  return (seen & kEachByte * 0x80) == 0;
}

/// Whether a byte below 32, or 127, is among them.
bool holdsControls(std::string_view bytes);

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

/// A text as a cell of comma-separated values: in quotes where it needs them.
void appendCsvCell(std::string& out, std::string_view text);

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
