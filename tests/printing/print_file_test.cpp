#include "printing/print_file.h"

#include <gtest/gtest.h>
#include <tuple>

#include "backends/headless/headless.h"
#include "facade/class1.h"
#include "facade/run_state.h"
#include "facade/settings_store.h"
#include "printing/local_dos.h"
#include "printing/print_stream.h"
#include "support/error_of.h"
#include "support/test_folder.h"
#include "util/output_file.h"

namespace paperway {
namespace {

using Job = headless::Spooler::Job;

class PrintFileTest : public testing::Test {
 protected:
  PrintFileTest() {
    runState() = RunState();
    replaceFile(report_, "one\r\n\f\r\ntwo\r\n\f\r\n", "test");
  }

  /// The one message since the last call.
  std::string message() {
    if (machine_.messageBox.shown.size() != 1) return "not one message";
    const auto shown = machine_.messageBox.shown.front();
    machine_.messageBox.shown.clear();
    EXPECT_EQ(shown.title, "Printer Error Information");
    EXPECT_EQ(shown.icon, MessageBox::Icon::information);
    return shown.text;
  }

  ReportViewSettings settings() {
    return ReportViewSettings(settingsPath(machine_.folders, runState().ModGuidComp));
  }

  TestFolder folder_;
  headless::Headless machine_{folder_.path};
  Class1 class1_{machine_.platform()};
  const std::string report_ = folder_.path / "a report.txt";
  const std::string text_ = "one\r\n\ftwo\r\n\f";
};

TEST_F(PrintFileTest, DirectPrintSendsTheReportAndKeepsThePrinter) {
  settings().setText(ReportViewKey::Ttt, "0302");
  class1_.Pagelenth = 12;
  PreviewReportArguments arguments{
      .Path1 = report_, .DirectPrint = 1, .cc17 = 1, .cc12 = 2, .Tear = 1};
  class1_.PreviewReport(arguments);

  ASSERT_EQ(machine_.spooler.jobs.size(), 1U);
  const Job& job = *machine_.spooler.jobs[0];
  EXPECT_EQ(job.printer, "Dot Matrix");
  EXPECT_EQ(job.documentName, "a report.txt");
  EXPECT_EQ(job.state, Job::State::ended);
  EXPECT_EQ(job.bytes,
            printerSetup({.paperHeight = 12, .draft = true, .condensed = true, .linesIn = 3}) +
                text_ + std::string(40, ' ') + "\r\n" + std::string(40, ' ') + "\r\n");
  EXPECT_EQ(arguments.Tear, 1);
  EXPECT_EQ(runState().ModPrinterName, "Dot Matrix");
  EXPECT_TRUE(machine_.windows.forms.empty());
  EXPECT_TRUE(machine_.messageBox.shown.empty());
}

TEST_F(PrintFileTest, TearOtherThanOneFeedsNothing) {
  settings().setText(ReportViewKey::Ttt, "0302");
  class1_.PrinterName = "Laser";
  PreviewReportArguments arguments{.Path1 = report_, .DirectPrint = 1, .Tear = 5};
  class1_.PreviewReport(arguments);
  EXPECT_EQ(arguments.Tear, 0);
  EXPECT_EQ(machine_.spooler.jobs.at(0)->printer, "Laser");
  EXPECT_EQ(machine_.spooler.jobs.at(0)->bytes, printerSetup({.draft = true}) + text_);
}

TEST_F(PrintFileTest, SaysWhatStopsAJob) {
  const auto print = [&](const std::string& file, const std::string& printer) {
    PrintFileArguments arguments{.fileName = file, .printerName = printer, .copies = 2};
    EXPECT_FALSE(PrintFile(arguments, machine_.platform()));
    return message();
  };
  EXPECT_EQ(print("/no/such/file", "Nobody"), "File /no/such/file does not exists");
  EXPECT_EQ(print(report_, "Nobody"), "The Printer Name (Nobody) wasn't recognized.");
  EXPECT_EQ(print(folder_.path, ""),
            "Cannot read \"" + folder_.path.string() + "\": Is a directory.");
  const std::string setup = printerSetup({.draft = true});
  machine_.spooler.breaksAfter = setup.size() + text_.size() + 7;
  EXPECT_EQ(print(report_, "Laser"), "The printer \"Laser\" took " +
                                         std::to_string(*machine_.spooler.breaksAfter) +
                                         " bytes of the job and no more: The printer went away."
                                         " It has 3 whole pages.");
  EXPECT_EQ(machine_.spooler.jobs.back()->state, Job::State::cancelled);
  machine_.spooler.answers = false;
  EXPECT_EQ(print(report_, ""),
            "The printer \"Dot Matrix\" took nothing of the job: No print service answers.");
  machine_.spooler.answers = true;
  machine_.printers.infos.clear();
  EXPECT_EQ(print(report_, ""), "The Printer Name () wasn't recognized.");
}

TEST_F(PrintFileTest, LocalDosCopiesTheReportAndStartsTheUsersScript) {
  const std::string copy = machine_.folders.work() / "localdos.prn";
  const std::string script = machine_.folders.work() / "Dosprn.sh";
  const std::string device = folder_.path / "lp0";
  const auto run = [&] { printLocalDos(report_, machine_.platform(), device); };
  const std::string head =
      "#!/bin/sh\n# Sends a report to the printer. Made once; change it as you like.\n";
  run();
  EXPECT_EQ(readFile(script, "test"), head + "send \"Dot Matrix\" \"" + copy + "\"\n");
  EXPECT_EQ(machine_.shell.started.at(0), (std::vector<std::string>{"/bin/sh", script}));

  replaceFile(script, "changed", "test");
  replaceFile(report_, "another", "test");
  run();
  EXPECT_EQ(readFile(script, "test"), "changed");
  EXPECT_EQ(readFile(copy, "test"), "another");

  std::filesystem::remove(script);
  replaceFile(device, "", "test");
  run();
  EXPECT_EQ(readFile(script, "test"), head + "cat '" + copy + "' > '" + device + "'\n");

  std::filesystem::remove(script);
  std::filesystem::remove(device);
  machine_.printers.infos.clear();
  EXPECT_EQ(errorOf(run), "There is no printer for \"Local Dos\": neither the device " + device +
                              " nor a current printer.");
}

TEST_F(PrintFileTest, OrientationAndPaperAreSetWhereTheyDiffer) {
  const std::tuple<const char*, std::int16_t, PageSettings, std::vector<std::string>> cases[] = {
      {"P", 0, {1, 9}, {}},
      {"L", 0, {2, 9}, {}},
      {"L", 9, {2, 9}, {}},
      {"l", 1, {1, 1}, {}},
      {"L", 0, {1, 5}, {"keep Laser 2 5", "setCurrent Laser"}},
      {"P", 1, {1, 9}, {"keep Laser 1 1", "setCurrent Laser"}},
      {"", 39, {2, 9}, {"keep Laser 1 39", "setCurrent Laser"}},
  };
  machine_.printers.currentPrinter = "Laser";
  for (const auto& [PL, Page_Sz, before, calls] : cases) {
    machine_.printers.kept["Laser"] = before;
    machine_.printers.calls.clear();
    class1_.Set_Orientation(PL, Page_Sz);
    EXPECT_EQ(machine_.printers.calls, calls) << PL << Page_Sz;
  }
}

TEST_F(PrintFileTest, PrintersWithoutSettingsAreToldAndRefusalsAreNot) {
  class1_.Set_Orientation("P", 0);
  EXPECT_TRUE(machine_.messageBox.shown.empty());
  class1_.Set_Orientation("L", 0);
  ASSERT_EQ(machine_.messageBox.shown.size(), 1U);
  EXPECT_EQ(machine_.messageBox.shown[0].text, "PRinter Setting No Set..");

  machine_.printers.currentPrinter = "Laser";
  machine_.printers.failure = AutomationError(AutomationError::kPermissionDenied, "", "No.");
  class1_.Set_Orientation("L", 0);
  machine_.printers.currentPrinter = "";
  machine_.printers.infos.clear();
  class1_.Set_Orientation("L", 1);
  EXPECT_EQ(machine_.messageBox.shown.size(), 1U);
}

}  // namespace
}  // namespace paperway
