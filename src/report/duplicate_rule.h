#pragma once

#include <string>

#include "report/report_plan.h"
#include "util/value_text.h"

namespace paperway {

/// A row is a duplicate when the text of one field is exactly that of the row before. A null never
/// makes one.
class DuplicateRule {
 public:
  explicit DuplicateRule(const ReportPlan& plan)
      : isUsed_(!plan.duplicateField.empty()), ordinal_(plan.duplicateOrdinal) {}

  /// Compares the row in hand with the one before, and takes its place.
  bool take(const Recordset& rows) {
    if (!isUsed_) return false;
    const ValueView value = rows.value(ordinal_);
    if (hasRow_ && isKey(value)) return true;
    hasRow_ = true;
    key_.clear();
    appendDefaultText(key_, value);
    return false;
  }

 private:
  bool isKey(const ValueView& value) const {
    if (value.kind() == ValueView::Kind::text) return value.text() == key_;
    return !value.isNull() && defaultText(value) == key_;
  }

  bool isUsed_;
  std::size_t ordinal_;
  bool hasRow_ = false;
  std::string key_;
};

}  // namespace paperway
