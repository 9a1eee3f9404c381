#include "apps/paperway/source.h"

#include <algorithm>
#include <stdexcept>
#include <vector>

#include "apps/paperway/stop_signals.h"
#include "paperway/memory.h"
#include "paperway/odbc.h"
#include "paperway/sqlite.h"
#include "paperway/storage.h"
#include "report/report_format.h"
#include "util/path_text.h"
#include "util/text.h"

namespace paperway::command {
namespace {

constexpr std::int64_t kMostColumns = 10'000;
constexpr std::size_t kMostColumnBytes = 16 << 20;  // of a file

bool isStopped() {
  return StopSignals::raised() != 0;
}

bool isStatement(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t\r\n");
  if (first == text.npos) return false;
  text.remove_prefix(first);
  if (text.starts_with("--")) {
    return isStatement(text.substr(std::min(text.find('\n'), text.size())));
  }
  const std::string start = lowerCase(text.substr(0, 8));
  for (const std::string_view verb : {"select", "with", "values"}) {
    if (!start.starts_with(verb) || start.size() == verb.size()) continue;
    const char next = start[verb.size()];
    if (next == ' ' || next == '\t' || next == '\n' || next == '\r' || next == '(') return true;
  }
  return false;
}

void requireFew(std::int64_t columns) {
  if (columns <= kMostColumns) return;
  throw std::runtime_error("The column table has more than " + std::to_string(kMostColumns) +
                           " rows.");
}

/// The table with a column of nulls for each field that may be null and that it leaves out.
std::unique_ptr<Recordset> withNullableFields(MemoryTable given) {
  requireFew(given.RecordCount());
  std::vector<std::string> names;
  for (std::size_t i = 0; i < given.fieldCount(); ++i) names.emplace_back(given.fieldName(i));
  for (const std::string_view field : kNullableFields) {
    if (given.findField(field) < 0) names.emplace_back(field);
  }
  std::vector<ValueView> cells(names.size());
  auto table = std::make_unique<MemoryTable>(std::move(names));
  for (; !given.Eof(); given.MoveNext()) {
    for (std::size_t i = 0; i < given.fieldCount(); ++i) cells[i] = given.value(i);
    table->addRow(cells);
  }
  if (!given.sourceFiles().empty()) table->setSourceFile(given.sourceFiles().front());
  return table;
}

/// All the rows of a column table, as long as they are so few.
std::unique_ptr<Recordset> firstRows(Recordset& rows) {
  std::vector<std::string> names;
  for (std::size_t i = 0; i < rows.fieldCount(); ++i) names.emplace_back(rows.fieldName(i));
  std::vector<ValueView> cells(names.size());
  auto table = std::make_unique<MemoryTable>(std::move(names));
  for (; !rows.Eof(); rows.MoveNext()) {
    requireFew(table->RecordCount() + 1);
    for (std::size_t i = 0; i < cells.size(); ++i) cells[i] = rows.value(i);
    table->addRow(cells);
  }
  return table;
}

}  // namespace

void Source::addOptions(CLI::App& app) {
  CLI::Option* const file = app.add_option("--db", db, "SQLite database to read");
  file->type_name("FILE");
  app.add_option("--odbc", odbc, "Any database: an ODBC connection string or data source")
      ->type_name("CONNECTION")
      ->excludes(file);
}

std::unique_ptr<Recordset> Source::rows(const std::string& statement) const {
  if (!odbc.empty()) {
    const OdbcConnection connection(odbc);
    connection.stopWhen(isStopped);
    return std::make_unique<OdbcRecordset>(connection, statement);
  }
  if (db.empty()) throw CLI::RequiredError("--db or --odbc");
  const SqliteDatabase database(db);
  database.stopWhen(isStopped);
  return std::make_unique<SqliteRecordset>(database, statement);
}

std::unique_ptr<Recordset> Source::columns(const std::string& fileOrStatement) const {
  if (isStatement(fileOrStatement)) return firstRows(*rows(fileOrStatement));
  desktop::Storage storage;
  return withNullableFields(readCsvFile(storage, pathOf(fileOrStatement), kMostColumnBytes));
}

}  // namespace paperway::command
