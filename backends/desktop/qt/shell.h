#pragma once

#include "paperway/platform/shell.h"

namespace paperway::qt {

class Shell : public paperway::Shell {
 public:
  void start(const std::vector<std::string>& command) override;
  std::optional<std::vector<std::string>> calculator() override;
};

}  // namespace paperway::qt
