#pragma once

#include "paperway/platform/dialogs.h"

namespace paperway::qt {

class Dialogs : public paperway::Dialogs {
 public:
  FileAnswer askForFiles(const FileQuestion& question) override;
  std::optional<std::uint32_t> color(std::uint32_t start) override;
};

}  // namespace paperway::qt
