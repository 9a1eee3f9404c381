#include <QApplication>
#include <gtest/gtest.h>

#include "backends/desktop/qt/application.h"
#include "support/test_folder.h"

/// Windows without a screen, and nothing of the user's own desktop.
int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  const paperway::TestFolder home;
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("HOME", home.path.c_str());
  qputenv("XDG_RUNTIME_DIR", home.path.c_str());
  const auto application = paperway::qt::makeApplication(argc, argv);
  return RUN_ALL_TESTS();
}
