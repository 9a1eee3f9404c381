#pragma once

#include <fstream>
#include <gtest/gtest.h>
#include <memory>
#include <stdexcept>
#include <string>
#include <unistd.h>

#include "../support/test_folder.h"
#include "backends/data/odbc/odbc_session.h"
#include "paperway/odbc.h"
#include "paperway/sqlite.h"
#include "support/error_of.h"

namespace paperway {

/// The server that tests/postgres.sh has started for the tests of this build; "ANSI" takes its
/// other driver.
inline std::string postgres(const std::string& attributes = "") {
  std::ifstream file(PAPERWAY_POSTGRES);
  std::string connection;
  if (!std::getline(file, connection)) {
    throw std::runtime_error(
        "no PostgreSQL server; run tests/postgres.sh start " PAPERWAY_POSTGRES);
  }
  if (attributes == "ANSI") return connection.replace(connection.find("Unicode"), 7, attributes);
  return connection + ";" + attributes;
}

/// A name of one test alone, on a server that others use too.
inline std::string ownName(const std::string& name) {
  static int count = 0;
  return name + "_" + std::to_string(getpid()) + "_" + std::to_string(++count);
}

/// Runs a statement that gives no rows.
inline void run(const std::string& connection, const std::string& statement) {
  const OdbcSession session(connection);
  const OdbcHandle handle(SQL_HANDLE_STMT, &session.handle());
  if (!SQL_SUCCEEDED(SQLExecDirect(handle.get(), odbcText(statement), SQL_NTS))) {
    throw std::runtime_error(handle.diagnostics());
  }
}

/// The same rows in a SQLite file and on the PostgreSQL server, behind every way to read them.
class TwoDatabases {
 public:
  std::string file() const { return (folder_.path / "é data.db").string(); }
  std::string sqlite(const std::string& attributes = "StepAPI=1") const {
    return "Driver=SQLite3;Database=" + file() + ";" + attributes;
  }
  void runOnBoth(const std::string& statement) const {
    run(sqlite(), statement);
    run(postgres(), statement);
  }

 private:
  TestFolder folder_;
};

/// A way to read them.
struct Way {
  const char* name;
  bool isPostgres;
  const char* attributes;  // of the connection; null is SQLite without ODBC
  OdbcDriver without{};    // abilities that the driver is taken not to have

  std::unique_ptr<Recordset> open(const TwoDatabases& databases, const std::string& query) const {
    if (attributes == nullptr) {
      return std::make_unique<SqliteRecordset>(SqliteDatabase(databases.file()), query);
    }
    const OdbcConnection connection(isPostgres ? postgres(attributes)
                                               : databases.sqlite(attributes));
    OdbcDriver driver = connection.driver();
    driver.wideText &= !without.wideText;
    driver.rereadsCells &= !without.rereadsCells;
    driver.rereadsInBlocks &= !without.rereadsInBlocks;
    return std::make_unique<OdbcRecordset>(connection, query, driver);
  }
};

inline const Way kWays[] = {
    {"SQLite itself", false, nullptr},
    {"SQLite", false, "StepAPI=1"},
    {"SQLite, all rows first", false, ""},
    {"SQLite, cell by cell", false, "StepAPI=1", {.rereadsCells = true}},
    {"PostgreSQL", true, ""},
    {"PostgreSQL, by a cursor", true, "UseDeclareFetch=1;Fetch=100"},
    {"PostgreSQL, row by row", true, "", {.rereadsInBlocks = true}},
    {"PostgreSQL, cell by cell", true, "", {.rereadsCells = true, .rereadsInBlocks = true}},
    {"PostgreSQL, narrow texts", true, "", {.wideText = true}},
    {"PostgreSQL, ANSI driver", true, "ANSI"},
};

}  // namespace paperway
