#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "paperway/export.h"

namespace paperway {

/// A question for file names. Texts are UTF-8.
struct FileQuestion {
  struct Filter {
    std::string description;
    std::vector<std::string> patterns;  // "*.txt"
  };
  enum class Purpose { read, write };

  std::string title;  // empty: the dialog's own
  std::vector<Filter> filters;
  std::filesystem::path start;  // file or folder to begin with; empty: the dialog's choice

  Purpose purpose = Purpose::read;
  std::size_t filter = 0;  // the one to begin with, from 0
  /// What a name without an extension gets ("txt"), until the user chooses a filter that names
  /// another. Empty: that of the filter; nothing: such a name stays. A file to read gets it only
  /// when there is none without.
  std::optional<std::string> extension = std::nullopt;
  bool multiple = false;         // files of one folder that exist; to read alone
  bool confirmReplace = false;   // asks before it gives a file to write that exists
  bool fileMustExist = false;    // to read alone
  bool folderMustExist = false;  // of the file
  std::uintptr_t owner = 0;      // the desktop's handle of a window; 0: the active one
};

struct FileAnswer {
  std::vector<std::filesystem::path> files;  // absolute; none: cancelled
  std::size_t filter = 0;                    // the one chosen last, from 0
  std::uint32_t failure = 0;  // the desktop's code for why there is no dialog: 65535; 0: none
};

/// Dialogs that ask for files or a colour and wait for the answer.
class PAPERWAY_API Dialogs {
 public:
  virtual ~Dialogs() = default;

  /// A dialog that does not accept an answer says why and asks again.
  virtual FileAnswer askForFiles(const FileQuestion& question) = 0;
  /// A colour as blue × 65536 + green × 256 + red; the dialog begins with `start`. Nothing means
  /// cancelled.
  virtual std::optional<std::uint32_t> color(std::uint32_t start) = 0;

  /// A file that exists, asked for by title, filters and start. Nothing means cancelled; a dialog
  /// that fails raises.
  std::optional<std::filesystem::path> openFile(FileQuestion question);
  /// Likewise a file to write, in a folder that exists. The dialog has asked before it gives one
  /// that exists, and has added the extension of the chosen filter to a name without one.
  std::optional<std::filesystem::path> saveFile(FileQuestion question);
};

}  // namespace paperway
