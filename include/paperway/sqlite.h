#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "paperway/export.h"
#include "paperway/recordset.h"

struct sqlite3;
struct sqlite3_stmt;
struct sqlite3_value;

namespace paperway {

/// A SQLite database file, opened for reading alone. For one thread: it and its recordsets are not
/// to be used from two at a time. A file that is missing, unreadable, no database or locked for
/// longer than `patience` raises an AutomationError that names it and the reason.
class PAPERWAY_API SqliteDatabase {
 public:
  explicit SqliteDatabase(const std::filesystem::path& file,
                          std::chrono::milliseconds patience = std::chrono::seconds(2));

  /// Asked now and then while a statement works on its next row, a long sort included; true ends it
  /// with an AutomationError.
  void stopWhen(bool (*asked)()) const;

 private:
  friend class SqliteRecordset;

  std::string name_;  // of the file, for messages
  std::shared_ptr<sqlite3> connection_;
};

/// The rows of one statement that reads (SELECT, WITH, VALUES, a PRAGMA that gives rows), straight
/// from the database: no row is kept but the one in hand. The database stays open as long as one of
/// its recordsets does.
///
/// A value has the type in which it is stored: INTEGER, REAL, TEXT, NULL. A text that is an ISO
/// 8601 date gives a date in a column declared DATE, DATETIME or TIMESTAMP; a BLOB is a text when
/// it is UTF-8 and raises otherwise. RecordCount() is -1 until the last row has been reached.
class PAPERWAY_API SqliteRecordset : public Recordset {
 public:
  /// Stands on row 1. Any other kind of statement, parameters, or more than one statement raise.
  SqliteRecordset(const SqliteDatabase& database, std::string_view statement);
  ~SqliteRecordset() override;

  void MoveFirst() override;
  /// Reads all rows up to the last one.
  void MoveLast() override;
  void MoveNext() override;
  bool Eof() const override { return eof_; }
  /// Those of the databases that the connection has open, and of their journals.
  std::vector<std::filesystem::path> sourceFiles() const override;
  std::int64_t RecordCount() const override { return count_; }

  std::size_t fieldCount() const override { return columns_.size(); }
  std::string_view fieldName(std::size_t ordinal) const override { return columns_[ordinal].name; }
  ValueView value(std::size_t ordinal) const override;

 private:
  struct Column {
    std::string name;
    bool holdsDates;
  };
  struct Finalizer {
    void operator()(sqlite3_stmt* statement) const;
    void operator()(sqlite3_value* value) const;
  };
  using Cell = std::unique_ptr<sqlite3_value, Finalizer>;

  void prepare(std::string_view statement);
  void describeColumns();
  void step();
  void keepRow(std::vector<Cell>& row) const;
  sqlite3_value* cellOf(std::size_t ordinal) const;
  ValueView textOfBlob(std::size_t ordinal, sqlite3_value* cell) const;
  [[noreturn]] void fail(const std::string& reason) const;
  [[noreturn]] static void raiseNoRow();

  std::string databaseName_;
  std::shared_ptr<sqlite3> connection_;
  std::unique_ptr<sqlite3_stmt, Finalizer> statement_;
  std::vector<Column> columns_;
  std::vector<Cell> lastRow_;  // after MoveLast(), when the statement itself is past it
  std::int64_t row_ = 0;       // counted from 1
  std::int64_t count_ = -1;
  bool eof_ = true;
};

}  // namespace paperway
