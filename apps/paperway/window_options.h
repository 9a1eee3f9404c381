#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

#include "apps/paperway/desk.h"

namespace paperway::command {

/// The smallest picture of a window, unscaled.
struct LeastSize {
  int width;
  int height;
};

/// How a window is opened, or drawn into a picture.
struct WindowOptions {
  Desk::Options desk;
  std::string picture;
  std::vector<std::string> acts;  // before the picture is taken
  std::vector<int> size;          // of the picture; empty: the window's own
};

/// Adds --dark, --picture, --scale and --do; gives --picture.
CLI::Option* addWindowOptions(CLI::App& command, WindowOptions& options);

/// Adds --size, which needs `picture`. The size is checked when the command is parsed.
void addPictureSize(CLI::App& command, WindowOptions& options, CLI::Option* picture,
                    LeastSize least);

}  // namespace paperway::command
