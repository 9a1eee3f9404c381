#pragma once

#include <memory>

#include "paperway/platform/storage.h"

namespace paperway::headless {

/// Files by the standard library alone: replaced in one step, but neither synced nor locked, and
/// without the owner of what they replace.
std::unique_ptr<paperway::Storage> plainStorage();

}  // namespace paperway::headless
