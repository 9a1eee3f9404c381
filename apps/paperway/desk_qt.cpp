#include <QApplication>
#include <QBuffer>
#include <cmath>
#include <cstdlib>
#include <stdexcept>
#include <unistd.h>

#include "apps/paperway/desk.h"
#include "apps/paperway/user_printers.h"
#include "backends/desktop/qt/application.h"
#include "backends/desktop/qt/clipboard.h"
#include "backends/desktop/qt/dialogs.h"
#include "backends/desktop/qt/form_window.h"
#include "backends/desktop/qt/message_box.h"
#include "backends/desktop/qt/print_device.h"
#include "backends/desktop/qt/shell.h"
#include "backends/desktop/qt/windows.h"
#include "backends/desktop/system/system.h"
#include "platform/output_file.h"

namespace paperway::command {
namespace {

/// Qt ends the program when it finds no display, so it is asked for before.
void requireDisplay() {
  for (const char* variable : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
    const char* value = std::getenv(variable);
    if (value != nullptr && *value != '\0') return;
  }
  throw std::runtime_error("There is no display to open a window on.");
}

/// Windows without a display stand on a screen of a common size. Qt reads the file when it starts;
/// whoever asks for the same scale writes the same.
std::string offscreen(Storage& storage, const std::filesystem::path& folder, double scale) {
  const auto side = [scale](int pixels) { return std::to_string(std::lround(pixels * scale)); };
  const std::filesystem::path screen = folder / ("screen-" + side(1920) + ".json");
  replaceFile(storage, screen,
              R"({"screens": [{"name": "screen", "x": 0, "y": 0, "width": )" + side(1920) +
                  R"(, "height": )" + side(1080) +
                  R"(, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})",
              "preview", {.lasting = false});
  return "offscreen:configfile=" + screen.string();
}

class QtDesk : public Desk {
 public:
  explicit QtDesk(const Options& options)
      : screenless_(options.screenless), application_(qt::makeApplication(argc_, argv_)) {
    QApplication::setApplicationName(QStringLiteral("Paperway"));
    if (options.dark) qt::useDarkColors();
  }

  Platform platform() override {
    // A screenless desk has nobody to answer a message.
    paperway::MessageBox& messages =
        screenless_ ? static_cast<paperway::MessageBox&>(system_.messageBox) : messageBox_;
    return {.messageBox = messages,
            .windows = windows_,
            .folders = system_.folders,
            .clipboard = clipboard_,
            .dialogs = dialogs_,
            .shell = shell_,
            .storage = system_.storage,
            .files = system_.files,
            .clock = system_.clock,
            .names = system_.names,
            .userStore = system_.userStore,
            .spooler = user_.spooler,
            .printers = user_.printers,
            .printDevice = printDevice_};
  }

  Form& form() override { return windows_.windows().back()->form(); }

  void run() override { windows_.run(); }

  void resize(int width, int height) override {
    windows_.windows().back()->resize(width, height);
    QApplication::processEvents();
  }

  void draw(const std::filesystem::path& picture, const std::filesystem::path& report) override {
    qt::FormWindow& window = *windows_.windows().back();
    window.sync();
    QApplication::processEvents();
    QByteArray bytes;
    QBuffer buffer(&bytes);
    if (!buffer.open(QIODevice::WriteOnly) || !window.grab().save(&buffer, "PNG")) {
      throw std::runtime_error("The picture \"" + picture.string() + "\" cannot be made.");
    }
    replaceFile(system_.storage, picture,
                {bytes.constData(), static_cast<std::size_t>(bytes.size())}, "preview",
                {.inputs = {report}});
  }

 private:
  bool screenless_;
  int argc_ = 1;
  char name_[9] = "paperway";
  char* argv_[2] = {name_, nullptr};
  std::unique_ptr<QApplication> application_;
  desktop::System system_;
  UserPrinters user_;
  qt::PrintDevice printDevice_{system_.storage, user_.spooler};
  qt::Windows windows_;
  qt::MessageBox messageBox_;
  qt::Clipboard clipboard_;
  qt::Dialogs dialogs_;
  qt::Shell shell_;
};

}  // namespace

std::unique_ptr<Desk> Desk::open(const Options& options) {
  if (options.screenless) {
    desktop::Folders folders;
    desktop::Storage storage;
    setenv("QT_QPA_PLATFORM", offscreen(storage, folders.temporary(), options.scale).c_str(), 1);
    setenv("QT_SCALE_FACTOR", std::to_string(options.scale).c_str(), 1);
    setenv("XDG_RUNTIME_DIR", folders.temporary().c_str(), 0);
  } else {
    requireDisplay();
  }
  return std::make_unique<QtDesk>(options);
}

}  // namespace paperway::command
