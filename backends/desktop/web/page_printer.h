#pragma once

#include <QPageLayout>
#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "backends/desktop/web/safe_profile.h"

namespace paperway::web {

/// Told before each piece of a document; false stops the work.
using PrintProgress = std::function<bool(std::size_t piece, std::size_t pieces)>;

/// PDF documents that are, one behind the other, the pages of the document (its bytes), whose
/// folder the profile serves. One of many pages would take gigabytes as a whole: it goes through
/// the engine in pieces. An AutomationError when the engine fails, or the work is stopped.
std::vector<std::string> printedPieces(SafeProfile& profile, const std::string& document,
                                       int textSize, const QPageLayout& layout,
                                       const PrintProgress& progress);

}  // namespace paperway::web
