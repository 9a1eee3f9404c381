#pragma once

#include <filesystem>
#include <memory>

#include "paperway/export.h"
#include "paperway/platform/workbook.h"

namespace paperway {

class Storage;

/// Workbooks as files: ".xlsx" (Office Open XML, at most 1,048,576 rows), or ".xls" (the binary
/// format of 1997, at most 65,536 rows of 256 cells), in whatever case. A host hands it to Class1
/// with its platform:
///
///   WorkbookFiles workbooks(platform.storage);
///   Class1 report(platform.with(workbooks));
///
/// A cell holds 32,767 UTF-16 units of text.
class PAPERWAY_API WorkbookFiles : public Workbooks {
 public:
  /// The storage outlives the object and its workbooks.
  explicit WorkbookFiles(Storage& storage) : storage_(storage) {}

  std::filesystem::path fileNamed(const std::filesystem::path& name) override;
  std::unique_ptr<Workbook> create(const WorkbookTarget& target, const SheetPlan& plan) override;

 private:
  Storage& storage_;
};

}  // namespace paperway
