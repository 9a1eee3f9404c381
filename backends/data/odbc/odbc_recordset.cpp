#include "backends/data/odbc/odbc_cursor.h"
#include "backends/data/odbc/odbc_session.h"
#include "paperway/automation_error.h"
#include "paperway/odbc.h"
#include "util/path_text.h"

namespace paperway {

OdbcRecordset::OdbcRecordset(const OdbcConnection& connection, std::string_view statement)
    : OdbcRecordset(connection, statement, connection.driver()) {}

OdbcRecordset::OdbcRecordset(const OdbcConnection& connection, std::string_view statement,
                             const OdbcDriver& driver)
    : cursor_(std::make_unique<OdbcCursor>(connection.session_, statement, driver)) {
  const std::string file = connection.session_->databaseFile();
  if (!file.empty()) sourceFiles_ = {pathOf(file)};
  fetchBlock();
}

OdbcRecordset::~OdbcRecordset() = default;

void OdbcRecordset::MoveFirst() {
  if (rowsBefore_ == 0 && blockRows_ > 0) {
    row_ = 0;
    eof_ = false;
    return;
  }
  onLastRow_ = false;
  blockRows_ = 0;
  rowsBefore_ = 0;
  cursor_->rewind();
  fetchBlock();
}

void OdbcRecordset::MoveLast() {
  if (onLastRow_) return;
  if (eof_) MoveFirst();
  if (eof_) raiseNoRow();
  while (!eof_) {
    row_ = blockRows_ - 1;
    keepRow();
    fetchBlock();
  }
  onLastRow_ = true;
  eof_ = false;
}

void OdbcRecordset::MoveNext() {
  if (eof_) raiseNoRow();
  if (onLastRow_) {
    onLastRow_ = false;
    eof_ = true;
  } else if (++row_ == blockRows_) {
    fetchBlock();
  }
}

void OdbcRecordset::fetchBlock() {
  rowsBefore_ += static_cast<std::int64_t>(blockRows_);
  row_ = 0;
  blockRows_ = 0;
  eof_ = true;
  blockRows_ = cursor_->fetch();
  eof_ = blockRows_ == 0;
  if (eof_) count_ = rowsBefore_;
}

void OdbcRecordset::keepRow() {
  lastRow_.resize(fieldCount());
  for (std::size_t i = 0; i < lastRow_.size(); ++i) {
    const ValueView value = cursor_->value(row_, i);
    auto* const text = std::get_if<std::string>(&lastRow_[i]);
    if (text != nullptr && value.kind() == ValueView::Kind::text) {
      *text = value.text();
    } else {
      lastRow_[i] = value.toValue();
    }
  }
}

std::size_t OdbcRecordset::fieldCount() const {
  return cursor_->columnCount();
}

std::string_view OdbcRecordset::fieldName(std::size_t ordinal) const {
  return cursor_->columnName(ordinal);
}

ValueView OdbcRecordset::value(std::size_t ordinal) const {
  if (eof_) raiseNoRow();
  return onLastRow_ ? ValueView(lastRow_[ordinal]) : cursor_->value(row_, ordinal);
}

void OdbcRecordset::raiseNoRow() {
  throw AutomationError(AutomationError::kNoCurrentRow, "OdbcRecordset",
                        "The recordset has no current row.");
}

}  // namespace paperway
