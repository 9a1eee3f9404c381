#include "backends/data/odbc/odbc_cursor.h"

#include <algorithm>
#include <array>
#include <utility>

#include "paperway/automation_error.h"
#include "util/text.h"

namespace paperway {
namespace {

constexpr std::size_t kBlockBytes = 256 * 1024;
constexpr std::size_t kMostBlockRows = 256;
constexpr std::size_t kPieceBytes = 64 * 1024;
constexpr std::size_t kShownCharacters = 200;

SQLUSMALLINT place(std::size_t ordinal) {
  return static_cast<SQLUSMALLINT>(ordinal + 1);
}

void setAttribute(const OdbcHandle& statement, SQLINTEGER attribute, std::size_t value) {
  SQLSetStmtAttr(statement.get(), attribute, reinterpret_cast<SQLPOINTER>(value), 0);
}

// A statement as messages show it.
std::string shown(std::string_view statement) {
  const std::string_view text = leftCharacters(statement, kShownCharacters);
  return '"' + std::string(text) + (text.size() < statement.size() ? "…\"" : "\"");
}

std::string attributeText(const OdbcHandle& statement, std::size_t ordinal, SQLUSMALLINT what) {
  std::array<char, 256> text{};
  SQLColAttribute(statement.get(), place(ordinal), what, text.data(), text.size(), nullptr,
                  nullptr);
  return text.data();
}

}  // namespace

OdbcCursor::OdbcCursor(std::shared_ptr<OdbcSession> session, std::string_view statement,
                       const OdbcDriver& driver)
    : session_(std::move(session)),
      handle_(SQL_HANDLE_STMT, &session_->handle()),
      statement_(statement) {
  const Utf8Locale locale;
  prepare(statement_);
  checkForQuery(driver);
  describeColumns(driver);
  planBlocks(driver);
  if (session_->asked() != nullptr) watch_.emplace(handle_, session_->asked());
  run();
}

void OdbcCursor::prepare(std::string_view text) {
  if (!SQL_SUCCEEDED(
          SQLPrepare(handle_.get(), odbcText(text), static_cast<SQLINTEGER>(text.size())))) {
    fail("prepare");
  }
}

// Nothing runs before it is known to be a query. SQLite's driver compiles what begins like a query
// alone, a misspelled one does not: asked to explain it, the driver says what is wrong.
void OdbcCursor::checkForQuery(const OdbcDriver& driver) {
  SQLSMALLINT count = 0;
  if (!SQL_SUCCEEDED(SQLNumResultCols(handle_.get(), &count))) fail("prepare");
  if (count == 0) {
    if (driver.looseTypes) prepare("EXPLAIN " + statement_);
    throw AutomationError(
        AutomationError::kDataProvider, "OdbcRecordset",
        "The statement " + shown(statement_) + " gives no columns; a recordset needs a query.");
  }
  longCells_.resize(static_cast<std::size_t>(count));
}

void OdbcCursor::describeColumns(const OdbcDriver& driver) {
  for (std::size_t i = 0; i < longCells_.size(); ++i) columns_.emplace_back(describe(i), driver);
}

OdbcDescription OdbcCursor::describe(std::size_t ordinal) const {
  OdbcDescription column;
  std::array<SQLCHAR, 1024> name{};
  SQLSMALLINT length = 0;
  SQLSMALLINT digits = 0;
  SQLSMALLINT nullable = 0;
  if (!SQL_SUCCEEDED(SQLDescribeCol(handle_.get(), place(ordinal), name.data(), name.size(),
                                    &length, &column.type, &column.size, &digits, &nullable))) {
    fail("describe the columns of");
  }
  SQLLEN isUnsigned = SQL_FALSE;
  SQLColAttribute(handle_.get(), place(ordinal), SQL_DESC_UNSIGNED, nullptr, 0, nullptr,
                  &isUnsigned);
  column.name = reinterpret_cast<const char*>(name.data());
  column.typeName = attributeText(handle_, ordinal, SQL_DESC_TYPE_NAME);
  column.isUnsigned = isUnsigned == SQL_TRUE;
  column.isExpression = attributeText(handle_, ordinal, SQL_DESC_BASE_TABLE_NAME).empty();
  return column;
}

void OdbcCursor::planBlocks(const OdbcDriver& driver) {
  bound_ = driver.rereadsCells;
  if (driver.rereadsInBlocks) {
    std::size_t rowBytes = sizeof(SQLUSMALLINT);  // its state
    for (const OdbcColumn& column : columns_) rowBytes += column.cellBytes();
    blockRows_ = std::clamp<std::size_t>(kBlockBytes / rowBytes, 1, kMostBlockRows);
    setAttribute(handle_, SQL_ATTR_ROW_ARRAY_SIZE, blockRows_);
  }
  states_.resize(blockRows_, SQL_ROW_SUCCESS);
  SQLSetStmtAttr(handle_.get(), SQL_ATTR_ROW_STATUS_PTR, states_.data(), 0);
  SQLSetStmtAttr(handle_.get(), SQL_ATTR_ROWS_FETCHED_PTR, &fetched_, 0);
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    OdbcColumn& column = columns_[i];
    column.reserveRows(blockRows_);
    if (bound_ &&
        !SQL_SUCCEEDED(SQLBindCol(handle_.get(), place(i), column.cType(), column.cells(),
                                  static_cast<SQLLEN>(column.cellBytes()), column.lengths()))) {
      fail("bind the columns of");
    }
  }
}

void OdbcCursor::run() {
  if (!SQL_SUCCEEDED(SQLExecute(handle_.get()))) fail("run");
  rowsBefore_ = 0;
  fetched_ = 0;
  for (LongCell& cell : longCells_) cell.row = 0;
}

// Prepared anew: SQLite's driver would go on behind the rows that it has given.
void OdbcCursor::rewind() {
  const Utf8Locale locale;
  SQLFreeStmt(handle_.get(), SQL_CLOSE);
  prepare(statement_);
  run();
}

std::size_t OdbcCursor::fetch() {
  const Utf8Locale locale;
  rowsBefore_ += std::exchange(fetched_, 0);
  const SQLRETURN result = SQLFetch(handle_.get());
  if (result == SQL_NO_DATA) return 0;
  const bool failed = !SQL_SUCCEEDED(result) ||
                      std::find(states_.begin(), states_.end(), SQL_ROW_ERROR) != states_.end();
  if (failed) fail("fetch the rows of");
  if (!bound_) readCells();
  return fetched_;
}

// In the order of the columns, the whole of each: all that any driver can do.
void OdbcCursor::readCells() {
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    OdbcColumn& column = columns_[i];
    if (!SQL_SUCCEEDED(SQLGetData(handle_.get(), place(i), column.cType(), column.cells(),
                                  static_cast<SQLLEN>(column.cellBytes()), column.lengths()))) {
      fail("read the field \"" + column.name() + "\" of");
    }
    if (column.isNull(0) || column.isWhole(0)) continue;
    longCells_[i].bytes.assign(column.cells(), column.cellBytes() - column.endMarkBytes());
    longCells_[i].row = rowsBefore_ + 1;
    readRest(i);
  }
}

std::string_view OdbcCursor::longCell(std::size_t row, std::size_t ordinal) {
  LongCell& cell = longCells_[ordinal];
  const std::size_t number = rowsBefore_ + row + 1;
  if (cell.row != number) {
    const Utf8Locale locale;
    cell.row = 0;
    cell.bytes.clear();
    if (blockRows_ > 1 &&
        !SQL_SUCCEEDED(SQLSetPos(handle_.get(), row + 1, SQL_POSITION, SQL_LOCK_NO_CHANGE))) {
      fail("go to a row of");
    }
    readRest(ordinal);
    cell.row = number;
  }
  return cell.bytes;
}

// Appends what the driver has left of a cell, piece by piece.
void OdbcCursor::readRest(std::size_t ordinal) {
  const OdbcColumn& column = columns_[ordinal];
  std::string& bytes = longCells_[ordinal].bytes;
  const auto room = static_cast<SQLLEN>(kPieceBytes);
  for (bool more = true; more;) {
    const std::size_t had = bytes.size();
    bytes.resize(had + kPieceBytes + column.endMarkBytes());
    SQLLEN left = 0;
    const SQLRETURN result =
        SQLGetData(handle_.get(), place(ordinal), column.cType(), bytes.data() + had,
                   room + static_cast<SQLLEN>(column.endMarkBytes()), &left);
    if (result == SQL_NO_DATA) left = 0;
    if (result != SQL_NO_DATA && !SQL_SUCCEEDED(result)) {
      fail("read the field \"" + column.name() + "\" of");
    }
    more = left == SQL_NO_TOTAL || left > room;
    bytes.resize(had + (more ? kPieceBytes : static_cast<std::size_t>(std::max<SQLLEN>(left, 0))));
  }
}

void OdbcCursor::fail(const std::string& attempt) const {
  throw AutomationError(
      AutomationError::kDataProvider, "OdbcRecordset",
      "Cannot " + attempt + ' ' + shown(statement_) + ": " + handle_.diagnostics());
}

}  // namespace paperway
