#include "backends/desktop/qt/dialogs.h"

#include <QColorDialog>
#include <QFileDialog>
#include <QLineEdit>
#include <cstdlib>
#include <gtest/gtest.h>

#include "backends/desktop/qt/clipboard.h"
#include "backends/desktop/qt/shell.h"
#include "qt_user.h"
#include "support/error_of.h"
#include "support/files.h"
#include "support/test_folder.h"

namespace paperway {
namespace {

void enter(QFileDialog& dialog, const QString& name) {
  dialog.findChild<QLineEdit*>()->setText(name);
  static_cast<QDialog&>(dialog).accept();
}

class DialogsTest : public testing::Test {
 protected:
  DialogsTest() { QApplication::setAttribute(Qt::AA_DontUseNativeDialogs); }

  TestFolder folder;
  qt::Dialogs dialogs;
  FileQuestion question{"A title",
                        {{" Rich Text Format (*.rtf)", {"*.rtf"}}, {"Text", {"*.txt", "*.prn"}}},
                        folder.path};
};

TEST_F(DialogsTest, OpensAFileThatExists) {
  replaceFile(folder.path / "a \xC3\xA4.txt", "x", "test");
  answer<QFileDialog>([](QFileDialog& dialog) {
    EXPECT_EQ(dialog.windowTitle(), QStringLiteral("A title"));
    EXPECT_EQ(dialog.nameFilters(),
              QStringList({"Rich Text Format (*.rtf)", "Text (*.txt *.prn)"}));
    enter(dialog, QStringLiteral("a ä.txt"));
  });
  EXPECT_EQ(dialogs.openFile(question), folder.path / "a \xC3\xA4.txt");
}

TEST_F(DialogsTest, SavesUnderTheExtensionOfTheFilter) {
  const std::tuple<const char*, int, const char*> cases[] = {
      {"out", 0, "out.rtf"}, {"out", 1, "out.txt"}, {"out.TXT", 0, "out.TXT"}, {"a.b", 1, "a.b"}};
  for (const auto& [name, filter, saved] : cases) {
    answer<QFileDialog>([typed = name, index = filter](QFileDialog& dialog) {
      const QString chosen = dialog.nameFilters()[index];
      dialog.selectNameFilter(chosen);
      emit dialog.filterSelected(chosen);
      enter(dialog, QString::fromLatin1(typed));
    });
    EXPECT_EQ(dialogs.saveFile(question), folder.path / saved) << name;
  }
}

TEST_F(DialogsTest, CancellingGivesNothing) {
  const auto cancel = [] { answer<QDialog>([](QDialog& dialog) { dialog.reject(); }); };
  cancel();
  EXPECT_EQ(dialogs.openFile(question), std::nullopt);
  question.start = folder.path / "selected.txt";
  replaceFile(question.start, "x", "test");
  for (const bool saves : {false, true}) {
    answer<QFileDialog>([](QFileDialog& dialog) {
      EXPECT_EQ(dialog.selectedFiles().size(), 1);
      dialog.reject();
    });
    EXPECT_EQ(saves ? dialogs.saveFile(question) : dialogs.openFile(question), std::nullopt);
  }
  cancel();
  EXPECT_EQ(dialogs.color(255), std::nullopt);
}

TEST_F(DialogsTest, ColorsAreBlueGreenRed) {
  answer<QColorDialog>([](QColorDialog& dialog) {
    EXPECT_EQ(dialog.currentColor(), QColor(1, 2, 3));
    dialog.setCurrentColor(QColor(4, 5, 6));
    dialog.accept();
  });
  EXPECT_EQ(dialogs.color(3 * 65536 + 2 * 256 + 1), 6u * 65536 + 5 * 256 + 4);
}

TEST(ClipboardOnTheDesktop, KeepsText) {
  qt::Clipboard clipboard;
  clipboard.setText("a\xC3\xA9\r\n\x1B");
  EXPECT_EQ(clipboard.text(), "a\xC3\xA9\r\n\x1B");
}

TEST(ShellOnTheDesktop, AScriptCopiesAFileWhateverItsName) {
  qt::Shell shell;
  const TestFolder folder;
  const auto file = folder.path / "it's $HOME";
  const auto device = folder.path / "a device";
  const auto script = folder.path / shell.scriptName("send");
  replaceFile(file, "page");
  replaceFile(script, shell.scriptText("Made by a test.", shell.copyLine(file, device)));
  ASSERT_EQ(std::system(("sh " + script.string()).c_str()), 0);
  EXPECT_EQ(readFile(device), "page");
}

TEST(ShellOnTheDesktop, NamesWhatItCannotStart) {
  qt::Shell shell;
  EXPECT_THROW(shell.start({}), AutomationError);
  const std::string error = errorOf([&shell] { shell.start({"no-such-program-here"}); });
  EXPECT_NE(error.find("no-such-program-here"), std::string::npos);
}

}  // namespace
}  // namespace paperway
