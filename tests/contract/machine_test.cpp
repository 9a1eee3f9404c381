#include <cstdlib>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "backends/desktop/system/system.h"
#include "paperway/headless.h"
#include "support/error_of.h"
#include "support/files.h"
#include "support/test_folder.h"

namespace paperway {
namespace {

namespace fs = std::filesystem;

struct SystemMachine : desktop::System {
  explicit SystemMachine(const fs::path& root) {
    setenv("TMPDIR", (root / "temporary").c_str(), 1);
    setenv("XDG_CONFIG_HOME", (root / "config").c_str(), 1);
    setenv("XDG_DATA_HOME", (root / "data").c_str(), 1);
  }
};

template <class Machine>
class MachineTest : public testing::Test {
 protected:
  TestFolder folder_;
  Machine machine_{folder_.path};
  FileSystem& files_ = machine_.files;
  UserStore& store_ = machine_.userStore;
  const std::string file_ = folder_.path / "file";
  const std::string none_ = folder_.path / "none";
};

using Machines = testing::Types<headless::Headless, SystemMachine>;
TYPED_TEST_SUITE(MachineTest, Machines);

TYPED_TEST(MachineTest, TemporaryNamesAreNewAndHaveNoFolder) {
  FileSystem& files = this->files_;
  EXPECT_TRUE(files.FolderExists(files.GetSpecialFolder(FileSystem::SpecialFolder::temporary)));
  const std::string name = files.GetTempName();
  EXPECT_NE(name, files.GetTempName());
  EXPECT_FALSE(fs::path(name).has_parent_path());
}

TYPED_TEST(MachineTest, FilesAreAppendedToAndFoldersMade) {
  FileSystem& files = this->files_;
  replaceFile(this->file_, "one", "test");
  files.append(this->file_, "");
  files.append(this->file_, "\r\ntwo");
  EXPECT_EQ(readFile(this->file_, "test"), "one\r\ntwo");
  const std::string link = this->folder_.path / "link";
  fs::create_symlink("file", link);
  EXPECT_EQ(files.GetFile(link).ShortPath, this->file_);
  EXPECT_TRUE(files.FolderExists(this->folder_.path / "."));
  for (const std::string& other : {this->file_, this->none_, std::string()}) {
    EXPECT_FALSE(files.FolderExists(other)) << other;
  }
  for (int time = 0; time < 2; ++time) files.createFolder(this->none_);
  EXPECT_TRUE(files.FolderExists(this->none_));
}

TYPED_TEST(MachineTest, AMissingFileIsNamed) {
  for (const std::string& missing : {this->none_, (this->folder_.path / ".").string()}) {
    const std::string error = errorOf([&] { this->files_.GetFile(missing); });
    EXPECT_NE(error.find('"' + missing + '"'), error.npos) << error;
    EXPECT_THROW(this->files_.append(missing, "x"), AutomationError);
  }
  EXPECT_FALSE(fs::exists(this->none_));
}

using SystemTest = MachineTest<SystemMachine>;

TEST_F(SystemTest, KnowsLocalTimeAndAFullDisk) {
  setenv("TZ", "IST-5:30", 1);
  tzset();
  replaceFile(file_, "", "test");
  const timespec march[2] = {{1141547829, 0}, {1141547829, 0}};  // 2006-03-05 08:37:09 UTC
  utimensat(AT_FDCWD, file_.c_str(), march, 0);
  EXPECT_EQ(files_.GetFile(file_).DateLastModified, (Date{2006, 3, 5, 14, 7, 9}));
  EXPECT_THROW(files_.append("/dev/full", "x"), AutomationError);
}

TEST_F(SystemTest, FoldersAreMadeOnDemandForTheUserAlone) {
  const fs::path& root = folder_.path;
  const fs::path temporary = root / "temporary" / ("paperway-" + std::to_string(geteuid()));
  EXPECT_EQ(machine_.folders.work(), root / "data/paperway/work");
  EXPECT_EQ(machine_.folders.program(), root / "data/paperway/program");
  EXPECT_EQ(machine_.folders.temporary(), temporary);
  for (const auto& entry : fs::recursive_directory_iterator(root)) {
    EXPECT_EQ(entry.status().permissions(), fs::perms::owner_all) << entry.path();
  }
  fs::remove(temporary);
  fs::create_directory_symlink(root, temporary);
  EXPECT_THROW(machine_.folders.temporary(), AutomationError);
}

TEST_F(SystemTest, AFolderThatCannotBeMadeIsAnError) {
  replaceFile(folder_.path / "data", "a file", "test");
  EXPECT_THROW(machine_.folders.work(), AutomationError);
  setenv("HOME", folder_.path.c_str(), 1);
  setenv("XDG_DATA_HOME", "data", 1);  // a relative one counts for nothing
  EXPECT_EQ(machine_.folders.work(), folder_.path / ".local/share/paperway/work");
}

TYPED_TEST(MachineTest, GivesBackWhatWasSaved) {
  UserStore& store = this->store_;
  const std::string values[] = {
      "3", "", " ", "two\r\nlines\n", "a\tb\\n\\", "₹ \xFF", std::string("\0x", 2)};
  for (const std::string& value : values) {
    EXPECT_EQ(store.get("app", "Sticker", value, " "), " ");
    store.save("app", "Sticker", value, value);
  }
  for (const std::string& value : values) {
    EXPECT_EQ(store.get("app", "Sticker", value, "none"), value);
  }
}

TYPED_TEST(MachineTest, AddressesMatchWithoutRegardToCaseAndStandApart) {
  UserStore& store = this->store_;
  store.save("app", "Sticker", "1 MaxF Ä", "5");
  EXPECT_EQ(store.get("APP", "sticker", "1 maxf ä", ""), "5");
  EXPECT_EQ(store.get("app", "Sticker", "1 MaxF", ""), "");
  EXPECT_EQ(store.get("app", "Sticker1", " MaxF Ä", ""), "");
  EXPECT_EQ(store.get("ap", "pSticker", "1 MaxF Ä", ""), "");
}

TYPED_TEST(MachineTest, KeepsThePageSetup) {
  PageSetupStore& store = this->machine_.pageSetup;
  EXPECT_EQ(store.read(), PageSetup());
  const PageSetup setup{1.5, 0, 0.25, 11.69, 4, "", "&w &p\r\n"};
  store.write(setup);
  EXPECT_EQ(store.read(), setup);
}

TEST_F(SystemTest, AGarbledPageSetupIsNamed) {
  for (const char* key : {"margin_left", "text_size"}) {
    for (const char* value : {"", "wide", "-1", "1000"}) {
      store_.save("Paperway", "PageSetup", key, value);
      const std::string error = errorOf([&] { machine_.pageSetup.read(); });
      EXPECT_NE(error.find(key), error.npos) << value << ": " << error;
    }
    store_.save("Paperway", "PageSetup", key, "1");
  }
}

TEST_F(SystemTest, AGarbledFileIsAnErrorAndStays) {
  store_.save("a", "b", "c", "d");
  const std::string file = folder_.path / "config/paperway/store.txt";
  const std::string good = readFile(file, "test");
  EXPECT_EQ(good, "paperway store 1\na\tb\tc\td\n");
  for (const char* tail :
       {"x", "a\tb\tc\n", "a\tb\tc\td\te\n", "a\tb\tc\t\\x\n", "a\tb\tc\t\\\n"}) {
    const std::string bytes = good + tail;
    replaceFile(file, bytes, "test");
    EXPECT_THROW(store_.get("a", "b", "c", ""), AutomationError) << bytes;
    EXPECT_THROW(store_.save("a", "b", "c", "e"), AutomationError) << bytes;
    EXPECT_EQ(readFile(file, "test"), bytes);
  }
}

TEST_F(SystemTest, ProgramsThatSaveAtOnceLoseNothing) {
  constexpr int kPrograms = 4;
  constexpr int kKeys = 25;
  for (int program = 0; program < kPrograms; ++program) {
    if (fork() != 0) continue;
    for (int key = 0; key < kKeys; ++key) {
      store_.save("app", std::to_string(program), std::to_string(key), "x");
    }
    _exit(0);
  }
  for (int status = 0; wait(&status) > 0;) EXPECT_EQ(status, 0);
  for (int i = 0; i < kPrograms * kKeys; ++i) {
    EXPECT_EQ(store_.get("app", std::to_string(i / kKeys), std::to_string(i % kKeys), ""), "x");
  }
}

}  // namespace
}  // namespace paperway
