#include "preview/page_styles.h"

namespace paperway {
namespace {

constexpr double kSpeck = 1;  // points

}  // namespace

void stylePairs(RichTextBox& Richtex, std::string_view Search, std::string_view Search1,
                const FormatChange& style) {
  const TextBuffer& text = Richtex.buffer();
  const FormatChange hide{.size = kSpeck, .color = kWhite};
  for (std::size_t from = 0;;) {
    const std::size_t start = text.find(Search, from);
    if (start == std::string_view::npos) break;
    const std::size_t styled = start + Search.size();
    Richtex.format(start, styled, hide);
    const std::size_t end = text.find(Search1, start);
    if (end == std::string_view::npos) break;
    Richtex.format(end, end + Search1.size(), hide);
    if (end < styled) break;  // an end mark inside the start mark
    Richtex.format(styled, end, style);
    from = end;
  }
  Richtex.SelStart = 0;
  Richtex.SelLength = 1;
}

}  // namespace paperway
