#include "html/report_window_browser.h"

#include "html/frm_browser.h"
#include "paperway/platform/folders.h"
#include "preview/frm_report.h"

namespace paperway {

void bindBrowserWindow(FrmReport& form, const Platform& platform) {
  if (platform.browser == nullptr) return;
  form.Label10.onClick = [&form, platform] {
    const std::filesystem::path page = platform.folders.work() / "htmlexp.html";
    form.expHTml_1(page, 1);
    showBrowser(platform, form.run, page, "", 1);
  };
  form.Label8.onClick = form.Label10.onClick;
}

}  // namespace paperway
