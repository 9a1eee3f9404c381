#pragma once

#include <vector>

#include "controls/rich_text.h"
#include "paperway/platform/print_device.h"
#include "printed/printer_pitch.h"

namespace paperway {

/// A styled page as it goes on paper: each character at the pitch that the page's commands ask for,
/// in the look of its run; commands and what the page hides leave no trace. `pitch` is that of the
/// page's beginning, and afterwards of its end.
PrintedPage drawnPage(const std::vector<StyledLine>& lines, PrinterPitch& pitch);

}  // namespace paperway
