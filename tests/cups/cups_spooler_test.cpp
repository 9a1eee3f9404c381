#include "backends/desktop/cups/cups_spooler.h"

#include <algorithm>

#include "backends/desktop/cups/cups_printers.h"
#include "contract/spooler_contract.h"
#include "cups/cups_desk.h"

namespace paperway {

std::unique_ptr<Desk> desk;

namespace {

using desktop::CupsPrinters;
using desktop::CupsSpooler;

class DeskForAll : public testing::Environment {
 public:
  void SetUp() override {
    if (!PrivateCups::canRun()) GTEST_SKIP() << "There is no /usr/sbin/cupsd.";
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    desk = std::make_unique<Desk>();
  }
  void TearDown() override { desk.reset(); }
};

[[maybe_unused]] const auto* const kDeskForAll = testing::AddGlobalTestEnvironment(new DeskForAll);

class CupsDesk {
 public:
  Spooler& spooler() { return spooler_; }
  auto take() { return desk->raw.take(); }

 private:
  CupsSpooler spooler_;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Cups, SpoolerContract, CupsDesk);

std::unique_ptr<PrintJob> started(Spooler& spooler, const std::string& printer) {
  auto job = spooler.open(printer);
  if (!job) throw std::runtime_error("There is no printer " + printer);
  job->start("report", DocumentFormat::raw);
  return job;
}

TEST(CupsSpooler, RawDocumentGoesThroughADriversQueueAsItIs) {
  CupsSpooler spooler;
  const auto job = started(spooler, "Drawn");
  job->write("\x1BPtext\f");
  job->end();
  EXPECT_EQ(desk->drawn.take(), "\x1BPtext\f");
}

TEST(CupsSpooler, CancelledJobIsCancelledAtTheQueue) {
  CupsSpooler spooler;
  started(spooler, "P")->write("half");
  cups_job_t* jobs = nullptr;
  const int count = cupsGetJobs2(CUPS_HTTP_DEFAULT, &jobs, nullptr, 0, CUPS_WHICHJOBS_ALL);
  const auto* const newest =
      std::max_element(jobs, jobs + count, [](auto& one, auto& two) { return one.id < two.id; });
  ASSERT_GT(count, 0);
  EXPECT_EQ(newest->state, IPP_JSTATE_CANCELED);
  cupsFreeJobs(count, jobs);
}

TEST(CupsSpooler, SaysWhyAJobIsRefused) {
  CupsSpooler spooler(std::chrono::milliseconds(2000));
  desk->cups.administer("-p Shut -v socket://127.0.0.1:1 2>/dev/null");
  const auto job = started(spooler, "Shut");
  EXPECT_THROW(job->write("text"), SpoolError);

  cupsSetServer(("127.0.0.1:" + std::to_string(freePort())).c_str());
  EXPECT_EQ(spooler.open("P"), nullptr);  // no service, no printer
  EXPECT_TRUE(CupsPrinters().list().empty());
  EXPECT_EQ(CupsPrinters().current(), "");
  desk->cups.use();
}

TEST(CupsSpooler, ServerThatStandsStillOrDiesFailsTheJob) {
  CupsSpooler spooler(std::chrono::milliseconds(300));
  const std::string piece(1 << 20, 'x');
  for (const int signal : {SIGSTOP, SIGKILL}) {
    PrivateCups another;
    another.addRawQueue("P", desk->raw.address());
    try {
      const auto job = started(spooler, "P");
      job->write(piece);
      another.signal(signal);
      for (int i = 0; i < 100; ++i) job->write(piece);
      job->end();
      ADD_FAILURE() << "nothing failed by signal " << signal;
    } catch (const SpoolError& error) {
      EXPECT_GE(error.accepted(), piece.size());
      EXPECT_LT(error.accepted(), 50 * piece.size());
    }
    another.signal(SIGKILL);
  }
  desk->cups.use();
}

TEST(CupsSpooler, UserWhoWantsToStopDoesNotWaitForTheServer) {
  volatile std::sig_atomic_t stop = 0;
  CupsSpooler spooler(Patience(desktop::kPrintServiceTimeout, &stop));
  PrivateCups another;
  another.addRawQueue("P", desk->raw.address());
  auto job = started(spooler, "P");
  job->write("text");
  another.signal(SIGSTOP);
  stop = SIGINT;
  const auto begun = std::chrono::steady_clock::now();
  EXPECT_THROW(job->end(), SpoolError);
  job.reset();
  EXPECT_LT(std::chrono::steady_clock::now() - begun, std::chrono::seconds(5));
  another.signal(SIGKILL);
  desk->cups.use();
}

TEST(CupsSpooler, SilentServerIsWaitedForOnce) {
  const BoundSocket silent = bindToLoopback();
  listen(silent.descriptor, 8);
  cupsSetServer(("127.0.0.1:" + std::to_string(silent.port)).c_str());
  EXPECT_THROW(CupsSpooler(std::chrono::milliseconds(200)).open("P"), SpoolError);
  EXPECT_EQ(desktop::connectToCups(std::chrono::milliseconds(200)), nullptr);
  close(silent.descriptor);
  desk->cups.use();
}

TEST(CupsPrinters, AreTheQueuesWithTheirKindAndTheDefaultFirst) {
  CupsPrinters printers;
  std::string list;
  for (const PrinterInfo& each : printers.list())
    list += each.DeviceName + (each.raw ? " raw, " : ", ");
  EXPECT_TRUE(list.starts_with("Drawn, P raw, ")) << list;
  EXPECT_EQ(printers.current(), "Drawn");
  printers.setCurrent("P");
  EXPECT_EQ(printers.current(), "P");
}

TEST(CupsPrinters, KeepSettingsForTheUsersLaterPrints) {
  EXPECT_EQ(CupsPrinters().settings("Drawn"), (PageSettings{1, 1}));
  EXPECT_FALSE(CupsPrinters().settings("Nobody knows me"));
  for (const char* printer : {"Drawn", "P"}) {
    for (const PageSettings settings : {PageSettings{2, 9}, {1, 39}, {1, 5}}) {
      CupsPrinters().keep(printer, settings);
      EXPECT_EQ(CupsPrinters().settings(printer), settings) << printer;
    }
    CupsPrinters().keep(printer, {2, 999});
    EXPECT_EQ(CupsPrinters().settings(printer), (PageSettings{2, 5})) << printer;
  }
  CupsPrinters().keep("Drawn", {1, 1});  // as the other tests find it
}

TEST(CupsPrinters, SendCommandReachesThePrinter) {
  TestFolder folder;
  const std::filesystem::path file = folder.path / "it's a report";
  std::ofstream(file) << "report\r\n\f";
  EXPECT_EQ(std::system((CupsPrinters().sendCommand("P", file) + " >/dev/null").c_str()), 0);
  EXPECT_EQ(desk->raw.take(), "report\r\n\f");
}

}  // namespace
}  // namespace paperway
