// Files on the machine itself: what replaces them, who may read them, and what failures leave.
#include "support/files.h"

#include <cerrno>
#include <gtest/gtest.h>
#include <set>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "backends/desktop/system/direct_printers.h"
#include "backends/desktop/system/folders.h"
#include "backends/desktop/system/work_file.h"
#include "paperway/headless.h"
#include "paperway/storage.h"
#include "platform/change_file.h"
#include "platform/file_error.h"
#include "platform/input_file.h"
#include "platform/output_file.h"
#include "support/error_of.h"
#include "support/expect_each.h"
#include "support/test_folder.h"

namespace paperway::desktop {
namespace {

namespace fs = std::filesystem;

class FilesOfTheMachine : public testing::Test {
 protected:
  FilesOfTheMachine() { umask(S_IWGRP | S_IWOTH); }

  fs::path in(const std::string& name) const { return folder_.path / name; }
  void write(const fs::path& path, std::string_view bytes, OutputOptions options = {}) {
    paperway::replaceFile(storage_, path, bytes, "test", std::move(options));
  }
  std::set<std::string> names() const {
    std::set<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder_.path)) {
      names.insert(entry.path().filename());
    }
    return names;
  }
  static unsigned modeOf(const fs::path& path) {
    return static_cast<unsigned>(fs::status(path).permissions());
  }
  /// The new file beside the target.
  fs::path part() const {
    for (const std::string& name : names()) {
      if (name.ends_with(".part")) return in(name);
    }
    return {};
  }

  TestFolder folder_;
  Storage storage_;
};

/// In a process of its own, which is gone without any destructor.
template <typename Work>
void diesAt(const Work& work) {
  const pid_t process = fork();
  if (process == 0) {
    work();
    _exit(0);
  }
  waitpid(process, nullptr, 0);
}

TEST_F(FilesOfTheMachine, TargetThatIsReadIsRefusedByAnyName) {
  replaceFile(in("data"), "rows");
  fs::create_directory(in("folder"));
  fs::create_symlink("data", in("link"));
  fs::create_symlink("link", in("link to it"));
  fs::create_hard_link(in("data"), in("other name"));
  for (const char* name :
       {"data", "./data", "folder/../data", "link", "link to it", "other name"}) {
    const std::string error = errorOf([&] {
      write(in(name), "report", {.inputs = {in("none"), in("data")}});
    });
    EXPECT_NE(error.find("it is read for what would be written"), error.npos) << name << error;
    EXPECT_EQ(readFile(in("data")), "rows") << name;
  }
  write(in("report"), "report", {.inputs = {in("data")}});
}

TEST_F(FilesOfTheMachine, FileIsReplacedAndAStreamWrittenTo) {
  const fs::path memory = "/dev/shm/paperway-" + std::to_string(getpid());
  for (const fs::path& path : {in("file"), memory}) {
    if (!fs::exists(path.parent_path())) continue;
    for (int i = 0; i < 2; ++i) write(path, "once");
    EXPECT_EQ(readFile(path), "once") << path;
    fs::remove(path);
  }
  int ends[2];
  ASSERT_EQ(socketpair(AF_UNIX, SOCK_STREAM, 0, ends), 0);
  for (const char* folder : {"/dev/fd/", "/proc/self/fd/"}) {
    write(folder + std::to_string(ends[0]), "said");
    char bytes[8];
    EXPECT_EQ(std::string(bytes, static_cast<std::size_t>(read(ends[1], bytes, 8))), "said");
  }
  close(ends[0]);
  close(ends[1]);
}

TEST_F(FilesOfTheMachine, NobodyReadsMoreThanBeforeWhileAFileIsWritten) {
  struct Case {
    unsigned before;  // 0: there is no file
    FileAccess access;
    unsigned during, after, mask = 0022;
  };
  for (const auto& [before, access, during, after, mask] :
       {Case{0600, FileAccess::usual, 0600, 0600},
        Case{0640, FileAccess::usual, 0600, 0640},
        Case{0666, FileAccess::usual, 0600, 0666},
        Case{0, FileAccess::usual, 0644, 0644},
        Case{0, FileAccess::usual, 0600, 0600, 0077},
        Case{0, FileAccess::owner, 0600, 0600, 0},
        Case{0644, FileAccess::owner, 0600, 0600, 0},
        Case{0, FileAccess::ownerRuns, 0700, 0700}}) {
    const mode_t usual = umask(mask);
    if (before != 0) replaceFile(in("file"), "old");
    if (before != 0) fs::permissions(in("file"), fs::perms(before));
    OutputFile file(storage_, in("file"), "test", {.access = access});
    EXPECT_EQ(modeOf(part()), during) << std::oct << before;
    file.write("new");
    file.commit();
    EXPECT_EQ(modeOf(in("file")), after) << std::oct << before;
    umask(usual);
    fs::remove(in("file"));
  }
}

TEST_F(FilesOfTheMachine, NewFileOfAKilledWriterGoesAndThatOfALivingOneStays) {
  OutputFile living(storage_, in("file"), "test");
  diesAt([&] { new OutputFile(storage_, in("file"), "test"); });
  EXPECT_EQ(names().size(), 2U);
  write(in("file"), "theirs");
  EXPECT_EQ(names().size(), 2U);  // the file, and what the living one writes
  living.write("ours");
  living.commit();
  EXPECT_EQ(names(), std::set<std::string>{"file"});
  EXPECT_EQ(readFile(in("file")), "ours");
}

TEST_F(FilesOfTheMachine, WorkFileOfAKilledProcessGoesAndThatOfALivingOneStays) {
  setenv("TMPDIR", folder_.path.c_str(), 1);
  Folders folders;
  const auto foldersOfWork = [&] {
    const fs::directory_iterator all(folders.temporary());
    return std::distance(begin(all), end(all));
  };
  {
    const WorkFile living(folders, "report");
    replaceFile(living.path(), "ours");
    diesAt([&] { replaceFile((new WorkFile(folders, "report"))->path(), "theirs"); });
    EXPECT_EQ(foldersOfWork(), 2);
    const WorkFile next(folders, "report");
    EXPECT_EQ(foldersOfWork(), 2);
    EXPECT_EQ(readFile(living.path()), "ours");
    EXPECT_EQ(modeOf(living.path().parent_path()), 0700U);
  }
  EXPECT_EQ(foldersOfWork(), 0);
}

// Each step of the storage in its turn.
TEST_F(FilesOfTheMachine, StepThatFailsIsToldAndLeavesTheEarlierFile) {
  headless::Storage failing(storage_);
  const auto replace = [&] { paperway::replaceFile(failing, in("file"), "new", "test"); };
  const auto change = [&] {
    changeFile(
        failing, in("file"), "test", FileAccess::owner, [](const std::string&) { return "new"; });
  };
  const auto read = [&] { paperway::readFile(failing, in("file"), "test"); };
  const std::set<std::string> harmless{"names", "removeAbandoned"};
  for (const std::function<void()>& work : {std::function<void()>(replace),
                                            std::function<void()>(change),
                                            std::function<void()>(read)}) {
    for (std::size_t step = 1;; ++step) {
      replaceFile(in("file"), "old");
      failing.steps = 0;
      failing.failAt = step;
      const std::string error = errorOf(work);
      if (failing.steps < step) break;  // there are no more
      const std::string bytes = readFile(in("file"));
      EXPECT_TRUE(bytes == "old" || bytes == "new") << failing.failed << ": " << bytes;
      EXPECT_EQ(names(), std::set<std::string>{"file"}) << failing.failed;
      if (harmless.contains(failing.failed)) continue;
      EXPECT_NE(error.find(in("file")), error.npos) << failing.failed << ": " << error;
      EXPECT_NE(error.find("No space left on device"), error.npos) << failing.failed << error;
    }
    EXPECT_GT(failing.failAt, 2U);
  }
}

TEST_F(FilesOfTheMachine, FileThatCannotBeLookedAtIsNotMissing) {
  fs::create_symlink("printers", in("printers"));  // leads to itself
  const DirectPrinterFile printers(in("printers"));
  for (const auto& look :
       {std::function<void()>([&] { printers.read(); }), std::function<void()>([&] {
          printers.add({"P", "|cat"});
        })}) {
    EXPECT_NE(errorOf(look).find("Too many levels of symbolic links"), std::string::npos);
  }
}

TEST_F(FilesOfTheMachine, ErrorHasTheNumberOfItsReason) {
  expectEach(
      [](int reason) {
        return errorNumber({reason, std::generic_category()});
      },
      Row{ENOSPC, AutomationError::kDiskFull},
      Row{EDQUOT, AutomationError::kDiskFull},
      Row{EFBIG, AutomationError::kDiskFull},
      Row{ENOMEM, AutomationError::kOutOfMemory},
      Row{ENOENT, AutomationError::kPathNotFound},
      Row{ENOTDIR, AutomationError::kPathNotFound},
      Row{EACCES, AutomationError::kPermissionDenied},
      Row{EROFS, AutomationError::kPermissionDenied},
      Row{EIO, AutomationError::kDeviceIo});
}

}  // namespace
}  // namespace paperway::desktop
