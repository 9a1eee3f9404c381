#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>

#include "controls/boxes.h"
#include "controls/buttons.h"
#include "controls/containers.h"
#include "controls/form.h"
#include "controls/sp_lebal.h"
#include "controls/web_browser.h"
#include "paperway/platform.h"
#include "paperway/run_context.h"

namespace paperway {

/// The window that shows an HTML file and prints it. It opens the file that its run context names
/// at the moment of load(). Failures of the browser leave its handlers as AutomationErrors.
class frmBrowser : public Form {
 public:
  /// An AutomationError when the platform has no browser.
  frmBrowser(const Platform& platform, RunContext context);

  std::string PL;           // orientation of the report, "L" for landscape
  std::uint8_t RPrint = 0;  // 0: look only

  void Form_Load() override;
  void Form_Activate() override;
  void Form_Resize() override;
  void Form_Unload() override;
  void Form_KeyDown(int& keyCode, int shift) override;

  /// Takes the path from the run context and opens it, with what a new window offers.
  void openFile();

  void brwWebBrowser_BeforeNavigate2();
  void brwWebBrowser_DocumentComplete();
  void Command1_Click();
  void CmdPrint_Click();
  void JeweledButton1_Click();
  void VScroll1_Change();
  void SpLebal1_Click();
  void SpLebal2_Click();
  void lb1_Click();
  void Image1_Click();
  void JeExit_Click();

 private:
  void describe();
  void bind();
  void layOut();
  int zoom();
  bool shortcut(int keyCode, int shift);

  Platform platform_;
  RunContext run_;
  std::filesystem::path path_;

 public:
  JeweledButton Command1{*this, "Command1", "Command1"};  // covered by the browser
  WebBrowser brwWebBrowser;

  // The row above the page.
  Label Label1{*this, "Label1", "Zoom"};
  SpLebal SpLebal1{*this, "SpLebal1"};
  SpLebal SpLebal2{*this, "SpLebal2"};
  Label lb1{*this, "lb1", " Pre-View"};
  Label LVer{*this, "LVer", ""};

  // The row below it.
  JeweledButton JeweledButton1{*this, "JeweledButton1", "Pre-&View"};
  Frame Frame1{*this, "Frame1"};
  PictureBox Image1{*this, "Image1", PictureBox::Picture::calculator, &Frame1};
  Label Label3{*this, "Label3", "No of Copies :", &Frame1};
  TextBox Text3{*this, "Text3", "1", &Frame1};
  ScrollBar VScroll1{*this, "VScroll1", &Frame1};
  JeweledButton CmdPrint{*this, "CmdPrint", "&Print", &Frame1};
  JeweledButton JeExit{*this, "JeExit", "E&xit", &Frame1};
};

/// Shows a file in the one browser window of the context, which is opened unless it is there; the
/// window on show then takes the new file. Returns while the window stays open.
std::shared_ptr<frmBrowser> showBrowser(const Platform& platform, const RunContext& run,
                                        std::filesystem::path file, const std::string& PL,
                                        std::uint8_t RPrint);

}  // namespace paperway
