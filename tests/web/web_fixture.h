#pragma once

#include <array>
#include <cstdio>
#include <memory>
#include <string>

#include "backends/desktop/qt/windows.h"
#include "html/frm_browser.h"
#include "paperway/web.h"
#include "support/class1_test.h"

namespace paperway {

/// The real engine on a machine whose printers, dialogs and set-up come from a script.
class WebTest : public Class1Test {
 protected:
  ~WebTest() override {
    if (const auto form = runState().ModBrowserForm.lock()) form->unload();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }

  std::string write(const std::string& name, const std::string& bytes) const {
    replaceFile(path(name), bytes, "test");
    return path(name);
  }

  /// The document as it is printed: the text of its pages, each ended by a form feed.
  std::string printed(const std::string& document, bool landscape = false) {
    struct : BrowserEvents {
      void BeforeNavigate2() override {}
      void DocumentComplete() override {}
    } events;
    const auto page = web_.open(events);
    page->Navigate(document);
    page->setLandscape(landscape);
    page->savePdf(path("out.pdf"));
    return textOf(path("out.pdf"));
  }

  static std::string textOf(const std::string& pdf) {
    const std::string command = "pdftotext -layout '" + pdf + "' -";
    const std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen(command.c_str(), "r"), pclose);
    std::string text;
    std::array<char, 4096> block{};
    while (const std::size_t size = fread(block.data(), 1, block.size(), pipe.get())) {
      text.append(block.data(), size);
    }
    return text;
  }

  static std::size_t count(const std::string& text, const std::string& part) {
    std::size_t found = 0;
    for (std::size_t at = 0; (at = text.find(part, at)) != std::string::npos; at += part.size()) {
      ++found;
    }
    return found;
  }

  Web web_{machine_.platform()};
};

/// With the browser window on a desk that draws.
class WebWindow : public WebTest {
 protected:
  frmBrowser& open(PreviewReportWindowsArguments arguments) {
    Class1(machine_.platform().with(windows_).with(web_)).PreviewReportWindows(arguments);
    form_ = std::static_pointer_cast<frmBrowser>(runState().ModBrowserForm.lock());
    while (form_->MousePointer == mpHourglass) windows_.repaint();
    return *form_;
  }

  qt::Windows windows_;
  std::shared_ptr<frmBrowser> form_;
};

}  // namespace paperway
