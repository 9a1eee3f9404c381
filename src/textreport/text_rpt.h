#pragma once

#include <memory>
#include <string>
#include <utility>

#include "paperway/arguments.h"
#include "paperway/automation_error.h"
#include "paperway/platform/storage.h"
#include "report/report_format.h"
#include "util/control_strings.h"

namespace paperway {

/// The rows lack the field of a group level.
class MissingGroupField : public AutomationError {
 public:
  MissingGroupField(std::string field, const char* source)
      : AutomationError(kItemNotFound, source,
                        "The data has no field \"" + field + "\" to group by."),
        field_(std::move(field)) {}

  const std::string& field() const { return field_; }

 private:
  std::string field_;
};

/// Writes the report of the rows under the table, whose totals it feeds. A failure is an
/// AutomationError, after which an earlier report of that name stands as it was: also that the
/// report would take the place of a file that the rows, or the table, come from. Before a
/// MissingGroupField nothing has been touched.
void writeTextReport(TextRptArguments& arguments, const std::shared_ptr<ReportFormatTable>& table,
                     const DOSEFONTcHR& font, Storage& storage);

}  // namespace paperway
