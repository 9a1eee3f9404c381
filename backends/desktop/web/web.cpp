#include "paperway/web.h"

#include <QApplication>
#include <cstdlib>
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

}  // namespace

Web::Web(const Platform& platform) : platform_(platform) {
  if (geteuid() == 0) setenv("QTWEBENGINE_DISABLE_SANDBOX", "1", 0);
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
