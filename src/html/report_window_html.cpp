#include "html/report_window_html.h"

#include "html/report_html.h"
#include "paperway/platform/message_boxes.h"
#include "preview/frm_report.h"

namespace paperway {
namespace {

ReportHtmlColors colorsOf(FrmReport& form) {
  const auto color = [&form](int index) {
    return static_cast<std::int32_t>(Color{form.TXt[index].BackColor});
  };
  return {.page = color(4), .wide = color(0), .bold = color(1), .condensed = color(3)};
}

}  // namespace

void bindReportHtml(FrmReport& form, const Platform& platform) {
  form.expHTml = [&form, platform] {
    convertReport({.report = form.ReportPath,
                   .html = form.CommonDialog1.FileName,
                   .colors = colorsOf(form),
                   .caller = "expHTml"},
                  form.dosFont, platform.storage);
    platform.messageBox.show(kExportComplete);
  };
  form.expHTml_1 = [&form, platform](const std::filesystem::path& HtmlFile,
                                     std::uint8_t NoMessage) {
    convertReport({.report = form.ReportPath,
                   .html = HtmlFile,
                   .colors = colorsOf(form),
                   .breaksPages = true,
                   .caller = "expHTml_1"},
                  form.dosFont, platform.storage);
    if (NoMessage != 1) platform.messageBox.show(kExportComplete);
  };
}

}  // namespace paperway
