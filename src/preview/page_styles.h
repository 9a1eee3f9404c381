#pragma once

#include <string_view>

#include "controls/rich_text.h"

namespace paperway {

/// Shrinks the marks of one kind to specks and gives the text between each pair the style: a start
/// mark without an end mark is hidden, and ends the pass. No character goes away, so offsets stay.
/// Ends with the first character selected. Costs as much as the text is long.
void stylePairs(RichTextBox& Richtex, std::string_view Search, std::string_view Search1,
                const FormatChange& style);

}  // namespace paperway
