#pragma once

#include "paperway/platform/folders.h"

namespace paperway::desktop {

/// Folders of the user's own. The work and program folders lie in $XDG_DATA_HOME/paperway
/// (~/.local/share/paperway); the temporary one is "paperway-" and the user's number in $TMPDIR
/// (/tmp), so that users who share a temporary directory do not meet.
class Folders : public paperway::Folders {
 public:
  std::filesystem::path work() override;
  std::filesystem::path program() override;
  std::filesystem::path temporary() override;
};

}  // namespace paperway::desktop
