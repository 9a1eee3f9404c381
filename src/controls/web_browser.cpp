#include "controls/web_browser.h"

#include "paperway/automation_error.h"

namespace paperway {

Browser& requireBrowser(Browser* browser) {
  if (browser != nullptr) return *browser;
  throw AutomationError(AutomationError::kApplicationDefined, "Browser",
                        "There is no browser window here: that part of the library is not "
                        "installed.");
}

WebBrowser::WebBrowser(Form& owner, std::string itsName, Browser* browser)
    : Control(owner, ControlKind::webBrowser, std::move(itsName), nullptr),
      page_(requireBrowser(browser).open(*this)) {}

void WebBrowser::ExecWB(OLECMDID cmdID, OLECMDEXECOPT cmdexecopt, const int* in, int* out) {
  const bool asks = cmdexecopt == OLECMDEXECOPT_PROMPTUSER;
  if (cmdID == OLECMDID_PAGESETUP && asks) return page_->pageSetup(suggestsLandscape);
  if (cmdID == OLECMDID_PRINTPREVIEW && asks) return page_->printPreview();
  if (cmdID == OLECMDID_PRINT && !asks) return page_->print();
  if (cmdID == OLECMDID_ZOOM && !asks && in != nullptr) return page_->setZoom(*in);
  if (cmdID == OLECMDID_ZOOM && !asks && out != nullptr) {
    *out = page_->zoom();
    return;
  }
  throw AutomationError(AutomationError::kInvalidCall, "ExecWB",
                        "The browser has no command " + std::to_string(cmdID) + " that way.");
}

void WebBrowser::BeforeNavigate2() {
  if (onBeforeNavigate2) onBeforeNavigate2();
}

void WebBrowser::DocumentComplete() {
  if (onDocumentComplete) onDocumentComplete();
}

}  // namespace paperway
