#include "backends/data/workbook/xls_file.h"
#include "backends/data/workbook/xlsx_file.h"
#include "paperway/automation_error.h"
#include "paperway/workbook.h"
#include "util/path_text.h"
#include "util/text.h"

namespace paperway {

std::filesystem::path WorkbookFiles::fileNamed(const std::filesystem::path& name) {
  if (!name.has_extension()) return name.native() + ".xlsx";
  const std::string end = lowerCase(textOf(name.extension()));
  if (end == ".xlsx" || end == ".xls") return name;
  throw AutomationError(AutomationError::kInvalidCall, "WorkbookFiles",
                        "\"" + textOf(name) +
                            "\" is no name of a workbook: it ends in \".xlsx\", or in \".xls\" "
                            "for the older format.");
}

std::unique_ptr<Workbook> WorkbookFiles::create(const WorkbookTarget& target,
                                                const SheetPlan& plan) {
  const bool older = lowerCase(textOf(target.file.extension())) == ".xls";
  return older ? workbook::createXls(storage_, target, plan)
               : workbook::createXlsx(storage_, target, plan);
}

}  // namespace paperway
