#pragma once

#include <string_view>

#include "paperway/export.h"

namespace paperway {

/// Asks or tells the user something and waits for the answer. Texts are UTF-8; a line end in them
/// is CR LF or LF.
class PAPERWAY_API MessageBoxes {
 public:
  enum class Icon { none = 0, critical = 16, information = 64 };
  enum class Buttons { ok = 0, yesNo = 4 };
  enum class Answer { ok = 1, yes = 6, no = 7 };

  virtual ~MessageBoxes() = default;

  /// An empty title is shown as an empty title. Closing the box without a choice is ok, or no.
  virtual Answer show(std::string_view text, std::string_view title = "",
                      Buttons buttons = Buttons::ok, Icon icon = Icon::none) = 0;
};

}  // namespace paperway
