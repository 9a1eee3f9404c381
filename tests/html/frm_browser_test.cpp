#include "html/frm_browser.h"

#include "backends/headless/user.h"
#include "controls/input_events.h"
#include "support/class1_test.h"
#include "support/expect_each.h"

namespace paperway {
namespace {

using Calls = std::vector<std::string>;

const std::string kAppended = " <body onContextMenu='return false'> ";

class BrowserWindow : public Class1Test {
 protected:
  ~BrowserWindow() override {
    if (form_) form_->unload();
  }

  frmBrowser& open(PreviewReportWindowsArguments arguments = {}) {
    if (arguments.Path1.empty()) arguments.Path1 = write("page.html");
    class1_.PreviewReportWindows(arguments);
    form_ = std::static_pointer_cast<frmBrowser>(runState().ModBrowserForm.lock());
    return *form_;
  }
  std::string write(const std::string& name) {
    replaceFile(path(name), "<p>", "test");
    return path(name);
  }
  headless::User user() { return headless::User(*form_); }
  /// What the browser was asked for since the last call.
  Calls asked() { return std::exchange(browser_.calls, {}); }

  headless::Browser& browser_ = machine_.browser;
  std::shared_ptr<frmBrowser> form_;
};

TEST_F(BrowserWindow, ShowsTheFileUntilItIsClosed) {
  frmBrowser& form = open();
  EXPECT_EQ(asked(), (Calls{"open", "Navigate " + path("page.html")}));
  EXPECT_EQ(form.Caption, "Veldran Computer - Print Utility -Window Base");
  EXPECT_EQ(form.LVer.Caption, std::to_string(class1_.Verson));
  EXPECT_EQ(form.Text3.Text, "1");
  EXPECT_EQ(form.VScroll1.Value, 99);
  EXPECT_TRUE(class1_.RtWindows1());
  user().click("JeExit");
  EXPECT_FALSE(form.loaded());
  EXPECT_FALSE(class1_.RtWindows1());
  EXPECT_TRUE(runState().ModBrowserForm.expired());
}

TEST_F(BrowserWindow, OneOfThemTakesTheNextFile) {
  frmBrowser& form = open({.RPrint = 0});
  asked();
  EXPECT_EQ(&open({.Path1 = write("next.html")}), &form);
  EXPECT_EQ(asked(), Calls{"Navigate " + path("next.html")});
  EXPECT_EQ(machine_.windows.forms.size(), 1u);
  EXPECT_TRUE(form.CmdPrint.Enabled && form.JeweledButton1.Enabled && browser_.contextMenu);
  EXPECT_EQ(errorOf([&] { open({.Path1 = path("none.html")}); }),
            "There is no file \"" + path("none.html") + "\".");
  EXPECT_TRUE(form.loaded() && class1_.RtWindows1());
}

TEST_F(BrowserWindow, WithoutAFileOrABrowserDoesNotOpen) {
  errorOf([&] { open({.Path1 = path("none.html")}); });
  EXPECT_FALSE(class1_.RtWindows1());
  Platform bare = machine_.platform();
  bare.browser = nullptr;
  const std::string file = write("page.html");
  EXPECT_NE(errorOf([&] {
              Class1(bare).PreviewReportWindows({.Path1 = file, .RPrint = 0});
            }).find("not installed"),
            std::string::npos);
  EXPECT_EQ(bytesOf(file), "<p>");
}

TEST_F(BrowserWindow, LookOnlyChangesTheFileAndTakesPrintingAway) {
  frmBrowser& form = open({.RPrint = 0});
  EXPECT_EQ(bytesOf(path("page.html")), "<p>" + kAppended);
  EXPECT_FALSE(form.CmdPrint.Enabled || form.JeweledButton1.Enabled || browser_.contextMenu);
  user().click("lb1");
  EXPECT_TRUE(form.CmdPrint.Enabled);
  form.activate();
  EXPECT_FALSE(form.CmdPrint.Enabled);
  open({.RPrint = 0});
  EXPECT_EQ(bytesOf(path("page.html")), "<p>" + kAppended) << "of the file written anew";
  open({.Path1 = path("page.html"), .RPrint = 0});
  EXPECT_EQ(bytesOf(path("page.html")), "<p>" + kAppended + kAppended);
}

TEST_F(BrowserWindow, LandscapePassesThroughThePageSetup) {
  frmBrowser& form = open({.PL1 = "L"});
  EXPECT_EQ(asked().back(), "pageSetup L");
  user().click("CmdPrint");
  EXPECT_EQ(asked(), (Calls{"pageSetup L", "print"}));
  user().click("JeweledButton1");
  EXPECT_EQ(asked(), (Calls{"pageSetup L", "printPreview"}));
  browser_.failing = "pageSetup";
  form.activate();
  browser_.failing.clear();
  asked();
  open({.PL1 = "l"});
  user().click("JeweledButton1");
  EXPECT_EQ(asked().back(), "printPreview");
}

TEST_F(BrowserWindow, PrintsACopyAnOperation) {
  const std::tuple<const char*, const char*, std::size_t> cases[] = {{"1", "1", 1},
                                                                     {"3", "3", 3},
                                                                     {"0", "1", 1},
                                                                     {"", "1", 1},
                                                                     {"x", "1", 1},
                                                                     {"2x", "2x", 2},
                                                                     {"-1", "-1", 0},
                                                                     {"2.5", "2.5", 2}};
  frmBrowser& form = open();
  for (const auto& [typed, shown, copies] : cases) {
    asked();
    form.Text3.Text = typed;
    user().click("CmdPrint");
    EXPECT_EQ(asked(), Calls(copies, "print")) << typed;
    EXPECT_EQ(form.Text3.Text, shown);
    EXPECT_FALSE(form.CmdPrint.Enabled);
    user().click("lb1");
  }
  browser_.failing = "print";
  EXPECT_EQ(errorOf([&] { user().click("CmdPrint"); }), "print fails");
  EXPECT_TRUE(form.CmdPrint.Enabled);
}

TEST_F(BrowserWindow, TheBarCountsCopiesUpwards) {
  open();
  const auto copiesAt = [&](int bar) {
    user().scroll("VScroll1", bar);
    return form_->Text3.Text.get();
  };
  expectEach(copiesAt, Row{1, "99"}, Row{100, "0"}, Row{98, "2"}, Row{0, "99"});
}

TEST_F(BrowserWindow, TextSizeStaysBetweenItsEnds) {
  open();
  browser_.zoom = 3;
  std::string sizes;
  for (const char* control :
       {"SpLebal1", "SpLebal1", "SpLebal2", "SpLebal2", "SpLebal2", "SpLebal2", "SpLebal2"}) {
    user().click(control);
    sizes += std::to_string(browser_.zoom);
  }
  EXPECT_EQ(sizes, "4432100");
  user().press("brwWebBrowser", keyAdd, smCtrl);
  EXPECT_EQ(browser_.zoom, 1);
}

TEST_F(BrowserWindow, WaitsForTheDocumentToLayItselfOut) {
  browser_.holds = true;
  frmBrowser& form = open();
  const auto size = [&] { return std::pair(form.brwWebBrowser.Width, form.brwWebBrowser.Height); };
  EXPECT_EQ(form.MousePointer, mpHourglass);
  EXPECT_EQ(size(), std::pair(100, 30));
  user().resize(12000, 9000);
  EXPECT_EQ(size(), std::pair(100, 30));
  browser_.complete();
  EXPECT_EQ(form.MousePointer, mpDefault);
  EXPECT_EQ(size(), std::pair(11970, 7800));
  user().resize(10000, 8000);
  EXPECT_EQ(size(), std::pair(9970, 6800));
  EXPECT_EQ(std::pair(form.brwWebBrowser.Left, form.brwWebBrowser.Top), std::pair(30, 400));
  EXPECT_EQ(form.Frame1.Left, 10000 - form.Frame1.Width - 260);
}

TEST_F(BrowserWindow, IsReachedFromAReport) {
  replaceFile(path("report.txt"), "one\f", "test");
  class1_.PreviewReport(PreviewReportArguments::withEverything(path("report.txt")));
  const auto report = machine_.windows.forms.back();
  headless::User(*report).click("Label8");
  const std::string page = (machine_.folders.work() / "htmlexp.html").string();
  EXPECT_EQ(asked(), (Calls{"open", "Navigate " + page}));
  EXPECT_NE(bytesOf(page).find("one"), std::string::npos);
  EXPECT_TRUE(machine_.messageBox.shown.empty());
  headless::User(*report).click("CmdPrint");
  headless::User(*report).click("Label10");
  EXPECT_EQ(asked(), Calls{"Navigate " + page});
  report->unload();
  EXPECT_FALSE(class1_.RtWindows1()) << "though the browser window is open";
}

TEST_F(BrowserWindow, StartsTheCalculator) {
  open();
  user().click("Image1");
  EXPECT_EQ(machine_.shell.started, (std::vector<Calls>{{"calculator"}}));
}

}  // namespace
}  // namespace paperway
