#include <fcntl.h>
#include <sys/stat.h>

#include "contract/machine_fixture.h"

namespace paperway {
namespace {

template <class Machine>
class FileSystemTest : public MachineTest<Machine> {
 protected:
  FileSystem& files() { return this->machine_.files(); }
  std::string path(const char* name) const { return (this->folder_.path / name).string(); }
};
TYPED_TEST_SUITE(FileSystemTest, Machines);

TYPED_TEST(FileSystemTest, TemporaryNamesAreNewAndHaveNoFolder) {
  FileSystem& files = this->files();
  EXPECT_TRUE(files.FolderExists(files.GetSpecialFolder(FileSystem::SpecialFolder::temporary)));
  const std::string name = files.GetTempName();
  EXPECT_NE(name, files.GetTempName());
  EXPECT_FALSE(std::filesystem::path(name).has_parent_path());
}

TYPED_TEST(FileSystemTest, TheShortPathHasNoLinks) {
  replaceFile(this->path("file"), "", "test");
  std::filesystem::create_symlink("file", this->path("link"));
  EXPECT_EQ(this->files().GetFile(this->path("./link")).ShortPath, this->path("file"));
}

TYPED_TEST(FileSystemTest, FolderExistsIsTrueForFoldersAlone) {
  replaceFile(this->path("file"), "", "test");
  EXPECT_TRUE(this->files().FolderExists(this->path(".")));
  for (const std::string& other : {this->path("file"), this->path("none"), std::string()}) {
    EXPECT_FALSE(this->files().FolderExists(other)) << other;
  }
  this->files().createFolder(this->path("none"));
  this->files().createFolder(this->path("none"));
  EXPECT_TRUE(this->files().FolderExists(this->path("none")));
}

TYPED_TEST(FileSystemTest, AppendWritesBehindWhatIsThere) {
  replaceFile(this->path("file"), "one", "test");
  this->files().append(this->path("file"), "");
  this->files().append(this->path("file"), "\r\ntwo");
  EXPECT_EQ(readFile(this->path("file"), "test"), "one\r\ntwo");
}

TYPED_TEST(FileSystemTest, AMissingFileIsNamed) {
  for (const std::string& missing : {this->path("none"), this->path(".")}) {
    const std::string error = errorOf([&] { this->files().GetFile(missing); });
    EXPECT_NE(error.find('"' + missing + '"'), error.npos) << error;
    EXPECT_THROW(this->files().append(missing, "x"), AutomationError);
  }
  EXPECT_FALSE(std::filesystem::exists(this->path("none")));
}

TEST(SystemFileSystem, DateLastModifiedIsLocalTime) {
  TestFolder folder;
  SystemMachine machine(folder.path);
  setenv("TZ", "IST-5:30", 1);
  tzset();
  const std::string path = folder.path / "file";
  replaceFile(path, "", "test");
  const timespec march[2] = {{1141547829, 0}, {1141547829, 0}};  // 2006-03-05 08:37:09 UTC
  utimensat(AT_FDCWD, path.c_str(), march, 0);
  EXPECT_EQ(machine.files().GetFile(path).DateLastModified, (Date{2006, 3, 5, 14, 7, 9}));
}

TEST(SystemFileSystem, AFullDiskIsAnError) {
  TestFolder folder;
  EXPECT_THROW(SystemMachine(folder.path).files().append("/dev/full", "x"), AutomationError);
}

}  // namespace
}  // namespace paperway
