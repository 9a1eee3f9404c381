#pragma once

namespace paperway {

class Browser;
class Clipboard;
class Clock;
class Dialogs;
class FileSystem;
class Folders;
class MessageBoxes;
class PageSetupStore;
class PrintDevice;
class Printers;
class Shell;
class Spooler;
class Storage;
class SystemNames;
class UserStore;
class Windows;
class Workbooks;

/// Everything outside the library that it asks something of. A plain record of references: whoever
/// makes it owns what they refer to and keeps it alive as long as any Class1 made with it.
struct Platform {
  MessageBoxes& messageBox;
  Windows& windows;
  Folders& folders;
  Clipboard& clipboard;
  Dialogs& dialogs;
  Shell& shell;
  Storage& storage;
  FileSystem& files;
  Clock& clock;
  SystemNames& names;
  UserStore& userStore;
  Spooler& spooler;
  Printers& printers;
  PrintDevice& printDevice;
  PageSetupStore& pageSetup;
  Browser* browser = nullptr;      // none: no browser window
  Workbooks* workbooks = nullptr;  // none: no workbooks

  /// The same machine with other windows, other printers, another browser or other workbooks.
  Platform with(Windows& shown) const {
    return {messageBox, shown,       folders,   clipboard, dialogs,   shell,
            storage,    files,       clock,     names,     userStore, spooler,
            printers,   printDevice, pageSetup, browser,   workbooks};
  }
  Platform with(Spooler& queues, Printers& known, PrintDevice& device) const {
    return {messageBox, windows,   folders, clipboard, dialogs, shell,     storage, files,    clock,
            names,      userStore, queues,  known,     device,  pageSetup, browser, workbooks};
  }
  Platform with(Browser& pages) const {
    Platform same = *this;
    same.browser = &pages;
    return same;
  }
  Platform with(Workbooks& made) const {
    Platform same = *this;
    same.workbooks = &made;
    return same;
  }
};

}  // namespace paperway
