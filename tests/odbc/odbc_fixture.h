#pragma once

#include <fstream>
#include <gtest/gtest.h>
#include <memory>
#include <sql.h>
#include <sqlext.h>
#include <stdexcept>
#include <string>
#include <unistd.h>

#include "../support/test_folder.h"
#include "backends/data/odbc/odbc_recordset.h"
#include "backends/data/sqlite/sqlite_recordset.h"
#include "support/error_of.h"

namespace paperway {

/// The server that tests/postgres.sh has started for the tests of this build.
inline std::string postgres(const std::string& attributes = "") {
  std::ifstream file(PAPERWAY_POSTGRES);
  std::string connection;
  if (!std::getline(file, connection)) {
    throw std::runtime_error(
        "no PostgreSQL server; run tests/postgres.sh start " PAPERWAY_POSTGRES);
  }
  return connection + ";" + attributes;
}

/// A name of one test alone, on a server that others use too.
inline std::string ownName(const std::string& name) {
  static int count = 0;
  return name + "_" + std::to_string(getpid()) + "_" + std::to_string(++count);
}

/// Runs a statement that gives no rows.
inline void run(const std::string& connection, const std::string& statement) {
  const auto text = [](const std::string& from) {
    return reinterpret_cast<SQLCHAR*>(const_cast<char*>(from.c_str()));
  };
  SQLHENV environment = nullptr;
  SQLHDBC session = nullptr;
  SQLHSTMT handle = nullptr;
  SQLAllocHandle(SQL_HANDLE_ENV, nullptr, &environment);
  SQLSetEnvAttr(environment, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0);
  SQLAllocHandle(SQL_HANDLE_DBC, environment, &session);
  const bool connected = SQL_SUCCEEDED(SQLDriverConnect(session, nullptr, text(connection), SQL_NTS,
                                                        nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT));
  SQLAllocHandle(SQL_HANDLE_STMT, session, &handle);
  const bool ran = connected && SQL_SUCCEEDED(SQLExecDirect(handle, text(statement), SQL_NTS));
  SQLFreeHandle(SQL_HANDLE_STMT, handle);
  SQLDisconnect(session);
  SQLFreeHandle(SQL_HANDLE_DBC, session);
  SQLFreeHandle(SQL_HANDLE_ENV, environment);
  if (!ran) throw std::runtime_error("cannot run " + statement.substr(0, 300));
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

struct Way {
  const char* name;
  bool isPostgres;
  std::unique_ptr<Recordset> (*open)(const TwoDatabases& databases, const std::string& statement);
};

inline std::unique_ptr<Recordset> openAs(const std::string& connection,
                                         const std::string& statement,
                                         void (*limit)(OdbcDriver&) = nullptr) {
  const OdbcConnection opened(connection);
  OdbcDriver driver = opened.driver();
  if (limit != nullptr) limit(driver);
  return std::make_unique<OdbcRecordset>(opened, statement, driver);
}

inline const Way kWays[] = {
    {"SQLite itself", false,
     [](const TwoDatabases& d, const std::string& s) -> std::unique_ptr<Recordset> {
       return std::make_unique<SqliteRecordset>(SqliteDatabase(d.file()), s);
     }},
    {"SQLite", false,
     [](const TwoDatabases& d, const std::string& s) { return openAs(d.sqlite(), s); }},
    {"SQLite, all rows first", false,
     [](const TwoDatabases& d, const std::string& s) { return openAs(d.sqlite(""), s); }},
    {"SQLite, cell by cell", false,
     [](const TwoDatabases& d, const std::string& s) {
       return openAs(d.sqlite(), s, [](OdbcDriver& driver) { driver.rereadsCells = false; });
     }},
    {"PostgreSQL", true,
     [](const TwoDatabases&, const std::string& s) { return openAs(postgres(), s); }},
    {"PostgreSQL, by a cursor", true,
     [](const TwoDatabases&, const std::string& s) {
       return openAs(postgres("UseDeclareFetch=1;Fetch=100"), s);
     }},
    {"PostgreSQL, row by row", true,
     [](const TwoDatabases&, const std::string& s) {
       return openAs(postgres(), s, [](OdbcDriver& driver) { driver.rereadsInBlocks = false; });
     }},
    {"PostgreSQL, cell by cell", true,
     [](const TwoDatabases&, const std::string& s) {
       return openAs(postgres(), s, [](OdbcDriver& driver) {
         driver.rereadsInBlocks = driver.rereadsCells = false;
       });
     }},
    {"PostgreSQL, narrow texts", true,
     [](const TwoDatabases&, const std::string& s) {
       return openAs(postgres(), s, [](OdbcDriver& driver) { driver.wideText = false; });
     }},
    {"PostgreSQL, ANSI driver", true,
     [](const TwoDatabases&, const std::string& s) {
       std::string connection = postgres();
       return openAs(connection.replace(connection.find("Unicode"), 7, "ANSI"), s);
     }},
};

}  // namespace paperway
