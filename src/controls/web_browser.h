#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <string>

#include "controls/control.h"
#include "paperway/platform/browser.h"

namespace paperway {

/// Commands of a web browser control, and how they ask, by their published numbers.
enum OLECMDID {
  OLECMDID_PRINT = 6,
  OLECMDID_PRINTPREVIEW = 7,
  OLECMDID_PAGESETUP = 8,
  OLECMDID_ZOOM = 19,
};
enum OLECMDEXECOPT { OLECMDEXECOPT_PROMPTUSER = 1, OLECMDEXECOPT_DONTPROMPTUSER = 2 };

/// The browser; an AutomationError when there is none.
Browser& requireBrowser(Browser* browser);

/// A web page on a form. The page belongs to the control; a renderer finds its widget by it.
class WebBrowser : public Control, private BrowserEvents {
 public:
  /// An AutomationError when there is no browser.
  WebBrowser(Form& owner, std::string itsName, Browser* browser);

  std::function<void()> onBeforeNavigate2;
  std::function<void()> onDocumentComplete;

  bool suggestsLandscape = false;  // to who opens the page set-up

  void Navigate(const std::filesystem::path& file) { page_->Navigate(file); }

  /// Runs a command. OLECMDID_ZOOM sets the text size to `in`, or gives it into `out`.
  void ExecWB(OLECMDID cmdID, OLECMDEXECOPT cmdexecopt, const int* in = nullptr,
              int* out = nullptr);

  BrowserPage& page() { return *page_; }

 private:
  void BeforeNavigate2() override;
  void DocumentComplete() override;

  std::unique_ptr<BrowserPage> page_;
};

}  // namespace paperway
