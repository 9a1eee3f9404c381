#pragma once

#include "apps/paperway/print_options.h"

namespace paperway::command {

/// A CLI::ValidationError when the options ask for no picture of paper that can be made.
void requirePaperPicture(const PrintOptions& options);

/// Draws the paper that the job of these options would print.
void drawPaper(PrintOptions options);

}  // namespace paperway::command
