#pragma once

#include <string>

#include "paperway/platform/workbook.h"

namespace paperway {

/// The workbooks of a platform; an AutomationError where it has none.
Workbooks& requireWorkbooks(Workbooks* workbooks, const std::string& caller);

}  // namespace paperway
