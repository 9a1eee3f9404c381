#include "controls/styled_runs.h"

namespace paperway {

std::vector<StyledRun> styledRuns(const TextBuffer& text, const FormatRuns& formats,
                                  std::size_t begin, std::size_t end, const BaseLook& base) {
  std::vector<StyledRun> runs;
  std::string copy;
  for (const FormatRuns::Run& run : formats.runs(begin, end)) {
    const CharFormat& format = run.format;
    runs.push_back({run.begin, std::string(text.view(run.begin, run.end, copy)),
                    format.size > 0 ? format.size : base.font.Size, format.color.value_or(base.ink),
                    format.bold || base.font.Bold, format.underline || base.font.Underline,
                    format.hidden()});
  }
  return runs;
}

}  // namespace paperway
