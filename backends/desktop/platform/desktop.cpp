#include "paperway/desktop.h"

#include <QApplication>
#include <QBuffer>
#include <cmath>
#include <cstdlib>
#include <iostream>
#include <string>

#include "backends/desktop/browser_widget.h"
#include "backends/desktop/cups/cups_printers.h"
#include "backends/desktop/cups/cups_spooler.h"
#include "backends/desktop/qt/application.h"
#include "backends/desktop/qt/clipboard.h"
#include "backends/desktop/qt/dialogs.h"
#include "backends/desktop/qt/form_window.h"
#include "backends/desktop/qt/message_box.h"
#include "backends/desktop/qt/print_device.h"
#include "backends/desktop/qt/shell.h"
#include "backends/desktop/qt/windows.h"
#include "backends/desktop/system/system.h"
#include "backends/desktop/system/user_printers.h"
#include "controls/web_browser.h"
#include "paperway/automation_error.h"
#include "platform/output_file.h"

namespace paperway {
namespace {

[[noreturn]] void fail(const std::string& reason) {
  throw AutomationError(AutomationError::kApplicationDefined, "Desktop", reason);
}

/// Qt ends the program when it finds no display, so it is asked for before.
void requireDisplay() {
  for (const char* variable : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
    const char* value = std::getenv(variable);
    if (value != nullptr && *value != '\0') return;
  }
  fail("There is no display to open a window on.");
}

/// Windows without a display stand on a screen of a common size. Qt reads the file when it starts;
/// whoever asks for the same scale writes the same.
std::string offscreen(desktop::System& system, double scale) {
  const auto side = [scale](int pixels) { return std::to_string(std::lround(pixels * scale)); };
  const std::filesystem::path screen =
      system.folders.temporary() / ("screen-" + side(1920) + ".json");
  replaceFile(system.storage, screen,
              R"({"screens": [{"name": "screen", "x": 0, "y": 0, "width": )" + side(1920) +
                  R"(, "height": )" + side(1080) +
                  R"(, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})",
              "Desktop", {.lasting = false});
  return "offscreen:configfile=" + screen.string();
}

/// A screen that nobody sees has no use for the least size of a window, and Qt says so each time.
void withoutSizeHints(QtMsgType type, const QMessageLogContext& context, const QString& text) {
  if (text.contains(QLatin1String("propagateSizeHints"))) return;
  std::cerr << qFormatLogMessage(type, context, text).toStdString() << "\n";
}

void leaveTheScreen(desktop::System& system, double scale) {
  qInstallMessageHandler(withoutSizeHints);
  setenv("QT_QPA_PLATFORM", offscreen(system, scale).c_str(), 1);
  setenv("QT_SCALE_FACTOR", std::to_string(scale).c_str(), 1);
  setenv("XDG_RUNTIME_DIR", system.folders.temporary().c_str(), 0);
}

/// Nobody is there to answer a dialog, which would wait for ever.
class NoDialogs : public Dialogs {
 public:
  FileAnswer askForFiles(const FileQuestion& /*question*/) override {
    fail("There is no display to ask for a file on.");
  }
  std::optional<std::uint32_t> color(std::uint32_t /*start*/) override {
    fail("There is no display to ask for a colour on.");
  }
};

/// Web pages are drawn by another process.
void waitForPages(const Form& form) {
  for (Control* control : form.controls()) {
    if (control->kind != ControlKind::webBrowser) continue;
    auto* page = dynamic_cast<desktop::BrowserWidget*>(&static_cast<WebBrowser*>(control)->page());
    if (page != nullptr) page->waitUntilDrawn();
  }
}

/// Qt's application: the host's, or one that lives as long as the object.
class Application {
 public:
  Application(desktop::System& system, const Desktop::Options& options) {
    if (QCoreApplication::instance() == nullptr) {
      options.screenless ? leaveTheScreen(system, options.scale) : requireDisplay();
      own_ = qt::makeApplication(argc_, argv_);
      QApplication::setApplicationName(QStringLiteral("Paperway"));
    } else if (qobject_cast<QApplication*>(QCoreApplication::instance()) == nullptr) {
      fail("Windows need a QApplication; the program has made one without windows.");
    }
    qt::keepNumberFormat();
    if (options.dark) qt::useDarkColors();
  }

 private:
  int argc_ = 1;
  char name_[9] = "paperway";
  char* argv_[2] = {name_, nullptr};
  std::unique_ptr<QApplication> own_;
};

}  // namespace

struct Desktop::Parts {
  explicit Parts(const Options& options)
      : application(system, options),
        messages(options.screenless ? static_cast<MessageBoxes&>(system.messageBox) : messageBox),
        dialogs(options.screenless ? static_cast<Dialogs&>(noDialogs) : dialogBoxes) {
    system.names.program = options.program;
  }

  qt::FormWindow& lastWindow() {
    if (windows.windows().empty()) fail("No window is open.");
    return *windows.windows().back();
  }

  desktop::System system;
  Application application;
  desktop::CupsPrinters queues;
  desktop::CupsSpooler queueSpooler;
  desktop::UserPrinters user{queues, queueSpooler};
  qt::PrintDevice printDevice{system.storage, user.spooler};
  qt::Windows windows;
  qt::MessageBoxes messageBox;
  qt::Clipboard clipboard;
  qt::Dialogs dialogBoxes;
  NoDialogs noDialogs;
  qt::Shell shell;
  MessageBoxes& messages;  // nobody answers one that is not on a screen
  Dialogs& dialogs;        // nor one of these
};

Desktop::Desktop() : Desktop(Options()) {}

Desktop::Desktop(const Options& options) : parts_(std::make_unique<Parts>(options)) {}

Desktop::~Desktop() = default;

Platform Desktop::platform() {
  return {.messageBox = parts_->messages,
          .windows = parts_->windows,
          .folders = parts_->system.folders,
          .clipboard = parts_->clipboard,
          .dialogs = parts_->dialogs,
          .shell = parts_->shell,
          .storage = parts_->system.storage,
          .files = parts_->system.files,
          .clock = parts_->system.clock,
          .names = parts_->system.names,
          .userStore = parts_->system.userStore,
          .spooler = parts_->user.spooler,
          .printers = parts_->user.printers,
          .printDevice = parts_->printDevice,
          .pageSetup = parts_->system.pageSetup};
}

void Desktop::run() {
  parts_->windows.run();
}

void Desktop::resize(int width, int height) {
  parts_->lastWindow().resize(width, height);
  QApplication::processEvents();
}

std::string Desktop::picture() {
  qt::FormWindow& window = parts_->lastWindow();
  window.sync();
  QApplication::processEvents();
  waitForPages(window.form());
  QWidget* const dialog = QApplication::activeModalWidget();
  QWidget& shown = dialog == nullptr ? window : *dialog;
  QByteArray bytes;
  QBuffer buffer(&bytes);
  if (!buffer.open(QIODevice::WriteOnly) || !shown.grab().save(&buffer, "PNG")) {
    fail("The picture of the window cannot be made.");
  }
  return bytes.toStdString();
}

}  // namespace paperway
