#pragma once

// Shared by the files of this folder; not for hosts.

#include <cstddef>
#include <sql.h>
#include <sqlext.h>
#include <string>
#include <string_view>
#include <vector>

#include "paperway/odbc.h"
#include "paperway/value.h"

namespace paperway {

/// What a driver says of a column.
struct OdbcDescription {
  std::string name;
  std::string typeName;
  SQLSMALLINT type = SQL_UNKNOWN_TYPE;
  SQLULEN size = 0;
  bool isUnsigned = false;
  bool isExpression = false;  // taken from no column of a table
};

/// One column of a result: in which shape the driver hands over its cells, where it puts them, and
/// what value a cell is.
class OdbcColumn {
 public:
  /// `bytes` are those of a cell that is not null. A text lives as long as they do, and until a
  /// call for other bytes.
  using Read = ValueView (*)(OdbcColumn& column, std::string_view bytes);

  OdbcColumn(const OdbcDescription& description, const OdbcDriver& driver);

  const std::string& name() const { return name_; }
  SQLSMALLINT cType() const { return cType_; }
  /// Room for one cell, the end mark of a text included.
  std::size_t cellBytes() const { return cellBytes_; }
  std::size_t endMarkBytes() const { return endMarkBytes_; }

  void reserveRows(std::size_t rows);
  char* cells() { return cells_.data(); }
  SQLLEN* lengths() { return lengths_.data(); }

  bool isNull(std::size_t row) const { return lengths_[row] == SQL_NULL_DATA; }
  /// False for a cell that is longer than its room.
  bool isWhole(std::size_t row) const {
    return fixedSize_ || (lengths_[row] >= 0 &&
                          static_cast<std::size_t>(lengths_[row]) <= cellBytes_ - endMarkBytes_);
  }
  std::string_view bytes(std::size_t row) const {
    return {cells_.data() + row * cellBytes_,
            fixedSize_ ? cellBytes_ : static_cast<std::size_t>(lengths_[row])};
  }
  /// `number` is the row's, from 1 on, for errors.
  ValueView value(std::string_view bytes, std::size_t number) {
    number_ = number;
    return read_(*this, bytes);
  }

  /// For the readers: a text in another encoding than the driver's, and "The field … of row …
  /// `what`."
  std::string& converted() { return converted_; }
  [[noreturn]] void fail(const std::string& what) const;

 private:
  std::string name_;
  SQLSMALLINT cType_;
  Read read_;
  bool fixedSize_;
  std::size_t cellBytes_;
  std::size_t endMarkBytes_;
  std::vector<char> cells_;
  std::vector<SQLLEN> lengths_;
  std::string converted_;
  std::size_t number_ = 0;  // of the row in hand
};

}  // namespace paperway
