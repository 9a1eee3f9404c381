#pragma once

#include <cstdint>
#include <string_view>

#include "paperway/automation_error.h"

namespace paperway {

class Printers;

/// Its description is what the user is told.
class NoPrinterSettings : public AutomationError {
 public:
  NoPrinterSettings()
      : AutomationError(kInvalidCall, "Set_Orientation", "PRinter Setting No Set..") {}
};

/// Makes the current printer print in landscape for `PL` "L", in portrait for anything else, on the
/// paper of the published number `Page_Sz` (0: its paper as it is), one side to a sheet. The user's
/// later prints go out so too. A printer that refuses keeps what it had; one that keeps no settings
/// raises NoPrinterSettings.
void Set_Orientation(std::string_view PL, std::int16_t Page_Sz, Printers& printers);

}  // namespace paperway
