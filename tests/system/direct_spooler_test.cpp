#include "backends/desktop/system/direct_spooler.h"

#include <sys/stat.h>
#include <sys/time.h>
#include <thread>

#include "support/error_of.h"
#include "support/expect_each.h"
#include "support/files.h"
#include "support/job_listener.h"
#include "support/test_folder.h"

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

  struct Case {
    std::string target, reason;
    std::uint64_t least = 0, most = 0;  // bytes that it took
  };
  for (const auto& [target, reason, least, most] :
       {Case{"socket://127.0.0.1:1", "127.0.0.1 port 1: Connection refused"},
        Case{"socket://no.such.host.invalid", "Cannot find \"no.such.host.invalid\": "},
        Case{"socket://" + hangsUp.address(), "It closed the connection", 1, 40 * kMegabyte},
        Case{"socket://" + neverReads.address(),
             "It took nothing for 0.3 seconds",
             1,
             40 * kMegabyte},
        Case{"file:///dev/full", "No space left on device"},
        Case{"file:///dev/no/such/printer", "/dev/no/such/printer: No such file or directory"},
        Case{"file://" + fifo, fifo + ": No such device or address"},
        Case{"file://" + fifo + "/file", "Cannot write \"" + fifo + "/file\": no new file can be"},
        Case{"|exit 3", "Its command ended with status 3", 0, kMegabyte},
        Case{"|kill -9 $$", "Its command was ended by signal 9", 0, kMegabyte},
        Case{"|head -c 1048576", "Its command stopped reading", kMegabyte, 2 * kMegabyte},
        Case{"|sleep 1000", "It took nothing for 0.3 seconds", 1, kMegabyte},
        Case{"|cat; sleep 1000", "It took nothing for 0.3 seconds", 50 * kMegabyte, 50 * kMegabyte},
        Case{"|cat; exit 7", "Its command ended with status 7", 50 * kMegabyte, 50 * kMegabyte}}) {
    const SpoolError error = failureOf(target, 50);
    EXPECT_EQ(error.reason().substr(0, reason.size()), reason) << target;
    EXPECT_GE(error.accepted(), least) << target;
    EXPECT_LE(error.accepted(), most) << target;
  }
}

TEST_F(Direct, StandstillEndsWhenTheUserWantsToStop) {
  const volatile std::sig_atomic_t stop = SIGINT;
  JobListener neverReads(JobListener::Manner::neverReads);
  const std::string socket = "socket://" + neverReads.address();
  for (const std::string& target :
       {socket, std::string("|sleep 99"), std::string("|cat; sleep 99")}) {
    file_.add({"P", target});
    const auto job = DirectSpooler(file_, Patience(DirectSpooler::kTimeout, &stop)).open("P");
    const std::string error = errorOf([&] {
      job->start("report", DocumentFormat::raw);
      job->write(std::string(40 << 20, 'x'));
      job->end();
    });
    EXPECT_NE(error.find("The job was stopped"), error.npos) << target << ": " << error;
  }
}

TEST_F(Direct, SignalNeitherEndsAWaitNorMakesItLonger) {
  struct sigaction heard {};  // and calls that wait are not taken up again
  heard.sa_handler = [](int) {};
  sigaction(SIGALRM, &heard, nullptr);
  const itimerval often{{0, 3000}, {0, 3000}};
  setitimer(ITIMER_REAL, &often, nullptr);
  JobListener neverReads(JobListener::Manner::neverReads);
  const std::string socket = "socket://" + neverReads.address();
  for (const std::string& target :
       {socket, std::string("|sleep 9"), std::string("|cat; sleep 9")}) {
    EXPECT_EQ(failureOf(target, 50).reason(), "It took nothing for 0.3 seconds") << target;
  }
  EXPECT_EQ(failureOf("|cat", 1).reason(), "nothing failed");
  const itimerval never{};
  setitimer(ITIMER_REAL, &never, nullptr);
  signal(SIGALRM, SIG_DFL);
}

TEST_F(Direct, FileThatIsTheReportIsNotReplaced) {
  const std::string path = folder_.path / "report";
  replaceFile(path, "the report", "test");
  std::filesystem::create_symlink("report", folder_.path / "link");
  for (const char* name : {"report", "link"}) {
    file_.add({"P", "file://" + (folder_.path / name).string()});
    const auto job = DirectSpooler(file_).open("P");
    job->setSources({folder_.path / "other", path});
    EXPECT_THROW(job->start("report", DocumentFormat::raw), SpoolError) << name;
  }
  EXPECT_EQ(readFile(path, "test"), "the report");
}

TEST_F(Direct, PrintersThatAreAddedAtOnceAreAllKept) {
  constexpr int kWriters = 30;
  std::vector<std::thread> writers;
  for (int i = 0; i < kWriters; ++i) {
    writers.emplace_back([this, i] { file_.add({std::to_string(i), "|cat"}); });
  }
  for (std::thread& writer : writers) writer.join();
  EXPECT_EQ(file_.read().size(), kWriters);
  EXPECT_EQ(std::filesystem::status(file_.path()).permissions(), std::filesystem::perms(0600));
}

TEST_F(Direct, CommandOfLocalDosMayBeAnyThatAJobTakes) {
  const std::string report = folder_.path / "report";
  const std::string out = folder_.path / "out";
  replaceFile(report, "text\f", "test");
  for (const char* tail : {" # note", "; exit 0", " && (exit 0)"}) {
    file_.add({"P", "|cat > " + out + tail});
    replaceFile(out, "", "test");
    EXPECT_EQ(std::system(DirectPrinters(file_).sendCommand("P", report).c_str()), 0) << tail;
    EXPECT_EQ(readFile(out, "test"), "text\f") << tail;
  }
}

TEST_F(Direct, LocalDosDoesNotEmptyAReportForItself) {
  const std::string report = folder_.path / "the report";
  const std::string copy = folder_.path / "copy";
  file_.add({"P", "file://" + report});
  const auto send = [&](const char* text) {
    replaceFile(copy, text, "test");
    EXPECT_EQ(std::system(DirectPrinters(file_).sendCommand("P", copy).c_str()), 0);
    return readFile(report, "test");
  };
  EXPECT_EQ(send("text\f"), "text\f");
  std::filesystem::last_write_time(report, {});
  EXPECT_EQ(send("text\f"), "text\f");
  EXPECT_EQ(std::filesystem::last_write_time(report), std::filesystem::file_time_type());
  EXPECT_EQ(send("another\f"), "another\f");
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
  EXPECT_EQ(DirectPrinters(file_).current(), "Wide one");
}

TEST_F(Direct, TargetsAreCheckedBeforeTheyAreKept) {
  const auto placeAndPort = [](const char* target) {
    return parseTarget(target).place + "; " + parseTarget(target).port;
  };
  expectEach(placeAndPort,
             Row{"socket://printer", "printer; 9100"},
             Row{"socket://10.0.0.7:515/", "10.0.0.7; 515"},
             Row{"socket://[fe80::1]", "fe80::1; 9100"},
             Row{"socket://[::1]:91", "::1; 91"},
             Row{"file:///dev/usb/lp0", "/dev/usb/lp0; "},
             Row{"|cat > '/tmp/a b'", "cat > '/tmp/a b'; "});
  for (const char* target : {"socket://", "socket://host:port", "file://relative", "| ", "lpt1"}) {
    EXPECT_THROW(parseTarget(target), AutomationError) << target;
  }
  for (const char* name : {"", "#1", "a\tb", "a\nb"}) {
    EXPECT_THROW(file_.add({name, "|cat"}), AutomationError) << name;
  }
}

}  // namespace
}  // namespace paperway::desktop
