#pragma once

#include <string>
#include <vector>

#include "paperway/memory.h"

namespace paperway {

/// The columns of a report, each a row of the column table from its first field on; the fields that
/// a row leaves out, and empty ones, are null.
using Columns = std::vector<std::vector<std::string>>;

inline const std::vector<std::string> kColumnFields = {"fNM",
                                                       "fHeder",
                                                       "Sz",
                                                       "Dtyp",
                                                       "Ali",
                                                       "Spc",
                                                       "Lt",
                                                       "AllPageTot",
                                                       "GTot1",
                                                       "GTot2",
                                                       "Frmt",
                                                       "BoldGroup1",
                                                       "BoldGroup2",
                                                       "DupPrintYN",
                                                       "DupPrintField",
                                                       "FontNm"};

/// With these fields behind the usual ones; a row that has them leaves none of them null.
inline MemoryTable columnTable(const Columns& columns, const std::vector<std::string>& more = {}) {
  std::vector<std::string> names = kColumnFields;
  names.insert(names.end(), more.begin(), more.end());
  MemoryTable table(names);
  for (const auto& column : columns) {
    std::vector<Value> row(names.size());
    for (std::size_t i = 0; i < column.size(); ++i) {
      if (!column[i].empty() || i >= kColumnFields.size()) row[i] = column[i];
    }
    table.addRow(row);
  }
  return table;
}

}  // namespace paperway
