#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "controls/format_runs.h"
#include "controls/text_buffer.h"
#include "session/settings_store.h"
#include "util/control_strings.h"

namespace paperway {

/// How the styled pages of a report look.
struct PageLook {
  bool styled = true;  // marks are hidden and the text between them styled
  bool zoomed = false;
  Color wide = 0;
  Color bold = 0;
  Color condensed = 0;
};

/// With the colours that the user has chosen.
PageLook storedLook(const ReportViewSettings& settings);

/// One pass over a page: a pair of marks, and the name of the style of what stands between them.
struct StylePass {
  std::string_view start;
  std::string_view end;
  std::string_view setting;
};

/// The passes of the page on show, in their order: where styles overlap, the later one wins.
std::array<StylePass, 6> windowPasses(const DOSEFONTcHR& font);
/// Those of a styled copy that leaves the window, on paper or exported. "bbold" names no style:
/// wide text comes out bold, at normal size.
std::array<StylePass, 4> exportPasses(const DOSEFONTcHR& font);

/// What a setting means; nothing for a name that names no style.
FormatChange styleOf(std::string_view setting, const PageLook& look);

/// Shrinks the marks of one kind to specks and gives the text between each pair the style, by
/// format(begin, end, change): a start mark without an end mark is hidden, and ends the pass. No
/// character goes away, so offsets stay. Costs as much as the text is long.
template <typename Format>
void stylePairs(const TextBuffer& text, std::string_view startMark, std::string_view endMark,
                const FormatChange& style, const Format& format) {
  const FormatChange hide{.size = 1, .color = kWhite};
  for (std::size_t from = 0;;) {
    const std::size_t start = text.find(startMark, from);
    if (start == std::string_view::npos) break;
    const std::size_t styled = start + startMark.size();
    format(start, styled, hide);
    const std::size_t end = text.find(endMark, start);
    if (end == std::string_view::npos) break;
    format(end, end + endMark.size(), hide);
    if (end < styled) break;  // an end mark inside the start mark
    format(styled, end, style);
    from = end;
  }
}

}  // namespace paperway
