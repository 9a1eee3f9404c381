#pragma once

namespace paperway {

class Clipboard;
class Clock;
class Dialogs;
class FileSystem;
class Folders;
class MessageBox;
class PrintDevice;
class Printers;
class Shell;
class Spooler;
class SystemNames;
class UserStore;
class Windows;

/// Everything outside the library that it asks something of. A plain record of references: whoever
/// makes it owns what they refer to and keeps it alive as long as any Class1 made with it.
struct Platform {
  MessageBox& messageBox;
  Windows& windows;
  Folders& folders;
  Clipboard& clipboard;
  Dialogs& dialogs;
  Shell& shell;
  FileSystem& files;
  Clock& clock;
  SystemNames& names;
  UserStore& userStore;
  Spooler& spooler;
  Printers& printers;
  PrintDevice& printDevice;
};

}  // namespace paperway
