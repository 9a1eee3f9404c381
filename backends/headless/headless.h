#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "platform/folders.h"
#include "platform/message_box.h"
#include "platform/platform.h"
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

/// Keeps the forms that were shown, newest last.
class Windows : public paperway::Windows {
 public:
  void show(std::shared_ptr<Form> form) override;

  std::vector<std::shared_ptr<Form>> forms;
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
  explicit Headless(const std::filesystem::path& root) : folders(root) {}

  MessageBox messageBox;
  Windows windows;
  Folders folders;

  Platform platform() { return {messageBox, windows, folders}; }
};

}  // namespace paperway::headless
