#pragma once

#include <CLI/CLI.hpp>
#include <memory>
#include <string>

#include "paperway/recordset.h"

namespace paperway::command {

/// The database that a command reads.
struct Source {
  std::string db;
  std::string odbc;

  void addOptions(CLI::App& app);

  /// The rows of a statement.
  std::unique_ptr<Recordset> rows(const std::string& statement) const;

  /// A column table: the rows of a statement, or a file of comma-separated values, which may leave
  /// out each field that may be null. One that may be endless is refused.
  std::unique_ptr<Recordset> columns(const std::string& fileOrStatement) const;
};

}  // namespace paperway::command
