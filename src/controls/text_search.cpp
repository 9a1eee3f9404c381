#include "controls/text_search.h"

#include <algorithm>

namespace paperway {
namespace {

using ByteTable = std::array<unsigned char, 256>;

constexpr ByteTable makeLowerCase() {
  ByteTable table{};
  for (int c = 0; c < 256; ++c) {
    const bool latin = c >= 0xC0 && c <= 0xDE && c != 0xD7;
    const bool letter = (c >= 'A' && c <= 'Z') || latin;
    table[static_cast<std::size_t>(c)] = static_cast<unsigned char>(letter ? c + 0x20 : c);
  }
  table[0x8A] = 0x9A;  // S and Z with caron, OE, Y with diaeresis
  table[0x8C] = 0x9C;
  table[0x8E] = 0x9E;
  table[0x9F] = 0xFF;
  return table;
}

constexpr ByteTable kLowerCase = makeLowerCase();

/// The partners of small letters; any other byte is its own.
constexpr ByteTable kUpperCase = [] {
  ByteTable table{};
  for (std::size_t c = 0; c < table.size(); ++c) table[c] = static_cast<unsigned char>(c);
  for (std::size_t c = 0; c < table.size(); ++c) {
    if (kLowerCase[c] != c) table[kLowerCase[c]] = static_cast<unsigned char>(c);
  }
  return table;
}();

unsigned char lower(char c) {
  return kLowerCase[static_cast<unsigned char>(c)];
}

/// How common a byte is in reports, roughly; the rarest ones make the best probes.
int commonness(unsigned char folded) {
  if (folded == ' ' || folded == '-') return 9;
  if (folded == '0' || folded == '.') return 7;
  if (folded >= '1' && folded <= '9') return 6;
  constexpr std::string_view kCommonLetters = "etaoinsrhl";
  const bool common = kCommonLetters.find(static_cast<char>(folded)) != std::string_view::npos;
  return common ? 5 : 2;
}

constexpr std::size_t kBlock = 64;

}  // namespace

CaselessNeedle::CaselessNeedle(std::string_view bytes) {
  for (const char c : bytes) folded_ += static_cast<char>(lower(c));
  std::array<int, 2> best{100, 100};
  for (std::size_t i = 0; i < folded_.size(); ++i) {
    const auto byte = static_cast<unsigned char>(folded_[i]);
    const Probe probe{i, folded_[i], static_cast<char>(kUpperCase[byte])};
    const int rank = commonness(byte);
    if (rank < best[0]) {
      best[1] = best[0];
      probes_[1] = probes_[0];
      best[0] = rank;
      probes_[0] = probe;
    } else if (rank < best[1]) {
      best[1] = rank;
      probes_[1] = probe;
    }
  }
  if (folded_.size() == 1) probes_[1] = probes_[0];
}

/// Whether any of the places block[0] to block[kBlock - 1] passes both probes.
bool CaselessNeedle::mayMatch(const char* block) const {
  const char* first = block + probes_[0].offset;
  const char* second = block + probes_[1].offset;
  const Probe a = probes_[0];
  const Probe b = probes_[1];
  unsigned char any = 0;
  for (std::size_t i = 0; i < kBlock; ++i) {
    const auto atFirst = static_cast<unsigned char>((first[i] == a.lower) | (first[i] == a.upper));
    const auto atSecond =
        static_cast<unsigned char>((second[i] == b.lower) | (second[i] == b.upper));
    any = static_cast<unsigned char>(any | (atFirst & atSecond));
  }
  return any != 0;
}

bool CaselessNeedle::matchesAt(const char* place) const {
  const char first = place[probes_[0].offset];
  if (first != probes_[0].lower && first != probes_[0].upper) return false;
  return std::equal(folded_.begin(), folded_.end(), place,
                    [](char folded, char c) { return static_cast<char>(lower(c)) == folded; });
}

std::size_t CaselessNeedle::findIn(std::string_view text, std::size_t from) const {
  if (folded_.empty() || text.size() < folded_.size()) return std::string_view::npos;
  const std::size_t places = text.size() - folded_.size() + 1;
  while (from < places) {
    const std::size_t end = std::min(from + kBlock, places);
    if (end - from < kBlock || mayMatch(text.data() + from)) {
      for (; from < end; ++from) {
        if (matchesAt(text.data() + from)) return from;
      }
    }
    from = end;
  }
  return std::string_view::npos;
}

}  // namespace paperway
