#pragma once

#include <istream>
#include <ostream>

#include "paperway/platform/message_boxes.h"

namespace paperway::desktop {

/// Messages as lines of text. A question is answered by a line "y" or "n" of the user's, or, where
/// nobody is there to ask, by an answer fixed beforehand.
class ConsoleMessageBox : public paperway::MessageBoxes {
 public:
  /// `user` null: questions get the answer `fixed`. The streams outlive the box.
  ConsoleMessageBox(std::ostream& out, std::istream* user, Answer fixed = Answer::no)
      : out_(out), user_(user), fixed_(fixed) {}

  /// On standard error; asks the user when standard input and standard error are a terminal.
  explicit ConsoleMessageBox(Answer fixed = Answer::no);

  Answer show(std::string_view text, std::string_view title, Buttons buttons, Icon icon) override;

 private:
  Answer ask();

  std::ostream& out_;
  std::istream* user_;
  Answer fixed_;
};

}  // namespace paperway::desktop
