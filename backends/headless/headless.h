#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "backends/headless/machine.h"
#include "backends/headless/printing.h"
#include "platform/clipboard.h"
#include "platform/dialogs.h"
#include "platform/folders.h"
#include "platform/message_box.h"
#include "platform/platform.h"
#include "platform/shell.h"
#include "platform/windows.h"

namespace paperway::headless {

/// Keeps what was said; answers from a script, and with the last button once that is used up.
class MessageBox : public paperway::MessageBox {
 public:
  struct Shown {
    std::string text;
    std::string title;
    Buttons buttons;
    Icon icon;
  };

  Answer show(std::string_view text, std::string_view title, Buttons buttons, Icon icon) override;

  std::vector<Shown> shown;
  std::vector<Answer> answers;  // taken from the front
};

/// Keeps the forms that were shown, newest last, and brings each to the front as a desktop would.
class Windows : public paperway::Windows {
 public:
  void show(std::shared_ptr<Form> form) override;
  ScreenSize screen() override { return screenSize; }
  void doEvents() override;

  std::vector<std::shared_ptr<Form>> forms;
  ScreenSize screenSize{15360, 11520};
  std::function<void()> waitingEvents;  // what doEvents lets run
};

class Clipboard : public paperway::Clipboard {
 public:
  std::string text() override { return content; }
  void setText(std::string_view text) override { content = text; }

  std::string content;
};

/// Keeps the questions; answers from a script, and is cancelled once that is used up.
class Dialogs : public paperway::Dialogs {
 public:
  std::optional<std::filesystem::path> openFile(const FileQuestion& question) override;
  std::optional<std::filesystem::path> saveFile(const FileQuestion& question) override;
  std::optional<std::uint32_t> color(std::uint32_t start) override;

  std::vector<FileQuestion> questions;
  std::vector<std::optional<std::filesystem::path>> files;  // taken from the front
  std::vector<std::optional<std::uint32_t>> colors;         // taken from the front
};

/// Keeps the commands that would have been started.
class Shell : public paperway::Shell {
 public:
  void start(const std::vector<std::string>& command) override;
  std::optional<std::vector<std::string>> calculator() override { return calculatorCommand; }

  std::vector<std::vector<std::string>> started;
  std::optional<std::vector<std::string>> calculatorCommand{{"calculator"}};
  bool fails = false;
};

/// Folders below one root.
class Folders : public paperway::Folders {
 public:
  explicit Folders(std::filesystem::path root) : root_(std::move(root)) {}
  std::filesystem::path work() override;
  std::filesystem::path program() override;
  std::filesystem::path temporary() override;

 private:
  std::filesystem::path folder(const char* name) const;
  std::filesystem::path root_;
};

/// A machine without a screen: for tests and servers.
struct Headless {
  explicit Headless(const std::filesystem::path& root) : folders(root), files(root / "temporary") {}

  MessageBox messageBox;
  Windows windows;
  Folders folders;
  Clipboard clipboard;
  Dialogs dialogs;
  Shell shell;
  FileSystem files;
  Clock clock;
  SystemNames names;
  UserStore userStore;
  Printers printers;
  Spooler spooler{printers};
  PrintDevice printDevice{printers};

  Platform platform() {
    return {messageBox, windows, folders,   clipboard, dialogs,  shell,      files,
            clock,      names,   userStore, spooler,   printers, printDevice};
  }
};

}  // namespace paperway::headless
