#pragma once

#include <vector>

#include "controls/rich_text.h"
#include "paperway/platform/print_device.h"
#include "printed/pen.h"

namespace paperway {

/// A styled page as it goes on paper: each character at the pitch that the page's codes ask for, in
/// the look of its run; codes and what the page hides leave no trace. `pitch` is that of the page's
/// beginning, and afterwards of its end.
PrintedPage drawnPage(const std::vector<StyledRun>& runs, PrinterPitch& pitch);

}  // namespace paperway
