#include "printing/print_file.h"

#include <numeric>

#include "printing/local_dos.h"
#include "printing/print_stream.h"
#include "session/settings_store.h"
#include "support/class1_test.h"
#include "support/expect_each.h"

namespace paperway {
namespace {

using Job = headless::Spooler::Job;

class PrintFileTest : public Class1Test {
 protected:
  PrintFileTest() {
    replaceFile(report_, "one\r\n\f\r\ntwo\r\n\f\r\n", "test");
    ReportViewSettings(machine_.storage, settingsPath(machine_.folders, ""))
        .setText(ReportViewKey::Ttt, "0302");
  }

  /// The one message since the last call.
  std::string message() {
    if (machine_.messageBox.shown.size() != 1) return "not one message";
    const auto shown = machine_.messageBox.shown.front();
    machine_.messageBox.shown.clear();
    EXPECT_EQ(shown.title, "Printer Error Information");
    EXPECT_EQ(shown.icon, MessageBoxes::Icon::information);
    return shown.text;
  }

  const std::string report_ = path("a report.txt");
  const std::string text_ = "one\r\n\ftwo\r\n\f";
};

TEST_F(PrintFileTest, DirectPrintSendsTheReportAndKeepsThePrinter) {
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
  EXPECT_TRUE(machine_.windows.forms.empty() && machine_.messageBox.shown.empty());
}

TEST_F(PrintFileTest, TearOtherThanOneFeedsNothing) {
  class1_.PrinterName = "Laser";
  PreviewReportArguments arguments{.Path1 = report_, .DirectPrint = 1, .Tear = 5};
  class1_.PreviewReport(arguments);
  EXPECT_EQ(arguments.Tear, 0);
  EXPECT_EQ(machine_.spooler.jobs.at(0)->printer, "Laser");
  EXPECT_EQ(machine_.spooler.jobs.at(0)->bytes, printerSetup({.draft = true}) + text_);
}

TEST_F(PrintFileTest, SaysWhatStopsAJob) {
  const auto print = [&](const std::string& file, const std::string& printer) {
    PrintFileArguments arguments{
        .fileName = file, .printerName = printer, .paperHeight = 12, .copies = 2};
    return errorOf([&] { PrintFile(arguments, machine_.platform(), runState()); });
  };
  EXPECT_EQ(print("/no/such/file", "Nobody"), "File /no/such/file does not exists");
  EXPECT_EQ(print(report_, "Nobody"), "The Printer Name (Nobody) wasn't recognized.");
  EXPECT_EQ(print(path(""), ""), "Cannot read \"" + path("") + "\": Is a directory.");
  machine_.spooler.breaksAfter =
      printerSetup({.paperHeight = 12, .draft = true}).size() + text_.size() + 7;
  EXPECT_EQ(print(report_, "Laser"),
            "The printer \"Laser\" took " + std::to_string(*machine_.spooler.breaksAfter) +
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

TEST_F(PrintFileTest, ADirectPrintThatFailsIsToldAndKeptForTheHost) {
  class1_.PrinterName = "Nobody";
  class1_.PreviewReport({.Path1 = report_, .DirectPrint = 1});
  EXPECT_EQ(message(), "The Printer Name (Nobody) wasn't recognized.");
  EXPECT_STREQ(class1_.lastFailure()->description(),
               "The Printer Name (Nobody) wasn't recognized.");
  class1_.PrinterName = "Laser";
  class1_.PreviewReport({.Path1 = report_, .DirectPrint = 1});
  EXPECT_EQ(class1_.lastFailure(), nullptr);
}

TEST_F(PrintFileTest, LocalDosCopiesTheReportAndStartsTheUsersScript) {
  const std::string copy = machine_.folders.work() / "localdos.prn";
  const std::string script = machine_.folders.work() / "Dosprn.script";
  const std::string device = path("lp0");
  machine_.names.port = device;
  const auto run = [&] { printLocalDos(report_, machine_.platform()); };
  const std::string head = "Sends a report to the printer. Made once; change it as you like.\n";
  run();
  EXPECT_EQ(bytesOf(script), head + "send \"Dot Matrix\" \"" + copy + "\"\n");
  EXPECT_EQ(machine_.shell.started.at(0), (std::vector<std::string>{script}));

  replaceFile(script, "changed", "test");
  replaceFile(report_, "another", "test");
  run();
  EXPECT_EQ(bytesOf(script), "changed");
  EXPECT_EQ(bytesOf(copy), "another");

  std::filesystem::remove(script);
  replaceFile(device, "", "test");
  run();
  EXPECT_EQ(bytesOf(script), head + "copy \"" + copy + "\" \"" + device + "\"\n");

  std::filesystem::remove(script);
  std::filesystem::remove(device);
  machine_.printers.infos.clear();
  EXPECT_EQ(errorOf(run),
            "There is no printer for \"Local Dos\": neither the device " + device +
                " nor a current printer.");
}

TEST_F(PrintFileTest, OrientationAndPaperAreSetWhereTheyDiffer) {
  machine_.printers.currentPrinter = "Laser";
  const auto calls = [&](const char* PL, std::int16_t Page_Sz, const PageSettings& before) {
    machine_.printers.kept["Laser"] = before;
    machine_.printers.calls.clear();
    class1_.Set_Orientation(PL, Page_Sz);
    return std::accumulate(
        machine_.printers.calls.begin(), machine_.printers.calls.end(), std::string());
  };
  using Before = PageSettings;
  expectEach(calls,
             Row{"P", 0, Before{1, 9}, ""},
             Row{"L", 0, Before{2, 9}, ""},
             Row{"L", 9, Before{2, 9}, ""},
             Row{"l", 1, Before{1, 1}, ""},
             Row{"L", 0, Before{1, 5}, "keep Laser 2 5setCurrent Laser"},
             Row{"P", 1, Before{1, 9}, "keep Laser 1 1setCurrent Laser"},
             Row{"", 39, Before{2, 9}, "keep Laser 1 39setCurrent Laser"});
}

TEST_F(PrintFileTest, PrintersWithoutSettingsAreToldAndRefusalsAreNot) {
  class1_.Set_Orientation("P", 0);
  EXPECT_TRUE(machine_.messageBox.shown.empty());
  class1_.Set_Orientation("L", 0);
  ASSERT_EQ(machine_.messageBox.shown.size(), 1U);
  EXPECT_EQ(machine_.messageBox.shown[0].text, "PRinter Setting No Set..");
  EXPECT_STREQ(class1_.lastFailure()->description(), "PRinter Setting No Set..");

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
