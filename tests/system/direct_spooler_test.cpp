#include "backends/desktop/system/direct_spooler.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "support/job_listener.h"
#include "support/table.h"
#include "support/test_folder.h"
#include "util/input_file.h"
#include "util/output_file.h"

namespace paperway::desktop {
namespace {

class Direct : public testing::Test {
 protected:
  /// The failure of a job of `megabytes` on a printer with that target.
  SpoolError failureOf(const std::string& target, int megabytes) {
    file_.add({"P", target});
    try {
      const auto job = quick_.open("P");
      job->start("report", DocumentFormat::raw);
      for (int i = 0; i < megabytes; ++i) job->write(std::string(1 << 20, 'x'));
      job->end();
    } catch (const SpoolError& error) {
      return error;
    }
    return {"P", "nothing failed"};
  }

  TestFolder folder_;
  DirectPrinterFile file_{folder_.path / "config" / "printers"};
  DirectSpooler quick_{file_, std::chrono::milliseconds(300)};
};

constexpr std::uint64_t kMegabyte = 1 << 20;

TEST_F(Direct, PrinterThatFailsSaysWhyAndHowFarTheJobCame) {
  JobListener hangsUp(JobListener::Manner::hangsUpAfterMegabyte);
  JobListener neverReads(JobListener::Manner::neverReads);
  const std::string fifo = folder_.path / "fifo";
  ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);

  using Row = std::tuple<std::string, std::string, std::uint64_t, std::uint64_t>;
  const auto cases = table(
      Row{"socket://127.0.0.1:1", "127.0.0.1 port 1: Connection refused", 0, 0},
      Row{"socket://no.such.host.invalid", "Cannot find \"no.such.host.invalid\": ", 0, 0},
      Row{"socket://" + hangsUp.address(), "It closed the connection", 1, 40 * kMegabyte},
      Row{"socket://" + neverReads.address(), "It took nothing for 0.3 seconds", 1, 40 * kMegabyte},
      Row{"file:///dev/full", "No space left on device", 0, 0},
      Row{"file:///dev/no/such/printer", "/dev/no/such/printer: No such file or directory", 0, 0},
      Row{"file://" + fifo, fifo + ": No such device or address", 0, 0},
      Row{"file://" + fifo + "/file",
          "Cannot write \"" + fifo + "/file\": no new file can be made in \"" + fifo + "\": Not a",
          0, 0},
      Row{"|exit 3", "Its command ended with status 3", 0, kMegabyte},
      Row{"|kill -9 $$", "Its command was ended by signal 9", 0, kMegabyte},
      Row{"|head -c 1048576", "Its command stopped reading", kMegabyte, 2 * kMegabyte},
      Row{"|sleep 1000", "It took nothing for 0.3 seconds", 1, kMegabyte},
      Row{"|cat; sleep 1000", "It took nothing for 0.3 seconds", 50 * kMegabyte, 50 * kMegabyte},
      Row{"|cat; exit 7", "Its command ended with status 7", 50 * kMegabyte, 50 * kMegabyte});
  for (const auto& [target, reason, least, most] : cases) {
    const SpoolError error = failureOf(target, 50);
    EXPECT_EQ(error.reason().substr(0, reason.size()), reason) << target;
    EXPECT_GE(error.accepted(), least) << target;
    EXPECT_LE(error.accepted(), most) << target;
  }
}

TEST_F(Direct, FileOfABrokenJobIsLeftAsItWas) {
  const std::string path = folder_.path / "out";
  replaceFile(path, "the day before", "test");
  file_.add({"P", "file://" + path});
  {
    const auto job = DirectSpooler(file_).open("P");
    job->start("report", DocumentFormat::raw);
    job->write("half");
  }
  EXPECT_EQ(readFile(path, "test"), "the day before");
}

TEST_F(Direct, PrintersAreKeptInAFileThatPeopleCanEdit) {
  std::filesystem::create_directories(file_.path().parent_path());
  replaceFile(file_.path(), "# ours\n\nno target\nOld\tfile:///tmp/x\n", "test");
  file_.add({"Wide one", "socket://[::1]:9101", std::chrono::seconds(90)});
  file_.add({"Old", "|lpr"});
  EXPECT_EQ(readFile(file_.path(), "test"),
            "# ours\n\nno target\nOld\t|lpr\nWide one\tsocket://[::1]:9101\t90\n");
  EXPECT_EQ(file_.find("Wide one")->timeout, std::chrono::seconds(90));
  EXPECT_TRUE(file_.remove("Old"));
  EXPECT_FALSE(file_.remove("Old"));

  DirectPrinters printers(file_);
  ASSERT_EQ(printers.list().size(), 1U);
  EXPECT_TRUE(printers.list()[0].raw);
  EXPECT_EQ(printers.current(), "Wide one");
  EXPECT_FALSE(printers.settings("Wide one"));
}

TEST_F(Direct, TargetsAreCheckedBeforeTheyAreKept) {
  using Row = std::tuple<const char*, const char*, const char*>;
  const auto cases = table(
      Row{"socket://printer", "printer", "9100"}, Row{"socket://10.0.0.7:515/", "10.0.0.7", "515"},
      Row{"socket://[fe80::1]", "fe80::1", "9100"}, Row{"socket://[::1]:91", "::1", "91"},
      Row{"file:///dev/usb/lp0", "/dev/usb/lp0", ""},
      Row{"|cat > '/tmp/a b'", "cat > '/tmp/a b'", ""}, Row{"socket://", nullptr, ""},
      Row{"socket://host:port", nullptr, ""}, Row{"file://relative", nullptr, ""},
      Row{"| ", nullptr, ""}, Row{"lpt1", nullptr, ""});
  for (const auto& [target, place, port] : cases) {
    if (place == nullptr) {
      EXPECT_THROW(parseTarget(target), AutomationError) << target;
      continue;
    }
    EXPECT_EQ(parseTarget(target).place, place);
    EXPECT_EQ(parseTarget(target).port, port);
  }
  for (const char* name : table("", "#1", "a\tb", "a\nb")) {
    EXPECT_THROW(file_.add({name, "|cat"}), AutomationError) << name;
  }
}

}  // namespace
}  // namespace paperway::desktop
