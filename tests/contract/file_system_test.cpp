#include <fcntl.h>
#include <sys/stat.h>

#include "contract/machine_fixture.h"

namespace paperway {
namespace {

template <class Machine>
class FileSystemTest : public MachineTest<Machine> {
 protected:
  FileSystem& files_ = this->machine_.files();
  const std::string file_ = this->folder_.path / "file";
  const std::string none_ = this->folder_.path / "none";
};
TYPED_TEST_SUITE(FileSystemTest, Machines);

TYPED_TEST(FileSystemTest, TemporaryNamesAreNewAndHaveNoFolder) {
  FileSystem& files = this->files_;
  EXPECT_TRUE(files.FolderExists(files.GetSpecialFolder(FileSystem::SpecialFolder::temporary)));
  const std::string name = files.GetTempName();
  EXPECT_NE(name, files.GetTempName());
  EXPECT_FALSE(std::filesystem::path(name).has_parent_path());
}

TYPED_TEST(FileSystemTest, FilesAreAppendedToAndFoldersMade) {
  FileSystem& files = this->files_;
  replaceFile(this->file_, "one", "test");
  files.append(this->file_, "");
  files.append(this->file_, "\r\ntwo");
  EXPECT_EQ(readFile(this->file_, "test"), "one\r\ntwo");
  const std::string link = this->folder_.path / "link";
  std::filesystem::create_symlink("file", link);
  EXPECT_EQ(files.GetFile(link).ShortPath, this->file_);
  EXPECT_TRUE(files.FolderExists(this->folder_.path / "."));
  for (const std::string& other : {this->file_, this->none_, std::string()}) {
    EXPECT_FALSE(files.FolderExists(other)) << other;
  }
  for (int time = 0; time < 2; ++time) files.createFolder(this->none_);
  EXPECT_TRUE(files.FolderExists(this->none_));
}

TYPED_TEST(FileSystemTest, AMissingFileIsNamed) {
  for (const std::string& missing : {this->none_, (this->folder_.path / ".").string()}) {
    const std::string error = errorOf([&] { this->files_.GetFile(missing); });
    EXPECT_NE(error.find('"' + missing + '"'), error.npos) << error;
    EXPECT_THROW(this->files_.append(missing, "x"), AutomationError);
  }
  EXPECT_FALSE(std::filesystem::exists(this->none_));
}

TEST(SystemFileSystem, KnowsLocalTimeAndAFullDisk) {
  TestFolder folder;
  SystemMachine machine(folder.path);
  setenv("TZ", "IST-5:30", 1);
  tzset();
  const std::string path = folder.path / "file";
  replaceFile(path, "", "test");
  const timespec march[2] = {{1141547829, 0}, {1141547829, 0}};  // 2006-03-05 08:37:09 UTC
  utimensat(AT_FDCWD, path.c_str(), march, 0);
  EXPECT_EQ(machine.files().GetFile(path).DateLastModified, (Date{2006, 3, 5, 14, 7, 9}));
  EXPECT_THROW(machine.files().append("/dev/full", "x"), AutomationError);
}

}  // namespace
}  // namespace paperway
