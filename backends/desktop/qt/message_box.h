#pragma once

#include "paperway/platform/message_box.h"

namespace paperway::qt {

/// A box over the active window, with the texts as they stand.
class MessageBox : public paperway::MessageBox {
 public:
  Answer show(std::string_view text, std::string_view title, Buttons buttons, Icon icon) override;
};

}  // namespace paperway::qt
