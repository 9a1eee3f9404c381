#include <cerrno>
#include <sqlite3.h>
#include <system_error>
#include <utility>

#include "paperway/automation_error.h"
#include "paperway/sqlite.h"
#include "platform/file_error.h"
#include "util/path_text.h"
#include "util/text.h"

namespace paperway {
namespace {

[[noreturn]] void failToOpen(const std::string& name, long number, const std::string& reason) {
  throw AutomationError(number, "SqliteDatabase",
                        "Cannot open the database \"" + name + "\": " + reason + ".");
}

std::string reasonOf(int error) {
  return std::generic_category().message(error);
}

// SQLite says of all that it cannot open just that it cannot.
void checkFile(const std::filesystem::path& file, const std::string& name) {
  std::error_code error;
  const auto status = std::filesystem::status(file, error);
  if (status.type() == std::filesystem::file_type::not_found) {
    failToOpen(name, AutomationError::kFileNotFound, reasonOf(ENOENT));
  }
  if (error) failToOpen(name, errorNumber(error), error.message());
  if (std::filesystem::is_directory(status)) {
    failToOpen(name, AutomationError::kPathFileAccess, reasonOf(EISDIR));
  }
  if (!std::filesystem::is_regular_file(status)) {  // opening a pipe would wait for its writer
    failToOpen(name, AutomationError::kPathFileAccess, "it is a device or a pipe");
  }
}

[[noreturn]] void failToOpen(const std::string& name, sqlite3* connection) {
  const int error = sqlite3_system_errno(connection);
  if (sqlite3_errcode(connection) == SQLITE_CANTOPEN && error != 0) {
    failToOpen(name,
               error == EACCES ? AutomationError::kPermissionDenied : AutomationError::kDeviceIo,
               reasonOf(error));
  }
  failToOpen(name, AutomationError::kDataProvider, sqlite3_errmsg(connection));
}

bool declaresDates(const char* type) {
  if (type == nullptr) return false;
  const std::string_view declared = trimBlanks(type);
  return equalIgnoringCase(declared.substr(0, 4), "date") ||
         equalIgnoringCase(declared.substr(0, 9), "timestamp");
}

ValueView dateOrText(std::string_view text) {
  const auto date = parseIsoDate(text);
  return date ? ValueView(*date) : ValueView(text);
}

std::string_view textOf(sqlite3_value* cell) {
  const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(cell));
  return {text, static_cast<std::size_t>(sqlite3_value_bytes(cell))};
}

}  // namespace

SqliteDatabase::SqliteDatabase(const std::filesystem::path& file,
                               std::chrono::milliseconds patience)
    : name_(file.string()) {
  checkFile(file, name_);
  // An absolute path is never taken for one of SQLite's special names.
  const std::string path = std::filesystem::absolute(file).string();
  sqlite3* connection = nullptr;
  const int opened = sqlite3_open_v2(path.c_str(), &connection,
                                     SQLITE_OPEN_READONLY | SQLITE_OPEN_NOMUTEX, nullptr);
  connection_.reset(connection, sqlite3_close);
  if (opened != SQLITE_OK) failToOpen(name_, connection);
  sqlite3_busy_timeout(connection, static_cast<int>(patience.count()));
  // The file itself is read only now.
  if (sqlite3_exec(connection, "SELECT 1 FROM sqlite_master", nullptr, nullptr, nullptr) !=
      SQLITE_OK) {
    failToOpen(name_, connection);
  }
}

void SqliteDatabase::stopWhen(bool (*asked)()) const {
  constexpr int kInstructionsBetween = 100'000;
  sqlite3_progress_handler(
      connection_.get(), kInstructionsBetween,
      [](void* question) { return reinterpret_cast<bool (*)()>(question)() ? 1 : 0; },
      reinterpret_cast<void*>(asked));
}

void SqliteRecordset::Finalizer::operator()(sqlite3_stmt* statement) const {
  sqlite3_finalize(statement);
}

void SqliteRecordset::Finalizer::operator()(sqlite3_value* value) const {
  sqlite3_value_free(value);
}

SqliteRecordset::SqliteRecordset(const SqliteDatabase& database, std::string_view statement)
    : databaseName_(database.name_), connection_(database.connection_) {
  prepare(statement);
  describeColumns();
  MoveFirst();
}

SqliteRecordset::~SqliteRecordset() = default;

void SqliteRecordset::prepare(std::string_view statement) {
  sqlite3_stmt* prepared = nullptr;
  const char* rest = nullptr;
  const auto prepareFrom = [&](std::string_view text) {
    const int result = sqlite3_prepare_v2(connection_.get(), text.data(),
                                          static_cast<int>(text.size()), &prepared, &rest);
    return result == SQLITE_OK;
  };
  if (!prepareFrom(statement)) fail(sqlite3_errmsg(connection_.get()));
  statement_.reset(prepared);
  if (prepared == nullptr) fail("the text holds no statement");
  if (sqlite3_column_count(prepared) == 0 || sqlite3_stmt_readonly(prepared) == 0) {
    fail("the statement is not one that only reads rows");
  }
  if (sqlite3_bind_parameter_count(prepared) > 0) {
    fail("the statement has parameters, and nothing fills them");
  }
  const char* const end = statement.data() + statement.size();
  const bool onlyComments = prepareFrom({rest, end}) && prepared == nullptr;
  sqlite3_finalize(onlyComments ? nullptr : prepared);
  if (sqlite3_errcode(connection_.get()) == SQLITE_NOMEM) fail(reasonOf(ENOMEM));
  if (!onlyComments) fail("the text holds more than one statement");
}

void SqliteRecordset::describeColumns() {
  const int count = sqlite3_column_count(statement_.get());
  for (int i = 0; i < count; ++i) {
    columns_.push_back({sqlite3_column_name(statement_.get(), i),
                        declaresDates(sqlite3_column_decltype(statement_.get(), i))});
  }
}

std::vector<std::filesystem::path> SqliteRecordset::sourceFiles() const {
  std::vector<std::filesystem::path> files;
  const char* name = nullptr;
  for (int i = 0; (name = sqlite3_db_name(connection_.get(), i)) != nullptr; ++i) {
    const char* file = sqlite3_db_filename(connection_.get(), name);
    if (file == nullptr || *file == '\0') continue;  // in memory
    for (const char* ending : {"", "-wal", "-journal", "-shm"}) {
      files.push_back(pathOf(std::string(file) + ending));
    }
  }
  return files;
}

void SqliteRecordset::MoveFirst() {
  if (row_ == 1 && !eof_) return;
  lastRow_.clear();
  sqlite3_reset(statement_.get());
  row_ = 0;
  step();
}

void SqliteRecordset::MoveLast() {
  if (!lastRow_.empty()) return;
  if (eof_) MoveFirst();
  if (eof_) raiseNoRow();
  std::vector<Cell> row;
  while (!eof_) {
    keepRow(row);
    step();
  }
  lastRow_ = std::move(row);
  eof_ = false;
}

void SqliteRecordset::MoveNext() {
  if (eof_) raiseNoRow();
  if (lastRow_.empty()) {
    step();
  } else {
    lastRow_.clear();
    eof_ = true;
  }
}

void SqliteRecordset::step() {
  const int result = sqlite3_step(statement_.get());
  eof_ = result != SQLITE_ROW;
  if (!eof_) {
    ++row_;
  } else if (result == SQLITE_DONE) {
    count_ = row_;
  } else {
    fail(sqlite3_errmsg(connection_.get()));
  }
}

void SqliteRecordset::keepRow(std::vector<Cell>& row) const {
  row.clear();
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    row.emplace_back(
        sqlite3_value_dup(sqlite3_column_value(statement_.get(), static_cast<int>(i))));
    if (!row.back()) fail(reasonOf(ENOMEM));
  }
}

inline sqlite3_value* SqliteRecordset::cellOf(std::size_t ordinal) const {
  if (eof_) raiseNoRow();
  return lastRow_.empty() ? sqlite3_column_value(statement_.get(), static_cast<int>(ordinal))
                          : lastRow_[ordinal].get();
}

// One sqlite3_column_value and its sqlite3_value calls cost less than the calls by column, each of
// which finds the cell anew. They need no lock: the connection belongs to one thread.
ValueView SqliteRecordset::value(std::size_t ordinal) const {
  sqlite3_value* const cell = cellOf(ordinal);
  switch (sqlite3_value_type(cell)) {
    case SQLITE_TEXT: {
      const std::string_view text = textOf(cell);
      return columns_[ordinal].holdsDates ? dateOrText(text) : ValueView(text);
    }
    case SQLITE_INTEGER:
      return static_cast<std::int64_t>(sqlite3_value_int64(cell));
    case SQLITE_FLOAT:
      return sqlite3_value_double(cell);
    case SQLITE_BLOB:
      return textOfBlob(ordinal, cell);
    default:
      return {};
  }
}

ValueView SqliteRecordset::textOfBlob(std::size_t ordinal, sqlite3_value* cell) const {
  const auto* bytes = static_cast<const char*>(sqlite3_value_blob(cell));
  const std::string_view text(bytes, static_cast<std::size_t>(sqlite3_value_bytes(cell)));
  if (validUtf8Length(text) != text.size()) {
    fail("the field \"" + columns_[ordinal].name + "\" holds a blob that is no text, in row " +
         std::to_string(row_));
  }
  return text;
}

void SqliteRecordset::fail(const std::string& reason) const {
  throw AutomationError(AutomationError::kDataProvider, "SqliteRecordset",
                        "Cannot read \"" + databaseName_ + "\": " + reason + ".");
}

void SqliteRecordset::raiseNoRow() {
  throw AutomationError(AutomationError::kNoCurrentRow, "SqliteRecordset",
                        "The recordset has no current row.");
}

}  // namespace paperway
