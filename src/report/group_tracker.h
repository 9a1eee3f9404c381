#pragma once

#include <string>

#include "paperway/recordset.h"
#include "report/report_plan.h"

namespace paperway {

/// What a row does to the groups of the rows before it.
struct GroupChange {
  bool innerEnds = false;
  bool outerEnds = false;
  bool outerBegins = false;
  bool innerBegins = false;
  bool innerBeginsAlone = false;  // its own text, or key, has changed
};

/// The two levels of groups over the rows of a report, which come sorted: a group begins where its
/// text differs, whatever the case, from that of the row before. The inner one also begins with
/// each outer one.
class GroupTracker {
 public:
  GroupTracker(const GroupPlan& inner, const GroupPlan& outer, const ReportRules& rules);

  /// The groups' texts are those of the row before, byte for byte, as in most rows.
  bool goOn(const Recordset& rows) const {
    return goesOn(rows, outer_, outerText_) && goesOn(rows, inner_, innerText_);
  }

  /// Compares the row in hand with the one before, and takes its place.
  GroupChange take(const Recordset& rows);

  /// Which groups the end of the rows closes.
  GroupChange close() const;

  /// Of the row taken last. Null is one blank.
  const std::string& innerText() const { return innerText_; }
  /// As its header shows it.
  const std::string& innerHeading() const { return innerIsNull_ ? nullHeading_ : innerText_; }
  const std::string& outerText() const { return outerText_; }

 private:
  static bool goesOn(const Recordset& rows, const GroupPlan& group, const std::string& before) {
    if (!group.isUsed()) return true;
    const ValueView value = rows.value(group.ordinal);
    return value.kind() == ValueView::Kind::text && value.text() == before;
  }

  bool outerDiffers(bool isNull) const;
  bool innerIsHeadedAgain(bool isNull) const;

  const GroupPlan& inner_;
  const GroupPlan& outer_;
  const ReportRules& rules_;
  const std::string nullHeading_;
  bool innerIsNull_ = false;
  std::string innerText_;  // of the row in hand, or of the row before when it is the same
  std::string outerText_;
  std::string innerRowKey_;  // both texts of the row in hand
  std::string innerKey_;     // of the row before; empty: no group has begun
  std::string outerKey_;
};

}  // namespace paperway
