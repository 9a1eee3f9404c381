#pragma once

#include "paperway/platform.h"

namespace paperway {

class FrmReport;

/// "Window" on a report window opens the report in the browser window; it is not offered where
/// there is none. Comes behind bindReportHtml().
void bindBrowserWindow(FrmReport& form, const Platform& platform);

}  // namespace paperway
