#pragma once

#include "backends/desktop/system/clock.h"
#include "backends/desktop/system/console_message_box.h"
#include "backends/desktop/system/file_system.h"
#include "backends/desktop/system/folders.h"
#include "backends/desktop/system/page_setup_store.h"
#include "backends/desktop/system/system_names.h"
#include "backends/desktop/system/user_store.h"
#include "paperway/storage.h"

namespace paperway::desktop {

/// All of the machine that needs no window and no printer.
struct System {
  ConsoleMessageBox messageBox;
  Folders folders;
  Storage storage;
  FileSystem files{folders};
  Clock clock;
  SystemNames names;
  UserStore userStore;
  PageSetupStore pageSetup{userStore};
};

}  // namespace paperway::desktop
