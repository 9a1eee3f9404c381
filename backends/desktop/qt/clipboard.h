#pragma once

#include "paperway/platform/clipboard.h"

namespace paperway::qt {

class Clipboard : public paperway::Clipboard {
 public:
  std::string text() override;
  void setText(std::string_view text) override;
};

}  // namespace paperway::qt
