#pragma once

#include <memory>

#include "paperway/platform/storage.h"
#include "paperway/platform/workbook.h"

namespace paperway::workbook {

/// A workbook of Office Open XML. Its rows go to the disk as they come.
std::unique_ptr<Workbook> createXlsx(Storage& storage, const WorkbookTarget& target,
                                     const SheetPlan& plan);

}  // namespace paperway::workbook
