#pragma once

#include <string>
#include <vector>

#include "paperway/memory.h"

namespace paperway {

/// The columns of a report, each a row of the column table from its first field on; the fields that
/// a row leaves out, and empty ones, are null.
using Columns = std::vector<std::vector<std::string>>;

inline MemoryTable columnTable(const Columns& columns) {
  const std::vector<std::string> names = {"fNM",
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
  MemoryTable table(names);
  for (const auto& column : columns) {
    std::vector<Value> row(names.size());
    for (std::size_t i = 0; i < column.size(); ++i) {
      if (!column[i].empty()) row[i] = column[i];
    }
    table.addRow(row);
  }
  return table;
}

}  // namespace paperway
