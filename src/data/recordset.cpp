#include "paperway/recordset.h"

#include "paperway/automation_error.h"
#include "util/text.h"

namespace paperway {

std::ptrdiff_t Recordset::findField(std::string_view name) const {
  for (std::size_t i = 0; i < fieldCount(); ++i) {
    if (equalIgnoringCase(fieldName(i), name)) return static_cast<std::ptrdiff_t>(i);
  }
  return -1;
}

std::size_t Recordset::fieldOrdinal(std::string_view name) const {
  const std::ptrdiff_t found = findField(name);
  if (found >= 0) return static_cast<std::size_t>(found);
  std::string message = "There is no field \"" + std::string(name) + "\"";
  if (fieldCount() == 0) {
    message += "; the recordset has no fields.";
  } else {
    message += "; the fields are";
    for (std::size_t i = 0; i < fieldCount(); ++i) {
      message += i == 0 ? " " : ", ";
      message += fieldName(i);
    }
    message += ".";
  }
  throw AutomationError(AutomationError::kItemNotFound, "Recordset", message);
}

Field Fields::Item(std::size_t ordinal) const {
  if (ordinal >= rows_.fieldCount()) {
    throw AutomationError(AutomationError::kItemNotFound, "Recordset",
                          "There is no field at place " + std::to_string(ordinal) + " of " +
                              std::to_string(rows_.fieldCount()) + ".");
  }
  return {rows_, ordinal};
}

}  // namespace paperway
