#include "html/frm_browser.h"

#include <algorithm>
#include <utility>

#include "paperway/automation_error.h"
#include "paperway/platform/shell.h"
#include "paperway/platform/windows.h"
#include "session/run_state.h"
#include "util/numbers.h"
#include "util/revision.h"

namespace paperway {
namespace {

constexpr int kLargestText = 4;
constexpr int kCopiesTop = 100;  // copies are this less the scroll bar's value
constexpr int kMostDigits = 3;   // of copies

constexpr int kPageTop = 400;
constexpr int kRowTop = 30;  // of the row above the page
constexpr int kRowHeight = 345;
constexpr int kButtonTop = 150;  // in the row below it
constexpr int kButtonHeight = 420;

}  // namespace

frmBrowser::frmBrowser(const Platform& platform, RunContext context)
    : Form("frmBrowser"),
      platform_(platform),
      run_(std::move(context)),
      brwWebBrowser(*this, "brwWebBrowser", platform.browser) {
  describe();
  layOut();
  bind();
}

void frmBrowser::describe() {
  Caption = "Veldran Computer - Print Utility -Window Base";
  Width = 15000;
  Height = 10500;
  MinWidth = 9000;
  MinHeight = 6000;

  CmdPrint.ToolTipText = JeweledButton1.ToolTipText = "Open Print Dilog Box";
  Image1.ToolTipText = "Calculator";
  SpLebal1.Caption = "+";
  SpLebal2.Caption = "\u2212";
  SpLebal1.View3D = SpLebal2.View3D = 1;
  SpLebal1.ToolTipText = SpLebal1.AccessibleName = "Larger text";
  SpLebal2.ToolTipText = SpLebal2.AccessibleName = "Smaller text";
  lb1.ToolTipText = "Allow printing again";
  lb1.TextAlignment = Alignment::center;
  LVer.TextAlignment = Alignment::right;
  LVer.AccessibleName = "Revision";
  brwWebBrowser.AccessibleName = "Document";

  Command1.TabStop = false;
  Frame1.Border = false;
  VScroll1.Min = 1;
  VScroll1.Max = 100;
  VScroll1.Value.setQuietly(99);
  Text3.MaxLength = kMostDigits;
  Text3.AccessibleName = VScroll1.AccessibleName = "No of Copies";

  place(Command1, 40, kPageTop + 5, 75, 20);
  place(Frame1, 0, 0, 7300, 720);
  place(Image1, 60, 180, 360, 360);
  place(Label3, 600, kButtonTop, 1400, kButtonHeight);
  place(Text3, 2040, kButtonTop + 45, 700, 330);
  place(VScroll1, 2740, kButtonTop + 45, 270, 330);
  place(CmdPrint, 4640, kButtonTop, 1200, kButtonHeight);
  place(JeExit, 6040, kButtonTop, 1200, kButtonHeight);
  place(Label1, 120, kRowTop, 600, kRowHeight);
  place(SpLebal1, 750, kRowTop, 405, kRowHeight);
  place(SpLebal2, 1200, kRowTop, 405, kRowHeight);
}

void frmBrowser::layOut() {
  place(brwWebBrowser, 30, kPageTop, Width - 30, Height - 1200);
  Frame1.Left = Width - Frame1.Width - 260;
  Frame1.Top = brwWebBrowser.bottom() + 20;
  place(JeweledButton1, 90, Frame1.Top + kButtonTop, 1300, kButtonHeight);
  place(lb1, (Width - 1400) / 2, kRowTop, 1400, kRowHeight);
  place(LVer, Width - 1000 - 200, kRowTop, 1000, kRowHeight);
}

void frmBrowser::bind() {
  brwWebBrowser.onBeforeNavigate2 = [this] { brwWebBrowser_BeforeNavigate2(); };
  brwWebBrowser.onDocumentComplete = [this] { brwWebBrowser_DocumentComplete(); };
  Command1.onClick = [this] { Command1_Click(); };
  CmdPrint.onClick = [this] { CmdPrint_Click(); };
  JeweledButton1.onClick = [this] { JeweledButton1_Click(); };
  VScroll1.onChange = [this] { VScroll1_Change(); };
  SpLebal1.onClick = [this] { SpLebal1_Click(); };
  SpLebal2.onClick = [this] { SpLebal2_Click(); };
  lb1.onClick = [this] { lb1_Click(); };
  Image1.onClick = [this] { Image1_Click(); };
  JeExit.onClick = [this] { JeExit_Click(); };
}

void frmBrowser::Form_Load() {
  const bool windowWasOpen = run_->ModWindowOpen;
  run_->ModWindowOpen = true;
  try {
    openFile();
  } catch (...) {
    run_->ModWindowOpen = windowWasOpen;  // no window opens
    throw;
  }
  LVer.Caption = std::to_string(kRevision);
}

void frmBrowser::openFile() {
  brwWebBrowser.Navigate(run_->ModBrowserPath);
  path_ = run_->ModBrowserPath;
  JeweledButton1.Enabled = CmdPrint.Enabled = true;
}

void frmBrowser::Form_Activate() {
  brwWebBrowser.suggestsLandscape = PL == "L";
  brwWebBrowser.page().offerContextMenu(RPrint != 0);
  if (PL == "L") Command1_Click();
  if (RPrint == 0) JeweledButton1.Enabled = CmdPrint.Enabled = false;
}

void frmBrowser::Form_Resize() {
  if (MousePointer != mpHourglass) layOut();
}

void frmBrowser::Form_Unload() {
  run_->ModWindowOpen = false;
  run_->ModBrowserForm.reset();
}

void frmBrowser::brwWebBrowser_BeforeNavigate2() {
  brwWebBrowser.Width = 100;
  brwWebBrowser.Height = 30;
  MousePointer = mpHourglass;
}

void frmBrowser::brwWebBrowser_DocumentComplete() {
  layOut();
  MousePointer = mpDefault;
}

void frmBrowser::Command1_Click() {
  if (PL != "L") return;
  try {
    brwWebBrowser.ExecWB(OLECMDID_PAGESETUP, OLECMDEXECOPT_PROMPTUSER);
  } catch (const AutomationError&) {
    // The document may not be ready yet; the next print asks again.
  }
}

void frmBrowser::CmdPrint_Click() {
  Command1_Click();
  if (leadingNumber(Text3.Text.get()) == 0) Text3.Text = "1";
  const double copies = leadingNumber(Text3.Text.get());
  for (int copy = 1; copy <= copies && loaded(); ++copy) {
    brwWebBrowser.ExecWB(OLECMDID_PRINT, OLECMDEXECOPT_DONTPROMPTUSER);
  }
  CmdPrint.Enabled = false;
}

void frmBrowser::JeweledButton1_Click() {
  Command1_Click();
  brwWebBrowser.ExecWB(OLECMDID_PRINTPREVIEW, OLECMDEXECOPT_PROMPTUSER);
}

void frmBrowser::VScroll1_Change() {
  Text3.Text = std::to_string(kCopiesTop - VScroll1.Value);
}

int frmBrowser::zoom() {
  int level = 0;
  brwWebBrowser.ExecWB(OLECMDID_ZOOM, OLECMDEXECOPT_DONTPROMPTUSER, nullptr, &level);
  return level;
}

void frmBrowser::SpLebal1_Click() {
  const int level = zoom();
  const int larger = level < kLargestText ? level + 1 : kLargestText;
  brwWebBrowser.ExecWB(OLECMDID_ZOOM, OLECMDEXECOPT_DONTPROMPTUSER, &larger);
}

void frmBrowser::SpLebal2_Click() {
  const int level = zoom();
  const int smaller = level > 0 ? level - 1 : 0;
  brwWebBrowser.ExecWB(OLECMDID_ZOOM, OLECMDEXECOPT_DONTPROMPTUSER, &smaller);
}

void frmBrowser::lb1_Click() {
  CmdPrint.Enabled = true;
}

void frmBrowser::Image1_Click() {
  if (const auto command = platform_.shell.calculator()) platform_.shell.start(*command);
}

void frmBrowser::JeExit_Click() {
  unload();
}

/// True when the key is used up.
bool frmBrowser::shortcut(int keyCode, int shift) {
  if (keyCode == keyAdd && shift == (smCtrl | smShift)) shift = smCtrl;  // where it needs both
  if (shift != smCtrl) return false;
  switch (keyCode) {
    case 'P':
      return CmdPrint.click();
    case keyAdd:
      return SpLebal1.click();
    case keySubtract:
      return SpLebal2.click();
    default:
      return false;
  }
}

void frmBrowser::Form_KeyDown(int& keyCode, int shift) {
  if (shortcut(keyCode, shift)) keyCode = 0;
}

std::shared_ptr<frmBrowser> showBrowser(const Platform& platform, const RunContext& run,
                                        std::filesystem::path file, const std::string& PL,
                                        std::uint8_t RPrint) {
  run->ModBrowserPath = std::move(file);
  auto form = std::static_pointer_cast<frmBrowser>(run->ModBrowserForm.lock());
  const bool isOpen = form != nullptr;
  if (!isOpen) form = std::make_shared<frmBrowser>(platform, run);
  isOpen ? form->openFile() : form->load();
  run->ModBrowserForm = form;
  form->PL = PL;
  form->RPrint = RPrint;
  platform.windows.show(form);
  return form;
}

}  // namespace paperway
