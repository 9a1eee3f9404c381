#include "backends/desktop/system/folders.h"

#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <unistd.h>

#include "support/test_folder.h"
#include "util/automation_error.h"

namespace paperway::desktop {
namespace {

namespace fs = std::filesystem;

class FoldersTest : public testing::Test {
 protected:
  FoldersTest() {
    setenv("XDG_DATA_HOME", (root_ / "data").c_str(), 1);
    setenv("TMPDIR", (root_ / "tmp").c_str(), 1);
  }

  TestFolder folder_;
  const fs::path& root_ = folder_.path;
  Folders folders_;
};

TEST_F(FoldersTest, AreMadeOnDemandForTheUserAlone) {
  EXPECT_EQ(folders_.work(), root_ / "data/paperway/work");
  EXPECT_EQ(folders_.program(), root_ / "data/paperway/program");
  EXPECT_EQ(folders_.temporary(), root_ / "tmp" / ("paperway-" + std::to_string(geteuid())));
  for (const auto& entry : fs::recursive_directory_iterator(root_)) {
    EXPECT_EQ(entry.status().permissions(), fs::perms::owner_all) << entry.path();
  }
}

TEST_F(FoldersTest, AFolderThatCannotBeMadeIsAnError) {
  std::ofstream(root_ / "data") << "a file";
  EXPECT_THROW(folders_.work(), AutomationError);
  setenv("HOME", root_.c_str(), 1);
  setenv("XDG_DATA_HOME", "data", 1);  // a relative one counts for nothing
  EXPECT_EQ(folders_.work(), root_ / ".local/share/paperway/work");
}

TEST_F(FoldersTest, ATemporaryFolderThatIsALinkIsRefused) {
  fs::create_directories(root_ / "tmp");
  fs::create_directory_symlink(root_, root_ / "tmp" / ("paperway-" + std::to_string(geteuid())));
  EXPECT_THROW(folders_.temporary(), AutomationError);
}

}  // namespace
}  // namespace paperway::desktop
