#include "report/group_tracker.h"

#include "util/text.h"
#include "util/value_text.h"

namespace paperway {
namespace {

/// False for a null, which counts as one blank.
bool readText(std::string& text, const Recordset& rows, const GroupPlan& group) {
  text.clear();
  if (!group.isUsed()) return true;
  const ValueView value = rows.value(group.ordinal);
  if (value.isNull()) {
    text = ' ';
  } else {
    appendDefaultText(text, value);
  }
  return !value.isNull();
}

}  // namespace

GroupTracker::GroupTracker(const GroupPlan& inner, const GroupPlan& outer, const ReportRules& rules)
    : inner_(inner), outer_(outer), rules_(rules), nullHeading_(rules.nullHeading) {}

GroupChange GroupTracker::take(const Recordset& rows) {
  const bool outerIsNull = !readText(outerText_, rows, outer_);
  innerIsNull_ = !readText(innerText_, rows, inner_);
  innerRowKey_.assign(innerText_).append(outerText_);
  GroupChange change;
  change.outerBegins = outerDiffers(outerIsNull);
  change.outerEnds = change.outerBegins && !outerKey_.empty();
  if (inner_.isUsed()) {
    const bool again = change.outerBegins || innerIsHeadedAgain(outerIsNull);
    const std::string& own = rules_.innerEndsByOwnText && again ? innerText_ : innerRowKey_;
    const bool differs = !equalIgnoringCase(innerKey_, own);
    change.innerBegins = again || differs;
    change.innerBeginsAlone = !again;
    change.innerEnds = differs && !innerKey_.empty() && (again ? change.outerEnds : true);
    innerKey_ = innerRowKey_;
  }
  if (outer_.isUsed()) outerKey_ = outerText_;
  return change;
}

bool GroupTracker::outerDiffers(bool isNull) const {
  if (!outer_.isUsed() || (isNull && !rules_.nullBeginsOuterGroup)) return false;
  return !equalIgnoringCase(outerKey_, outerText_);
}

bool GroupTracker::innerIsHeadedAgain(bool isNull) const {
  if (!outer_.isUsed()) return false;
  if (isNull && !rules_.nullBeginsOuterGroup) return true;
  return rules_.caseHeadsInnerGroup && outerKey_ != outerText_;
}

GroupChange GroupTracker::close() const {
  return {.innerEnds = inner_.isUsed() && (rules_.closesUnbegunInner || !innerKey_.empty()),
          .outerEnds = outer_.isUsed() && !outerKey_.empty()};
}

}  // namespace paperway
