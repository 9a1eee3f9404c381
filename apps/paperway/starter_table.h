#pragma once

#include <string>

#include "paperway/recordset.h"

namespace paperway::command {

/// A column table to begin with, for rows that it reads to their end: comma-separated values with
/// one column for each field, as wide as its longest value, in the order of the fields. Texts wider
/// than a line of paper has room for are told on standard error.
std::string starterTable(Recordset& rows);

}  // namespace paperway::command
