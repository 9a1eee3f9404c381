#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "util/value.h"

namespace paperway {

/// A format pattern of the automation platform ("0.00", "#,##0", "dd-mmm-yyyy", "@@@@"), compiled
/// once and applied often. English names, "." as the decimal mark and "," between thousands,
/// whatever the process locale. Any text compiles: what is no symbol stands for itself.
class FormatPattern {
 public:
  FormatPattern() = default;
  explicit FormatPattern(std::string_view pattern);

  /// Appends the value in this pattern (UTF-8). An empty pattern gives the default text form.
  void append(std::string& out, ValueView value) const;
  std::string operator()(ValueView value) const;
};

}  // namespace paperway
