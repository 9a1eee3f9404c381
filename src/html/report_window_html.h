#pragma once

#include "paperway/platform.h"

namespace paperway {

class FrmReport;

/// Gives a report window its conversions to HTML, in its colours. The platform outlives the window.
void bindReportHtml(FrmReport& form, const Platform& platform);

}  // namespace paperway
