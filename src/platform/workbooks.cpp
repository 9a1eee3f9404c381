#include "platform/workbooks.h"

#include "paperway/automation_error.h"

namespace paperway {

Workbooks& requireWorkbooks(Workbooks* workbooks, const std::string& caller) {
  if (workbooks != nullptr) return *workbooks;
  throw AutomationError(AutomationError::kApplicationDefined, caller,
                        "This program was made without workbooks.");
}

}  // namespace paperway
