#include "backends/desktop/cups/cups_printers.h"
#include "backends/desktop/cups/cups_spooler.h"
#include "backends/desktop/qt/print_device.h"
#include "cups/cups_desk.h"
#include "web_fixture.h"

namespace paperway {
namespace {

/// Through a print service to a printer that takes PDF.
TEST_F(WebWindow, EachCopyIsAJobOfTheQueue) {
  if (!PrivateCups::canRun()) GTEST_SKIP() << "there is no print service";
  Desk service;
  desktop::CupsSpooler spooler;
  desktop::CupsPrinters printers;
  qt::PrintDevice device(machine_.storage, spooler);
  const Platform platform = machine_.platform().with(windows_).with(spooler, printers, device);
  Web web(platform);
  const std::string page =
      write("page.html", "<p>first<p style = page-break-after:always> </p><p>last");
  Class1(platform.with(web)).PreviewReportWindows({.Path1 = page});
  form_ = std::static_pointer_cast<frmBrowser>(runState().ModBrowserForm.lock());
  while (form_->MousePointer == mpHourglass) windows_.repaint();
  form_->Text3.Text = "2";
  form_->CmdPrint.click();
  for (int copy = 1; copy <= 2; ++copy) {
    const auto job = service.drawn.take();
    ASSERT_TRUE(job) << copy;
    const std::string text = textOf(write("job.pdf", *job));
    EXPECT_EQ(count(text, "\f"), 2u) << text;
    EXPECT_NE(text.find("Page 2 of 2"), std::string::npos) << text;
  }
  form_->unload();
}

}  // namespace
}  // namespace paperway
