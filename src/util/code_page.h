#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>

namespace paperway {

/// In which dot-matrix printers take their letters.
inline constexpr std::array<int, 6> kPrinterCodePages = {437, 850, 858, 860, 863, 865};

/// A single-byte code page: the bytes of report files against the characters of UTF-8 texts. All
/// 256 codes are mapped both ways, so that decoding and encoding again gives the same bytes; codes
/// that the page leaves open stand for the control characters of the same number.
class CodePage {
 public:
  /// Characters of the codes 128 to 255.
  using UpperHalf = std::array<char16_t, 128>;
  explicit CodePage(const UpperHalf& upperHalf);

  static const CodePage& windows1252();
  /// One of kPrinterCodePages, or 1252; null for another number.
  static const CodePage* byNumber(int number);

  /// Appends one byte for each character; '?' for one that the page lacks.
  void encode(std::string_view utf8, std::string& out) const;
  std::string encode(std::string_view utf8) const;
  std::string decode(std::string_view bytes) const;

  char encode(char32_t character) const;
  bool has(char32_t character) const;
  char32_t decode(char byte) const;

 private:
  UpperHalf upperHalf_;
  std::unordered_map<char32_t, unsigned char> codes_;
};

}  // namespace paperway
