#include "backends/desktop/qt/dialogs.h"

#include <QColorDialog>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <cstdlib>
#include <gtest/gtest.h>

#include "backends/desktop/qt/clipboard.h"
#include "backends/desktop/qt/shell.h"
#include "qt_user.h"
#include "support/error_of.h"
#include "support/expect_each.h"
#include "support/files.h"
#include "support/test_folder.h"

namespace paperway {
namespace {

void enter(QFileDialog& dialog, const QString& name) {
  dialog.findChild<QLineEdit*>()->setText(name);
  static_cast<QDialog&>(dialog).accept();
}

/// Answers a dialog that another answer brings up.
template <typename Dialog>
void whenUp(std::function<void(Dialog&)> how) {
  QTimer::singleShot(1, [how = std::move(how)] {
    auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
    dialog == nullptr ? whenUp<Dialog>(how) : how(*dialog);
  });
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

/// The name of the file that an entry leads to.
std::string given(const FileQuestion& question, const char* entry) {
  answer<QFileDialog>([&](QFileDialog& dialog) { enter(dialog, QString::fromUtf8(entry)); });
  const FileAnswer files = qt::Dialogs().askForFiles(question);
  return files.files.empty() ? "nothing" : files.files.front().filename().string();
}

/// The message that an entry leads to; the dialog is up again after it, and is cancelled then.
std::string refused(const FileQuestion& question, const char* entry) {
  std::string message;
  answer<QFileDialog>([&](QFileDialog& dialog) {
    whenUp<QMessageBox>([&](QMessageBox& box) {
      message = qt::utf8(box.text());
      whenUp<QFileDialog>([](QFileDialog& again) { again.reject(); });
      box.reject();
    });
    enter(dialog, QString::fromUtf8(entry));
  });
  EXPECT_TRUE(qt::Dialogs().askForFiles(question).files.empty());
  return message;
}

TEST_F(DialogsTest, ReplacesAFileAfterAQuestionIfThatIsWanted) {
  replaceFile(folder.path / "there.txt", "x", "test");
  question.purpose = FileQuestion::Purpose::write;
  EXPECT_EQ(given(question, "there.txt"), "there.txt");
  question.confirmReplace = true;
  EXPECT_EQ(given(question, "new.txt"), "new.txt");
  EXPECT_NE(refused(question, "there.txt").find("there.txt already exists"), std::string::npos);
  question.extension = "txt";
  EXPECT_NE(refused(question, "there").find("there.txt already exists"), std::string::npos);
}

TEST_F(DialogsTest, WantsWhatMustExist) {
  const std::string place = folder.path.string();
  EXPECT_EQ(given(question, "missing/new.txt"), "new.txt");
  question.folderMustExist = true;
  EXPECT_EQ(given(question, "new.txt"), "new.txt");
  EXPECT_EQ(refused(question, "missing/new.txt"), "There is no folder \"" + place + "/missing\".");
  question.fileMustExist = true;
  EXPECT_EQ(refused(question, "new.txt"), "There is no file \"new.txt\" in \"" + place + "\".");
  question.purpose = FileQuestion::Purpose::write;
  EXPECT_EQ(given(question, "new.txt"), "new.txt");
  EXPECT_EQ(refused(question, "missing/new.txt"), "There is no folder \"" + place + "/missing\".");
}

TEST_F(DialogsTest, AddsTheExtensionToANameWithoutOne) {
  for (const char* name : {"bare", "both", "both.txt", "long.txt"}) {
    replaceFile(folder.path / name, "x", "test");
  }
  question.filters.push_back({"All", {"*"}});
  const auto named = [&](bool writes,
                         std::optional<std::string>
                             extension,
                         std::size_t filter,
                         const char* entry) {
    question.purpose = writes ? FileQuestion::Purpose::write : FileQuestion::Purpose::read;
    question.extension = std::move(extension);
    question.filter = filter;
    return given(question, entry);
  };
  expectEach(named,
             Row{true, std::nullopt, 0, "new", "new"},
             Row{true, "", 0, "new", "new.rtf"},
             Row{true, "", 2, "new", "new"},
             Row{true, "txt", 0, "new", "new.txt"},
             Row{true, "txt", 2, "new", "new.txt"},
             Row{false, "txt", 0, "long", "long.txt"},
             Row{false, "txt", 0, "bare", "bare"},
             Row{false, "txt", 0, "both", "both"},
             Row{false, "", 1, "long", "long.txt"},
             Row{false, std::nullopt, 1, "long", "long"});
  question.purpose = FileQuestion::Purpose::write;
  question.extension = "prn";
  answer<QFileDialog>([](QFileDialog& dialog) {
    emit dialog.filterSelected(dialog.nameFilters()[0]);
    emit dialog.filterSelected(dialog.nameFilters()[2]);
    enter(dialog, "new");
  });
  EXPECT_EQ(dialogs.askForFiles(question).files.front(), folder.path / "new.rtf");
}

TEST_F(DialogsTest, GivesSeveralFilesAndTheFilter) {
  for (const char* name : {"a.txt", "b.txt"}) replaceFile(folder.path / name, "x", "test");
  question.multiple = true;
  question.filter = 1;
  answer<QFileDialog>([&](QFileDialog& dialog) {
    EXPECT_EQ(dialog.selectedNameFilter(), dialog.nameFilters()[1]);
    EXPECT_EQ(dialog.directory().path().toStdString(), folder.path.string());
    enter(dialog, R"("a.txt" "b.txt")");
  });
  const FileAnswer answer = dialogs.askForFiles(question);
  EXPECT_EQ(answer.files, (std::vector{folder.path / "a.txt", folder.path / "b.txt"}));
  EXPECT_EQ(answer.filter, 1);
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
