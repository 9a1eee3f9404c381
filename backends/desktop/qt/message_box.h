#pragma once

#include "paperway/platform/message_boxes.h"

namespace paperway::qt {

/// A box over the active window, with the texts as they stand.
class MessageBoxes : public paperway::MessageBoxes {
 public:
  Answer show(std::string_view text, std::string_view title, Buttons buttons, Icon icon) override;
};

}  // namespace paperway::qt
