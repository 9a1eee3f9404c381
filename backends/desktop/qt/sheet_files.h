#pragma once

#include <memory>

#include "paperway/platform/sheet.h"
#include "paperway/platform/storage.h"

namespace paperway::qt {

/// Pictures of sheets in a file. Needs a QGuiApplication.
std::unique_ptr<SheetJob> startSheetFile(Storage& storage, const SheetDocument& document);

}  // namespace paperway::qt
