#pragma once

#include <algorithm>
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

  /// Without the blanks at its ends, padded or cut at the right to `width` characters.
  void padded(std::string_view text, std::size_t width) {
    if (isAscii(text)) {
      placeCell(out_.blanks(width), width, text, true);
      return out_.advance(width);
    }
    const std::string_view cut = leftCharacters(trimBlanks(text), width);
    const std::size_t count = characterCount(cut);
    append(cut);
    out_.blanks(width - count);
    out_.advance(width - count);
  }

  void flush() { out_.flush(); }

 private:
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
