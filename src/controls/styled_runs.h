#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "controls/appearance.h"
#include "controls/format_runs.h"
#include "controls/text_buffer.h"

namespace paperway {

/// Characters of one look, with everything that a device needs to draw them.
struct StyledRun {
  std::size_t begin;  // offset in the text
  std::string bytes;  // windows-1252
  double size;        // points
  Color color;
  bool bold;
  bool underline;
  bool hidden;  // a speck: takes no room to speak of
};

/// How a text looks where no format says otherwise.
struct BaseLook {
  FontSpec font{"Courier New", 11.25};
  Color ink = kWindowText;
};

/// The characters [begin, end) of a text.
std::vector<StyledRun> styledRuns(const TextBuffer& text, const FormatRuns& formats,
                                  std::size_t begin, std::size_t end, const BaseLook& base = {});

}  // namespace paperway
