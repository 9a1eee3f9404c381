#include "controls/edit_history.h"

#include <utility>

namespace paperway {

void EditHistory::clear() {
  edits_.clear();
  undone_ = 0;
}

void EditHistory::remember(Edit edit) {
  edits_.resize(edits_.size() - undone_);
  undone_ = 0;
  if (!edits_.empty() && edit.removed.empty() && edit.inserted.size() == 1) {
    Edit& last = edits_.back();
    const bool goesOn = edit.at == last.at + last.inserted.size();
    if (goesOn && !last.inserted.empty() && last.inserted.back() != '\n') {
      last.inserted += edit.inserted;
      return;
    }
  }
  edits_.push_back(std::move(edit));
}

EditHistory::Edit& EditHistory::back() {
  ++undone_;
  return edits_[edits_.size() - undone_];
}

const EditHistory::Edit& EditHistory::forward() {
  const Edit& edit = edits_[edits_.size() - undone_];
  --undone_;
  return edit;
}

}  // namespace paperway
