#pragma once

#include <memory>

#include "paperway/platform/storage.h"
#include "paperway/platform/workbook.h"

namespace paperway::workbook {

/// A workbook of the binary format of 1997. Its rows, few as they are, wait in memory for its end.
std::unique_ptr<Workbook> createXls(Storage& storage, const WorkbookTarget& target,
                                    const SheetPlan& plan);

}  // namespace paperway::workbook
