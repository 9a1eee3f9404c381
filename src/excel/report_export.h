#pragma once

#include "paperway/platform.h"

namespace paperway {

class FrmReport;

/// The export command of the report window: rich text, plain text, a page of HTML, or the pick of
/// columns that makes a workbook of the report. A platform without workbooks says so when one is to
/// be made.
void bindReportExport(FrmReport& form, const Platform& platform);

}  // namespace paperway
