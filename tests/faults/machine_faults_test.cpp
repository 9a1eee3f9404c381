// What machines do to programs: disks that are full, many programs at once, printers that break
// off.
#include <gtest/gtest.h>
#include <sys/mount.h>
#include <thread>

#include "backends/desktop/system/user_store.h"
#include "faults/faulty_run.h"
#include "support/job_listener.h"

namespace paperway {
namespace {

using Words = FaultyFolder::Words;

class MachineFaults : public testing::Test {
 protected:
  static Words command(const Words& words, const char* program = PAPERWAY_COMMAND) {
    Words all{program};
    all.insert(all.end(), words.begin(), words.end());
    return all;
  }
  Outcome run(const Words& words, const char* program = PAPERWAY_COMMAND) const {
    return folder_.run(command(words, program), Fault::none());
  }

  std::string bytesOf(const char* name) const { return readFile(folder_.path() / name); }

  FaultyFolder folder_;
};

std::size_t countOf(const std::string& part, const std::string& text) {
  std::size_t count = 0;
  for (std::size_t at = 0; (at = text.find(part, at)) != text.npos; at += part.size()) ++count;
  return count;
}

/// A disk of its own below a folder, if the user may make one.
class SmallDisk {
 public:
  explicit SmallDisk(std::filesystem::path path) : path_(std::move(path)) {
    std::filesystem::create_directories(path_);
    mounted = mount("tmpfs", path_.c_str(), "tmpfs", 0, "size=64k") == 0;
  }
  ~SmallDisk() {
    if (mounted) umount2(path_.c_str(), MNT_DETACH);
  }
  SmallDisk(const SmallDisk&) = delete;
  SmallDisk& operator=(const SmallDisk&) = delete;

  bool mounted = false;

 private:
  const std::filesystem::path path_;
};

TEST_F(MachineFaults, FullDiskIsToldAndTheEarlierFileStays) {
  folder_.fill({});
  const SmallDisk disk(folder_.path() / "disk");
  if (!disk.mounted) GTEST_SKIP() << "needs the right to mount";
  ASSERT_EQ(run({"ledger.db", "2000"}, PAPERWAY_MAKE_LEDGER).code, 0);
  const Words text{"text",
                   "--db",
                   "ledger.db",
                   "--data",
                   "SELECT * FROM sales",
                   "--columns",
                   "SELECT * FROM columns",
                   "--out"};
  const auto with = [](Words words, const char* last) { return words.push_back(last), words; };
  ASSERT_EQ(run(with(text, "report.txt")).code, 0);
  const std::string printer = "file://" + (folder_.path() / "disk/out.prn").string();
  ASSERT_EQ(run({"printers", "add", "File", printer}).code, 0);
  replaceFile(folder_.path() / "disk/own.ini", "[S]\r\nkey=value\r\n");
  for (const char* name : {"out.txt", "out.prn", "old.pdf", "old.png"}) {
    replaceFile(folder_.path() / "disk" / name, "earlier");
  }
  replaceFile(folder_.path() / "disk/filler", std::string(10 << 12, 'x'));
  const auto before = folder_.files();
  const std::string value(5000, 'v');
  for (const auto& [program, words] :
       {std::pair{PAPERWAY_COMMAND, with(text, "disk/out.txt")},
        std::pair{PAPERWAY_COMMAND, with(text, "disk/new.txt")},
        std::pair{PAPERWAY_COMMAND, Words{"print", "report.txt", "--printer", "File"}},
        std::pair{PAPERWAY_COMMAND,
                  Words{"setting", "set", "S", "key", value, "--file", "disk/own.ini"}},
        std::pair{PAPERWAY_DESK, Words{"print", "report.txt", "--pdf", "disk/old.pdf"}},
        std::pair{PAPERWAY_DESK, Words{"preview", "report.txt", "--picture", "disk/old.png"}}}) {
    const Outcome outcome = run(words, program);
    EXPECT_EQ(outcome.code, 1) << words.back();
    EXPECT_NE(outcome.complained.find("No space left on device"), std::string::npos)
        << words.back() << ": " << outcome.complained;
    EXPECT_NE(outcome.complained.find("disk/"), std::string::npos) << outcome.complained;
    for (const auto& [name, bytes] : before) {
      EXPECT_TRUE(!name.starts_with("disk/") || bytesOf(name.c_str()) == bytes) << name;
    }
    EXPECT_FALSE(std::filesystem::exists(folder_.path() / "disk/new.txt"));
    for (const auto& entry : std::filesystem::directory_iterator(folder_.path() / "disk")) {
      EXPECT_NE(entry.path().extension(), ".part") << words.back();
    }
  }
}

TEST_F(MachineFaults, FiftyWritersAtOnceAllKeepTheirs) {
  constexpr int kWriters = 50;
  folder_.fill({});
  std::vector<pid_t> running;
  for (int i = 0; i < kWriters; ++i) {
    const std::string name = "k" + std::to_string(i) + "x";
    for (const Words& words : {Words{"printers", "add", name, "|cat"},
                               Words{"setting", "set", "S", name, "kept", "--file", "own.ini"},
                               Words{"setting", "set", "S", name, "kept"}}) {
      running.push_back(folder_.start(command(words), Fault::none()));
    }
  }
  for (const pid_t process : running) EXPECT_EQ(FaultyFolder::wait(process), 0);
  EXPECT_EQ(countOf("x\t|cat\n", bytesOf("config/paperway/printers")), kWriters);
  EXPECT_EQ(countOf("x=kept\r\n", bytesOf("own.ini")), kWriters);
  EXPECT_EQ(countOf("x=kept\r\n", bytesOf("data/paperway/work/.ini")), kWriters);
}

TEST_F(MachineFaults, FiftyWritersOfTheStoreAllKeepTheirs) {
  constexpr int kWriters = 50;
  folder_.fill({});
  setenv("XDG_CONFIG_HOME", folder_.path().c_str(), 1);
  std::vector<std::thread> writers;
  for (int i = 0; i < kWriters; ++i) {
    writers.emplace_back([i] { desktop::UserStore().save("a", "s", std::to_string(i), "kept"); });
  }
  for (std::thread& writer : writers) writer.join();
  EXPECT_EQ(countOf("\tkept\n", bytesOf("paperway/store.txt")), kWriters);
}

TEST_F(MachineFaults, SocketPrinterThatFailsIsToldAndNamed) {
  using enum JobListener::Manner;
  JobListener closes(hangsUpAfterMegabyte);
  JobListener stalls(neverReads);
  folder_.fill({{"report.txt", std::string(20 << 20, 'x') + "\f"}});
  for (const auto& [name, address, reason] :
       {std::tuple{"Refuses", std::string("127.0.0.1:1"), "Connection refused"},
        std::tuple{"Closes", closes.address(), "It closed the connection"},
        std::tuple{"Stalls", stalls.address(), "It took nothing for 1 seconds"}}) {
    const Words add{"printers", "add", name, "socket://" + address, "--timeout", "1"};
    ASSERT_EQ(run(add).code, 0);
    const Outcome outcome = run({"print", "report.txt", "--printer", name});
    EXPECT_EQ(outcome.code, 1) << name;
    for (const char* part : {name, reason}) {
      EXPECT_NE(outcome.complained.find(part), std::string::npos) << outcome.complained;
    }
  }
}

}  // namespace
}  // namespace paperway
