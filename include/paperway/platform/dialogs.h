#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "paperway/export.h"

namespace paperway {

/// A question for a file name. Texts are UTF-8.
struct FileQuestion {
  struct Filter {
    std::string description;
    std::vector<std::string> patterns;  // "*.txt"
  };

  std::string title;  // empty: the dialog's own
  std::vector<Filter> filters;
  std::filesystem::path start;  // file or folder to begin with; empty: the dialog's choice
};

/// Dialogs that ask for a file or a colour and wait for the answer. Nothing means cancelled.
class PAPERWAY_API Dialogs {
 public:
  virtual ~Dialogs() = default;

  /// A file that exists.
  virtual std::optional<std::filesystem::path> openFile(const FileQuestion& question) = 0;
  /// A file to write. The dialog has asked before it gives one that exists, and has added the
  /// extension of the chosen filter to a name without one.
  virtual std::optional<std::filesystem::path> saveFile(const FileQuestion& question) = 0;
  /// A colour as blue × 65536 + green × 256 + red; the dialog begins with `start`.
  virtual std::optional<std::uint32_t> color(std::uint32_t start) = 0;
};

}  // namespace paperway
