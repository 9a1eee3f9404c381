#pragma once

// Shared by the files of this folder; not for hosts.

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "backends/data/odbc/odbc_column.h"
#include "backends/data/odbc/odbc_handle.h"
#include "backends/data/odbc/odbc_session.h"
#include "backends/data/odbc/odbc_watch.h"

namespace paperway {

/// The rows of one statement, block by block and forward alone. How many rows a block has depends
/// on whether the driver can give a cell whole that was too long for its room: from any row of a
/// block, from a block of one row, or (one row, cell by cell) only while it is read.
class OdbcCursor {
 public:
  OdbcCursor(std::shared_ptr<OdbcSession> session, std::string_view statement,
             const OdbcDriver& driver);

  /// Runs the statement again; fetch() then gives the first block.
  void rewind();
  /// Takes the next block; the number of its rows, 0 behind the last.
  std::size_t fetch();

  std::size_t columnCount() const { return columns_.size(); }
  const std::string& columnName(std::size_t ordinal) const { return columns_[ordinal].name(); }

  /// The value in that row of the block. A text lives until the next block or a call for another
  /// row of the column.
  ValueView value(std::size_t row, std::size_t ordinal) {
    OdbcColumn& column = columns_[ordinal];
    if (column.isNull(row)) return {};
    return column.value(column.isWhole(row) ? column.bytes(row) : longCell(row, ordinal),
                        rowsBefore_ + row + 1);
  }

 private:
  void prepare(std::string_view text);
  void checkForQuery(const OdbcDriver& driver);
  void describeColumns(const OdbcDriver& driver);
  OdbcDescription describe(std::size_t ordinal) const;
  void planBlocks(const OdbcDriver& driver);
  void run();
  void readCells();
  std::string_view longCell(std::size_t row, std::size_t ordinal);
  void readRest(std::size_t ordinal);
  [[noreturn]] void fail(const std::string& attempt) const;

  // A cell that did not fit, of the row with this number since the statement ran, from 1 on.
  struct LongCell {
    std::string bytes;
    std::size_t row = 0;
  };

  std::shared_ptr<OdbcSession> session_;
  OdbcHandle handle_;
  std::string statement_;
  std::vector<OdbcColumn> columns_;
  std::vector<LongCell> longCells_;
  bool bound_ = false;
  std::size_t blockRows_ = 1;
  std::vector<SQLUSMALLINT> states_;
  SQLULEN fetched_ = 0;
  std::size_t rowsBefore_ = 0;
  std::optional<OdbcWatch> watch_;  // last, so that it ends before the handle
};

}  // namespace paperway
