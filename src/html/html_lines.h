#pragma once

#include <cstring>
#include <string>
#include <string_view>

#include "html/html_text.h"
#include "platform/output_lines.h"
#include "report/layout.h"
#include "util/text.h"

namespace paperway {

/// The lines of a document that shows a table. Texts are UTF-8 but where they are called bytes.
class HtmlLines {
 public:
  explicit HtmlLines(OutputFile& file) : out_(file) {}

  void line(std::string_view text) {
    append(text);
    out_.endLine();
  }

  void append(std::string_view text) { out_.append(encoded(text)); }
  void bytes(std::string_view bytes) { out_.append(bytes); }

  /// A text between bytes.
  void cell(std::string_view before, std::string_view text, std::string_view after) {
    const std::string_view inside = encoded(text);
    const std::size_t size = before.size() + inside.size() + after.size();
    char* const at = out_.reserve(size);
    copy(copy(copy(at, before), inside), after);
    out_.advance(size);
  }

  /// The same of a text without the blanks at its ends, padded or cut at the right to `width`
  /// characters.
  void paddedCell(std::string_view before, std::string_view text, std::size_t width,
                  std::string_view after) {
    if (!isAscii(text)) return paddedWide(before, text, width, after);
    const std::size_t size = before.size() + width + after.size();
    char* const at = out_.reserve(size);
    char* const inside = copy(at, before);
    std::memset(inside, ' ', width);
    placeCell(inside, width, text, true);
    copy(inside + width, after);
    out_.advance(size);
  }

  void flush() { out_.flush(); }

 private:
  static char* copy(char* to, std::string_view bytes) {
    std::memcpy(to, bytes.data(), bytes.size());
    return to + bytes.size();
  }

  void paddedWide(std::string_view before, std::string_view text, std::size_t width,
                  std::string_view after) {
    const std::string_view cut = leftCharacters(trimBlanks(text), width);
    const std::size_t rest = width - characterCount(cut);
    bytes(before);
    append(cut);
    out_.blanks(rest);
    out_.advance(rest);
    bytes(after);
  }

  std::string_view encoded(std::string_view text) {
    if (isAscii(text)) return text;
    encoded_.clear();
    appendHtmlBytes(encoded_, text);
    return encoded_;
  }

  OutputLines out_;
  std::string encoded_;
};

}  // namespace paperway
