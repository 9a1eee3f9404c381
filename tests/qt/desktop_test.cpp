#include "paperway/desktop.h"

#include <QApplication>
#include <clocale>
#include <gtest/gtest.h>

#include "paperway/class1.h"
#include "support/error_of.h"
#include "support/files.h"
#include "support/test_folder.h"

namespace paperway {

TEST(DesktopOfAHost, UsesTheHostsApplicationAndClosesItsWindows) {
  const TestFolder folder;
  qputenv("XDG_DATA_HOME", folder.path.c_str());
  std::setlocale(LC_NUMERIC, "C.UTF-8");
  const std::string report = (folder.path / "report.txt").string();
  replaceFile(report, "page\r\n\f", "test");
  {
    Desktop desktop;
    EXPECT_STREQ(std::setlocale(LC_NUMERIC, nullptr), "C");
    EXPECT_EQ(errorOf([&] { desktop.picture(); }), "No window is open.");
    Class1 host(desktop.platform(), RunContext());
    host.PreviewReport(PreviewReportArguments::withEverything(report));
    const std::string small = desktop.picture();
    EXPECT_TRUE(small.starts_with("\x89PNG")) << small.size();
    desktop.resize(1500, 900);
    EXPECT_NE(desktop.picture(), small);
    EXPECT_TRUE(host.RtWindows1());
  }
  for (const QWidget* widget : QApplication::topLevelWidgets()) EXPECT_FALSE(widget->isVisible());
  qunsetenv("XDG_DATA_HOME");
}

}  // namespace paperway
