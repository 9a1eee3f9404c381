#pragma once

#include "paperway/platform/system_names.h"

namespace paperway::desktop {

class SystemNames : public paperway::SystemNames {
 public:
  std::string computerName() override;
  std::string userName() override;
  std::filesystem::path printerPort() override { return "/dev/usb/lp0"; }
  std::string programName() override;

  std::string program{};  // that of the executable when empty
};

}  // namespace paperway::desktop
