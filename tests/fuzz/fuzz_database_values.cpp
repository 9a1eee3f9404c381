#include <cmath>
#include <cstring>
#include <sqlite3.h>

#include "fuzz/choices.h"
#include "fuzz/fuzz.h"
#include "paperway/sqlite.h"
#include "paperway/storage.h"
#include "support/column_table.h"
#include "support/files.h"
#include "support/test_folder.h"
#include "textreport/text_rpt.h"

using namespace paperway;

/// One value and what is done with it, the kinds in the order of bind().
std::vector<std::string> fuzz::seeds() {
  using namespace std::string_literals;
  return {"\0\0\0\0"s,
          "\1\0\1\2\3\4\5\6\7\x08"s,
          "\1\1\2\0\0\0\0\0\0\0\x80"s,
          "\2\2\1\0\0\0\0\0\0\xF8\x7F"s,
          "\2\0\1\0\0\0\0\0\0\xF0\x3F"s,
          "\3\1\0"
          "2026-03-05"s,
          "\3\1\3"
          "2026-02-30T25:00"s,
          "\3\2\1-1,234.50 pieces"s,
          "\4\0\0\xFF\xFE\0caf\xC3\xA9"s};
}

namespace {

constexpr const char* kDeclared[] = {"x", "day DATE", "n REAL", "n INTEGER", "t TEXT", "b BLOB"};

/// A database of one table for each declared type, with one row to be written anew.
class Database {
 public:
  Database() {
    sqlite3_open(file_.c_str(), &writer_);
    run("PRAGMA journal_mode=MEMORY; PRAGMA synchronous=OFF");
    for (std::size_t i = 0; i < std::size(kDeclared); ++i) {
      const std::string name = "t" + std::to_string(i);
      run("CREATE TABLE " + name + "(" + kDeclared[i] + "); INSERT INTO " + name + " VALUES(NULL)");
    }
  }
  ~Database() { sqlite3_close(writer_); }

  const std::filesystem::path& folder() const { return folder_.path; }

  void store(std::size_t table, unsigned kind, std::string_view bytes) {
    const std::string column = table == 1 ? "day" : std::string(1, *kDeclared[table]);
    sqlite3_stmt* change = nullptr;
    const std::string sql = "UPDATE t" + std::to_string(table) + " SET " + column + "=?";
    sqlite3_prepare_v2(writer_, sql.c_str(), -1, &change, nullptr);
    bind(change, kind, bytes);
    fuzz::require(sqlite3_step(change) == SQLITE_DONE, "the value is stored");
    sqlite3_finalize(change);
  }

  SqliteRecordset rows(std::size_t table) const {
    return {database_, "SELECT * FROM t" + std::to_string(table)};
  }

 private:
  void run(const std::string& sql) {
    fuzz::require(sqlite3_exec(writer_, sql.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK,
                  "the table is made");
  }

  static void bind(sqlite3_stmt* change, unsigned kind, std::string_view bytes) {
    std::int64_t integer = 0;
    std::memcpy(&integer, bytes.data(), std::min(bytes.size(), sizeof integer));
    double real = 0;
    std::memcpy(&real, &integer, sizeof real);
    const int size = static_cast<int>(bytes.size());
    if (kind == 1) sqlite3_bind_int64(change, 1, integer);
    if (kind == 2) sqlite3_bind_double(change, 1, real);
    if (kind == 3) sqlite3_bind_text(change, 1, bytes.data(), size, SQLITE_TRANSIENT);
    if (kind == 4) sqlite3_bind_blob(change, 1, bytes.data(), size, SQLITE_TRANSIENT);
  }

  TestFolder folder_;
  std::filesystem::path file_ = folder_.path / "values.db";
  sqlite3* writer_ = nullptr;
  SqliteDatabase database_ = open();

  SqliteDatabase open() {
    std::fclose(std::fopen(file_.c_str(), "ab"));
    return SqliteDatabase(file_);
  }
};

void checkKept(const Recordset& rows, unsigned kind, std::string_view bytes) {
  const ValueView read = rows.value(0);
  if (kind == 0) fuzz::require(read.isNull(), "a null stays null");
  if (kind == 3) fuzz::require(read.text() == bytes, "a text stays as it is");
  if (kind == 2 && read.kind() == ValueView::Kind::real) {
    fuzz::require(!std::isnan(read.real()), "not a number is null");
  }
}

void writeReport(Recordset& rows, const std::filesystem::path& folder, unsigned format) {
  static desktop::Storage storage;
  static const std::vector<std::vector<std::string>> kFormats = {
      {"12", "N", "R", "1", "Y", "Y", "", "", "#,##0.00"},
      {"12", "T", "L", "1", "N", "N", "", "", ""},
      {"12", "D", "R", "0", "Y", "N", "", "", "dd/mm/yyyy hh:nn"},
      {"3", "N", "L", "0", "Y", "N", "Count+", "", ""}};
  std::vector<std::string> column = {std::string(rows.fieldName(0)), "Value"};
  const auto& rest = kFormats[format % kFormats.size()];
  column.insert(column.end(), rest.begin(), rest.end());
  MemoryTable columns = columnTable({column});
  std::shared_ptr<ReportFormatTable> table;
  readReportFormat(columns, table);
  TextRptArguments arguments{.Rs = rows, .TextFileName = (folder / "report.txt").string()};
  writeTextReport(arguments, table, DOSEFONTcHR(), storage);
  fuzz::require(readFile(arguments.TextFileName).ends_with("\f\r\n"), "the report is whole");
}

}  // namespace

void fuzz::check(std::string_view input) {
  static Database database;
  Choices choices(input.substr(0, 3));
  const unsigned kind = choices.below(5);
  const std::size_t table = choices.below(std::size(kDeclared));
  const unsigned format = choices.below(4);
  const std::string_view bytes = input.substr(std::min<std::size_t>(input.size(), 3));
  database.store(table, kind, bytes);
  try {
    SqliteRecordset rows = database.rows(table);
    if (table == 0) checkKept(rows, kind, bytes);
    writeReport(rows, database.folder(), format);
  } catch (const AutomationError& error) {
    fuzz::require(!std::string_view(error.description()).empty(), "an error says what it is");
  }
}
