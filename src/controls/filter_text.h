#pragma once

#include <string_view>
#include <vector>

#include "paperway/platform/dialogs.h"

namespace paperway {

/// The filters of a text of descriptions and patterns in turn, "Text (*.txt)|*.txt;*.prn|…", which
/// ends at an item without characters. Every file matches "*.*", also one without a point.
std::vector<FileQuestion::Filter> filtersOf(std::string_view text, char divider);

}  // namespace paperway
