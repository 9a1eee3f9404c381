#pragma once

#include <functional>
#include <string_view>

#include "controls/styled_runs.h"

namespace paperway {

/// A text as rich text for word processors: fonts, sizes, colours and line ends as shown; a form
/// feed is a page break, except at the text's end. `out` takes the document piece by piece.
void writeRtf(const TextBuffer& text, const FormatRuns& formats, const BaseLook& base,
              const std::function<void(std::string_view)>& out);

}  // namespace paperway
