#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "controls/format_runs.h"

namespace paperway {

/// What was done to a text, for undoing it and doing it again.
class EditHistory {
 public:
  struct Edit {
    std::size_t at;
    std::string removed;
    std::string inserted;
    std::vector<FormatRuns::Run> removedFormats;
    std::vector<FormatRuns::Run> insertedFormats = {};  // once it is undone
  };

  void clear();
  /// Typing on is one edit up to the end of the line. What is undone is forgotten.
  void remember(Edit edit);

  bool canUndo() const { return undone_ < edits_.size(); }
  bool canRedo() const { return undone_ > 0; }
  /// The edit to undo next; it counts as undone.
  Edit& back();
  /// The edit to do again next; it counts as done.
  const Edit& forward();

 private:
  std::vector<Edit> edits_;
  std::size_t undone_ = 0;  // how many of the last edits are undone
};

}  // namespace paperway
