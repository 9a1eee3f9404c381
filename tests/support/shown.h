#pragma once

#include <string>

#include "paperway/value.h"
#include "util/value_text.h"

namespace paperway {

/// The kind of a value by a letter, then its default text.
inline std::string shown(ValueView value) {
  const char kinds[] = {'-', 't', 'r', 'i', 'd'};
  return kinds[static_cast<int>(value.kind())] + (" " + defaultText(value));
}

}  // namespace paperway
