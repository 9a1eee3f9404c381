#include <gtest/gtest.h>

#include "backends/desktop/qt/application.h"
#include "support/files.h"
#include "support/test_folder.h"

/// Windows without a screen, and nothing of the user's own desktop.
int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  const paperway::TestFolder home;
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("HOME", home.path.c_str());
  qputenv("XDG_RUNTIME_DIR", home.path.c_str());
  if (const QByteArray screen = qgetenv("PAPERWAY_TEST_SCREEN"); !screen.isEmpty()) {
    const QList<QByteArray> sides = screen.split('x');  // of device pixels
    paperway::replaceFile(
        home.path / "screen.json",
        QByteArray(R"({"screens": [{"name": "screen", "x": 0, "y": 0, "width": )" + sides[0] +
                   R"(, "height": )" + sides[1] +
                   R"(, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})")
            .toStdString(),
        "test");
    const std::string platform = "offscreen:configfile=" + (home.path / "screen.json").string();
    qputenv("QT_QPA_PLATFORM", platform.c_str());
  }
  const auto application = paperway::qt::makeApplication(argc, argv);
  return RUN_ALL_TESTS();
}
