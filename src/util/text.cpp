#include "util/text.h"

#include <algorithm>

namespace paperway {

namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool isContinuation(char c) {
  return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

struct Sequence {
  char32_t character;
  std::size_t length;  // bytes; 0: none that is well formed
};

/// The character whose first byte is at `offset`: the shortest form, no surrogate, up to U+10FFFF.
Sequence sequenceAt(std::string_view text, std::size_t offset) {
  const auto lead = static_cast<unsigned char>(text[offset]);
  if (lead < 0x80) return {lead, 1};
  const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
  if (lead < 0xC2 || lead > 0xF4 || offset + length > text.size()) return {kReplacement, 0};
  char32_t character = lead & (0x7Fu >> length);
  for (std::size_t i = 1; i < length; ++i) {
    const char next = text[offset + i];
    if (!isContinuation(next)) return {kReplacement, 0};
    character = character << 6 | (static_cast<unsigned char>(next) & 0x3Fu);
  }
  static constexpr char32_t kFirst[] = {0x80, 0x800, 0x10000};
  const bool surrogate = character >= 0xD800 && character <= 0xDFFF;
  if (character < kFirst[length - 2] || character > 0x10FFFF || surrogate) {
    return {kReplacement, 0};
  }
  return {character, length};
}

/// Offset of the character before `end`.
std::size_t previousCharacter(std::string_view text, std::size_t end) {
  for (std::size_t length = 2; length <= 4 && length <= end; ++length) {
    if (sequenceAt(text, end - length).length == length) return end - length;
  }
  return end - 1;
}

/// Letters and their partners: `distance` between the lower and the upper letter, or 1 when upper
/// and lower letters alternate, the upper letter first.
struct CaseRange {
  char32_t firstUpper;
  char32_t lastUpper;
  std::int32_t distance;
};

constexpr CaseRange kCaseRanges[] = {
    {0xC0, 0xD6, 0x20},   {0xD8, 0xDE, 0x20},   {0x100, 0x12E, 1},     {0x132, 0x136, 1},
    {0x139, 0x147, 1},    {0x14A, 0x176, 1},    {0x178, 0x178, -0x79}, {0x179, 0x17D, 1},
    {0x191, 0x191, 1},    {0x1CD, 0x1DB, 1},    {0x1DE, 0x1EE, 1},     {0x1F8, 0x21E, 1},
    {0x222, 0x232, 1},    {0x386, 0x386, 0x26}, {0x388, 0x38A, 0x25},  {0x38C, 0x38C, 0x40},
    {0x38E, 0x38F, 0x3F}, {0x391, 0x3A1, 0x20}, {0x3A3, 0x3AB, 0x20},  {0x400, 0x40F, 0x50},
    {0x410, 0x42F, 0x20}, {0x460, 0x480, 1},    {0x48A, 0x4BE, 1},     {0x4C0, 0x4C0, 0xF},
    {0x4C1, 0x4CD, 1},    {0x4D0, 0x52E, 1},    {0x1E00, 0x1E94, 1},   {0x1EA0, 0x1EFE, 1},
};

constexpr char32_t kFinalSigma = 0x3C2;
constexpr char32_t kUpperSigma = 0x3A3;

bool inRange(const CaseRange& range, char32_t upper) {
  if (upper < range.firstUpper || upper > range.lastUpper) return false;
  return range.distance != 1 || (upper - range.firstUpper) % 2 == 0;
}

template <char32_t (*change)(char32_t), char32_t (*changeAscii)(char32_t)>
std::string changeCase(std::string_view text) {
  std::string out;
  out.reserve(text.size());
  for (std::size_t i = 0; i < text.size();) {
    const auto byte = static_cast<unsigned char>(text[i]);
    if (byte < 0x80) {
      out += static_cast<char>(changeAscii(byte));
      ++i;
      continue;
    }
    const Sequence sequence = sequenceAt(text, i);
    if (sequence.length == 0) {
      out += text[i++];  // what is no character stays as it is
    } else {
      appendCharacter(out, change(sequence.character));
      i += sequence.length;
    }
  }
  return out;
}

char32_t asciiUpper(char32_t character) {
  return character >= 'a' && character <= 'z' ? character - 0x20 : character;
}

char32_t asciiLower(char32_t character) {
  return character >= 'A' && character <= 'Z' ? character + 0x20 : character;
}

/// The character for comparing, with offsets moved behind it. A stray byte is like itself alone.
char32_t nextFolded(std::string_view text, std::size_t& offset) {
  const auto byte = static_cast<unsigned char>(text[offset]);
  if (byte < 0x80) {
    ++offset;
    return asciiUpper(byte);
  }
  const Sequence sequence = sequenceAt(text, offset);
  if (sequence.length == 0) {
    ++offset;
    return 0x110000u + byte;
  }
  offset += sequence.length;
  return upperCase(sequence.character);
}

bool startsIgnoringCase(std::string_view text, std::size_t at, std::string_view part) {
  for (std::size_t i = 0; i < part.size();) {
    if (at >= text.size()) return false;
    if (nextFolded(text, at) != nextFolded(part, i)) return false;
  }
  return true;
}

}  // namespace

bool holdsControls(std::string_view bytes) {
  return std::any_of(bytes.begin(), bytes.end(), [](char byte) {
    return static_cast<unsigned char>(byte) < 0x20 || byte == 0x7F;
  });
}

std::string_view trimBlanks(std::string_view text) {
  const auto areBlanks = [&text](std::size_t at) {
    std::uint64_t word = 0;
    std::memcpy(&word, text.data() + at, sizeof word);
    return word == kEachByte * ' ';
  };
  constexpr std::size_t kWord = sizeof(std::uint64_t);
  std::size_t begin = 0;
  std::size_t end = text.size();
  while (end - begin >= kWord && areBlanks(begin)) begin += kWord;
  while (begin < end && text[begin] == ' ') ++begin;
  while (end - begin >= kWord && areBlanks(end - kWord)) end -= kWord;
  while (end > begin && text[end - 1] == ' ') --end;
  return text.substr(begin, end - begin);
}

void appendCsvCell(std::string& out, std::string_view text) {
  const auto needsQuotes = [](char c) { return c == ',' || c == '"' || c == '\r' || c == '\n'; };
  if (std::none_of(text.begin(), text.end(), needsQuotes)) {
    out += text;
    return;
  }
  out += '"';
  for (const char c : text) out.append(c == '"' ? 2 : 1, c);
  out += '"';
}

std::size_t asciiLength(std::string_view text) {
  constexpr std::uint64_t kHighBits = 0x8080808080808080;
  std::size_t i = 0;
  for (std::uint64_t word = 0; i + sizeof word <= text.size(); i += sizeof word) {
    std::memcpy(&word, text.data() + i, sizeof word);
    if ((word & kHighBits) != 0) break;
  }
  while (i < text.size() && static_cast<unsigned char>(text[i]) < 0x80) ++i;
  return i;
}

std::size_t validUtf8Length(std::string_view text) {
  std::size_t offset = asciiLength(text);
  while (offset < text.size()) {
    const Sequence sequence = sequenceAt(text, offset);
    if (sequence.length == 0) return offset;
    offset += sequence.length;
    offset += asciiLength(text.substr(offset));
  }
  return offset;
}

std::size_t characterCount(std::string_view text) {
  std::size_t offset = asciiLength(text);
  std::size_t count = offset;
  while (offset < text.size()) {
    nextCharacter(text, offset);
    ++count;
  }
  return count;
}

char32_t nextCharacter(std::string_view text, std::size_t& offset) {
  const Sequence sequence = sequenceAt(text, offset);
  offset += std::max<std::size_t>(sequence.length, 1);
  return sequence.character;
}

void appendCharacter(std::string& out, char32_t character) {
  const auto byte = [](char32_t bits) { return static_cast<char>(bits); };
  if (character < 0x80) {
    out += byte(character);
  } else if (character < 0x800) {
    out += {byte(0xC0 | character >> 6), byte(0x80 | (character & 0x3F))};
  } else if (character < 0x10000) {
    out += {byte(0xE0 | character >> 12), byte(0x80 | (character >> 6 & 0x3F)),
            byte(0x80 | (character & 0x3F))};
  } else {
    out += {byte(0xF0 | character >> 18), byte(0x80 | (character >> 12 & 0x3F)),
            byte(0x80 | (character >> 6 & 0x3F)), byte(0x80 | (character & 0x3F))};
  }
}

std::string_view leftCharacters(std::string_view text, std::size_t count) {
  if (text.size() <= count) return text;
  const std::size_t ascii = asciiLength(text.substr(0, count));
  std::size_t offset = ascii;
  for (count -= ascii; count > 0 && offset < text.size(); --count) nextCharacter(text, offset);
  return text.substr(0, offset);
}

std::string_view rightCharacters(std::string_view text, std::size_t count) {
  std::size_t offset = text.size();
  for (; count > 0 && offset > 0; --count) {
    const bool ascii = static_cast<unsigned char>(text[offset - 1]) < 0x80;
    offset = ascii ? offset - 1 : previousCharacter(text, offset);
  }
  return text.substr(offset);
}

std::string_view takeLine(std::string_view& text) {
  const std::size_t end = text.find('\n');
  std::string_view line = text.substr(0, end);
  text.remove_prefix(std::min(line.size() + 1, text.size()));
  if (end != text.npos && line.ends_with('\r')) line.remove_suffix(1);
  return line;
}

char32_t upperCase(char32_t character) {
  if (character < 0x80) return asciiUpper(character);
  if (character == kFinalSigma) return kUpperSigma;
  for (const CaseRange& range : kCaseRanges) {
    const char32_t upper = character - static_cast<char32_t>(range.distance);
    if (inRange(range, upper)) return upper;
  }
  return character;
}

char32_t lowerCase(char32_t character) {
  if (character < 0x80) return asciiLower(character);
  for (const CaseRange& range : kCaseRanges) {
    if (inRange(range, character)) return character + static_cast<char32_t>(range.distance);
  }
  return character;
}

std::string upperCase(std::string_view text) {
  return changeCase<upperCase, asciiUpper>(text);
}

std::string lowerCase(std::string_view text) {
  return changeCase<lowerCase, asciiLower>(text);
}

bool equalIgnoringCase(std::string_view left, std::string_view right) {
  std::size_t i = 0;
  std::size_t j = 0;
  while (i < left.size() && j < right.size()) {
    if (nextFolded(left, i) != nextFolded(right, j)) return false;
  }
  return i == left.size() && j == right.size();
}

std::size_t findIgnoringCase(std::string_view text, std::string_view part, std::size_t from) {
  for (std::size_t at = from; at <= text.size();) {
    if (startsIgnoringCase(text, at, part)) return at;
    if (at == text.size()) break;
    nextCharacter(text, at);
  }
  return std::string_view::npos;
}

}  // namespace paperway
