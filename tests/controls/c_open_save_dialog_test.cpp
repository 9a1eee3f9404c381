#include "controls/c_open_save_dialog.h"

#include "paperway/headless.h"
#include "support/expect_each.h"

namespace paperway {
namespace {

using namespace std::string_literals;
using Purpose = FileQuestion::Purpose;
using Files = std::vector<std::filesystem::path>;

class OpenSaveDialog : public testing::Test {
 protected:
  bool choose(const Files& files, std::size_t filter = 0) {
    dialogs.answers = {{files, filter}};
    return dialog.ShowOpen(0);
  }
  std::string names() const {
    return dialog.FileName.get() + "|" + dialog.FileTitle.get() + "|" + dialog.FilePath.get() +
           "|" + dialog.FileExtension();
  }
  void expectNew() const {
    EXPECT_EQ(names() + dialog.InitDir.get() + dialog.Filter.get(), "|||");
    EXPECT_EQ(dialog.DialogTitle.get() + dialog.DefaultExt.get(), "");
    EXPECT_EQ(dialog.MaxFileSize, 520);
    EXPECT_EQ(dialog.MaxFileTitleSize, 260);
    EXPECT_EQ(dialog.Flags, 0);
    EXPECT_EQ(dialog.FlagsEx + dialog.CustomHookData + dialog.CustomHookProc, 0);
    EXPECT_EQ(dialog.FilterIndex + dialog.CustomFilterSize, 0);
    EXPECT_EQ(dialog.MinimumBufferSizeRequired(), 0);
    EXPECT_FALSE(dialog.CancelError);
  }

  headless::Dialogs dialogs;
  cOpenSaveDialog dialog{dialogs};
};

TEST_F(OpenSaveDialog, ClearMakesItNew) {
  expectNew();
  choose({"/folder/a.txt"});
  dialog.InitDir = dialog.Filter = dialog.DialogTitle = dialog.DefaultExt = "x"s;
  dialog.MaxFileSize = dialog.MaxFileTitleSize = dialog.Flags = dialog.FilterIndex = 3;
  dialog.FlagsEx = dialog.CustomHookData = dialog.CustomHookProc = 1;
  dialog.CustomFilterSize = 4;
  dialog.CancelError = true;
  dialog.Clear();
  expectNew();
}

TEST_F(OpenSaveDialog, TextsReadBackAsTheDialogTakesThem) {
  const auto initDir = [this](std::optional<std::string> text) {
    dialog.InitDir = std::move(text);
    return dialog.InitDir.get();
  };
  expectEach(initDir, Row{"/a", "/a\\"}, Row{"/a\\", "/a\\"}, Row{"", "\\"}, Row{std::nullopt, ""});
  const auto filter = [this](std::optional<std::string> text) {
    dialog.Filter = std::move(text);
    return dialog.Filter.get();
  };
  expectEach(filter,
             Row{"Text|*.txt", "Text|*.txt|"},
             Row{"A|*.a||B|*.b", "A|*.a"},
             Row{"||A", "||A|"},
             Row{"", "|"},
             Row{std::nullopt, ""});
}

TEST_F(OpenSaveDialog, NumbersOutOfRangeAreRefusedOrBecomeNone) {
  const auto setTwice = [](auto& member) {
    return [&member](std::int32_t first, std::int32_t then) {
      member = first;
      member = then;
      return member.get();
    };
  };
  expectEach(setTwice(dialog.Flags), Row{2, -1, 2}, Row{2, 1024 + 4096, 4096});
  expectEach(setTwice(dialog.FilterIndex), Row{2, -3, 0});
  expectEach(setTwice(dialog.MaxFileSize), Row{9, 0, 520}, Row{9, -9, 520}, Row{9, 1, 1});
  expectEach(setTwice(dialog.MaxFileTitleSize), Row{9, 0, 260}, Row{9, 2147483647, 2147483647});
  expectEach(setTwice(dialog.CustomFilterSize), Row{9, -1, 0}, Row{0, 9, 9});
}

TEST_F(OpenSaveDialog, TheFileNameStandsInABufferOfCharacters) {
  const auto name = [this](std::int32_t size, std::optional<std::string> text) {
    dialog.Clear();
    dialog.MaxFileSize = size;
    dialog.FileName = "1234";
    dialog.FileName = std::move(text);
    return std::to_string(dialog.MaxFileSize) + " " + dialog.FileName.get();
  };
  expectEach(name,
             Row{0, "a", "520 a"},
             Row{4, "abcd", "4 abcd"},
             Row{4, "abcde", "5 abcde"},
             Row{4, "\u0939\u093F\u4E2D\U0001F600", "4 \u0939\u093F\u4E2D\U0001F600"},
             Row{5, "\xFF\u00E4\xED\xA0", "5 \xFF\u00E4\xED\xA0"},
             Row{4, std::nullopt, "4 "});
  dialog.Clear();
  dialog.FileName = std::string(600, 'x');
  EXPECT_EQ(dialog.FileName.get().size(), 520) << "a first buffer has the usual size";
  dialog.MaxFileSize = 0;
  EXPECT_EQ(dialog.FileName.get().size(), 520) << "no size leaves the buffer";
  dialog.MaxFileSize = 520;
  EXPECT_EQ(dialog.FileName, "");
}

TEST_F(OpenSaveDialog, TellsOfTheChoice) {
  const auto chosen = [this](Files files) {
    dialog.Clear();
    dialog.MaxFileTitleSize = 8;
    EXPECT_TRUE(choose(files));
    return names();
  };
  expectEach(
      chosen,
      Row{Files{"/f/a.b.txt"}, "/f/a.b.txt|a.b.txt|/f|txt"},
      Row{Files{"/f.d/name"}, "/f.d/name|name|/f.d|"},
      Row{Files{"/a."}, "/a.|a.||"},
      Row{Files{"/\u00E4/\u00F6.\u00FC"}, "/\u00E4/\u00F6.\u00FC|\u00F6.\u00FC|/\u00E4|\u00FC"},
      Row{Files{"/f/long name.txt"}, "/f/long name.txt|long na|/f|txt"},
      Row{Files{"/f/a.txt", "/f/b.txt"}, "/f||/f|"});
  dialog.Filter = "A|*.a|B|*.b";
  choose({"/f/x.b"}, 1);
  EXPECT_EQ(dialog.FilterIndex, 2);
}

TEST_F(OpenSaveDialog, AsksWithItsFlags) {
  const auto asked = [this](bool saves, std::int32_t flags) {
    dialog.Flags = flags;
    EXPECT_FALSE(saves ? dialog.ShowSave(0) : dialog.ShowOpen(0));
    EXPECT_EQ(dialog.Flags, flags);
    const FileQuestion& q = dialogs.questions.back();
    EXPECT_EQ(q.purpose, saves ? Purpose::write : Purpose::read);
    return ""s + (q.confirmReplace ? "replace " : "") + (q.multiple ? "multiple " : "") +
           (q.folderMustExist ? "folder " : "") + (q.fileMustExist ? "file " : "");
  };
  expectEach(asked,
             Row{false, 0, ""},
             Row{true, 0, ""},
             Row{false, 2, ""},
             Row{true, 2, "replace "},
             Row{false, 512, "multiple "},
             Row{false, 2048, "folder "},
             Row{false, 4096, "folder file "},
             Row{true, 4096 + 2048, "folder "},
             Row{true, 4096, ""});
}

TEST_F(OpenSaveDialog, AsksWithItsTexts) {
  dialog.DialogTitle = "A title";
  dialog.Filter = "Text (*.txt)|*.txt; *.prn|All|*.*|no pattern";
  dialog.FilterIndex = 2;
  dialog.DefaultExt = "prn";
  EXPECT_FALSE(dialog.ShowSave(7));
  const FileQuestion asked = dialogs.questions.back();
  EXPECT_EQ(asked.title, "A title");
  ASSERT_EQ(asked.filters.size(), 2);
  EXPECT_EQ(asked.filters[0].patterns, (std::vector<std::string>{"*.txt", "*.prn"}));
  EXPECT_EQ(asked.filters[1].patterns, std::vector<std::string>{"*"});
  EXPECT_EQ(asked.filter, 1);
  EXPECT_EQ(asked.extension, "prn");
  EXPECT_EQ(asked.owner, 7);

  const auto start = [this](std::optional<std::string> folder, std::string name) {
    dialog.InitDir = std::move(folder);
    dialog.FileName = std::move(name);
    dialog.ShowOpen(0);
    return dialogs.questions.back().start.string();
  };
  expectEach(start,
             Row{"/f", "a", "/f/a"},
             Row{"/f/", "/g/a", "/g/a"},
             Row{"/f", "", "/f/"},
             Row{std::nullopt, "a", "a"});
}

TEST_F(OpenSaveDialog, FailuresHaveTheirNumbersAndTexts) {
  const auto failure = [this](std::uint32_t code, bool saves) {
    dialogs.answers = {{{}, 0, code}};
    dialog.CancelError = code == 0;
    try {
      return std::to_string(saves ? dialog.ShowSave(0) : dialog.ShowOpen(0));
    } catch (const AutomationError& error) {
      return std::to_string(error.number()) + " " + error.source() + ": " + error.description();
    }
  };
  const auto begins = [&](std::uint32_t code, std::string_view expected) {
    return std::string_view(failure(code, true)).starts_with(expected);
  };
  expectEach(failure,
             Row{0, true, "-2147221504 Common Dialog Save: Cancel was seleted"},
             Row{65535, false, "65535 Common Dialog Open: The dialog box could not be created"},
             Row{11, true, "11 Common Dialog Save: Unknown error code of 11"});
  const std::string save = " Common Dialog Save: ",
                    function = save + "The common dialog box function ";
  expectEach(begins,
             Row{1, "1" + save + "The lStructSize member of the initial", true},
             Row{2, "2" + function + "failed during initialization.", true},
             Row{5, "5" + function + "failed to load a specified string.", true},
             Row{6, "6" + function + "failed to find a specified resource.", true},
             Row{7, "7" + function + "failed to find a specified resource.", true},
             Row{8, "8" + function + "failed to lock a specified resource.", true},
             Row{9, "9" + function + "was unable to allocate memory for internal struct", true},
             Row{10, "10" + function + "was unable to lock the memory associated with a h", true},
             Row{12, "12" + save + "The RegisterWindowMessage function returned an err", true},
             Row{12289, "12289" + save + "An attempt to subclass a list box failed because", true},
             Row{12290, "12290" + save + "A file name is invalid.", true});
  EXPECT_TRUE(failure(3, true).ends_with("failed to provide a corresponding template."));
  EXPECT_TRUE(failure(4, true).ends_with("failed to provide a corresponding instance handle."));
}

TEST_F(OpenSaveDialog, SaysWhichSizeWouldDo) {
  const auto required = [this](std::int32_t size, Files files) {
    dialog.MaxFileSize = size;
    try {
      choose(files);
      return 0;
    } catch (const AutomationError& error) {
      EXPECT_EQ(error.number(), 12291);
      return dialog.MinimumBufferSizeRequired();
    }
  };
  expectEach(required,
             Row{5, Files{"/f/ab"}, 6},
             Row{6, Files{"/f/ab"}, 0},
             Row{4, Files{"/f/ab"}, -1},
             Row{7, Files{"/f/a", "/f/b"}, 8},
             Row{8, Files{"/f/a", "/f/b"}, 0});
}

}  // namespace
}  // namespace paperway
