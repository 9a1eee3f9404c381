#include "paperway/web.h"

#include <QApplication>
#include <cstdlib>
#include <string>
#include <string_view>
#include <unistd.h>

#include "backends/desktop/web/web_page.h"
#include "paperway/automation_error.h"

namespace paperway {
namespace {

/// The engine tells of itself when it starts, and of a screen without graphics hardware.
class QuietStart {
 public:
  QuietStart() : before_(qInstallMessageHandler(nothing)) {}
  ~QuietStart() { qInstallMessageHandler(before_); }
  QuietStart(const QuietStart&) = delete;
  QuietStart& operator=(const QuietStart&) = delete;

 private:
  static void nothing(QtMsgType, const QMessageLogContext&, const QString&) {}

  const QtMessageHandler before_;
};

/// The engine may connect, and even ask for a picture, before it hears that a request is refused.
/// So no host has an address, and what has one goes by a proxy that is none. The rule has
/// blanks, which divide the engine's flags, and so stands in quotes.
void keepOffTheNet() {
  constexpr const char* kFlags = "QTWEBENGINE_CHROMIUM_FLAGS";
  constexpr std::string_view kOff =
      "\"--host-resolver-rules=MAP * ~NOTFOUND\" --proxy-server=socks5://127.0.0.1:1 "
      "--proxy-bypass-list=<-loopback>";
  const char* const before = std::getenv(kFlags);
  const std::string flags = before == nullptr ? "" : std::string(before) + " ";
  if (flags.find(kOff) == flags.npos) setenv(kFlags, (flags + std::string(kOff)).c_str(), 1);
}

}  // namespace

Web::Web(const Platform& platform) : platform_(platform) {
  if (geteuid() == 0) setenv("QTWEBENGINE_DISABLE_SANDBOX", "1", 0);
  keepOffTheNet();
  web::FolderScheme::announce();
}

Web::~Web() = default;

std::unique_ptr<BrowserPage> Web::open(BrowserEvents& events) {
  if (qobject_cast<QApplication*>(QCoreApplication::instance()) == nullptr) {
    throw AutomationError(AutomationError::kApplicationDefined, "Web",
                          "The browser window needs a QApplication, which has not been made.");
  }
  const QuietStart quiet;
  return std::make_unique<web::WebPage>(platform_, events);
}

}  // namespace paperway
