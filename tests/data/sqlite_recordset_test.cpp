#include "backends/data/sqlite/sqlite_recordset.h"

#include <fstream>
#include <gtest/gtest.h>
#include <sqlite3.h>

#include "support/error_of.h"
#include "support/table.h"
#include "support/test_folder.h"

namespace paperway {
namespace {

class SqliteRecordsetTest : public testing::Test {
 protected:
  SqliteRecordsetTest() { run("CREATE TABLE t(n INTEGER); INSERT INTO t VALUES(1),(2),(3)"); }
  ~SqliteRecordsetTest() override { sqlite3_close(writer_); }

  void run(const std::string& sql) {
    if (writer_ == nullptr) sqlite3_open(file_.c_str(), &writer_);
    ASSERT_EQ(sqlite3_exec(writer_, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK) << sql;
  }
  SqliteDatabase database() const { return SqliteDatabase(file_, std::chrono::milliseconds(0)); }
  std::string failure(const std::string& statement) const {
    return errorOf([&] { SqliteRecordset(database(), statement); });
  }

  TestFolder own_;
  const std::filesystem::path folder_ = own_.path;
  std::filesystem::path file_ = folder_ / "sales.db";
  sqlite3* writer_ = nullptr;
};

std::string described(ValueView value) {
  const char* kinds[] = {"null", "text", "real", "integer", "date"};
  return std::string(kinds[static_cast<int>(value.kind())]) + " " + defaultText(value);
}

TEST_F(SqliteRecordsetTest, TypesValuesAsDeclaredAndStored) {
  using Row = std::tuple<const char*, const char*, const char*>;
  const auto cases = table(
      Row{"INTEGER", "9223372036854775807", "integer 9223372036854775807"},
      Row{"REAL", "2", "real 2"}, Row{"NUMERIC", "2.5", "real 2.5"},
      Row{"BOOLEAN", "1", "integer 1"}, Row{"TEXT", "12", "text 12"}, Row{"TEXT", "''", "text "},
      Row{"TEXT", "NULL", "null "}, Row{"TEXT", "'2026-03-05'", "text 2026-03-05"},
      Row{"INTEGER", "'abc'", "text abc"}, Row{"DATE", "'2026-03-05'", "date 3/5/2026"},
      Row{"Date", "'2026-02-30'", "text 2026-02-30"}, Row{"DATE", "'5 March'", "text 5 March"},
      Row{"DATE", "20260305", "integer 20260305"}, Row{"DATE", "NULL", "null "},
      Row{"datetime", "'2026-03-05 14:07:09'", "date 3/5/2026 2:07:09 PM"},
      Row{"timestamp without time zone", "'2026-03-05T14:07'", "date 3/5/2026 2:07:00 PM"},
      Row{"BLOB", "x'C3A9'", "text é"}, Row{"BLOB", "x''", "text "},
      Row{"BLOB", "zeroblob(0)", "text "});
  int number = 0;
  for (const auto& [declared, stored, value] : cases) {
    const std::string table = "c" + std::to_string(++number);
    run("CREATE TABLE " + table + "(v " + declared + "); INSERT INTO " + table + " VALUES(" +
        stored + ")");
    SqliteRecordset rows(database(), "SELECT v FROM " + table);
    EXPECT_EQ(described(rows.value(0)), value) << declared << ' ' << stored;
    rows.MoveLast();
    EXPECT_EQ(described(rows.value(0)), value) << "after MoveLast";
  }
}

TEST_F(SqliteRecordsetTest, TakesOneReadingStatement) {
  const std::string name = "Cannot read \"" + file_.string() + "\": ";
  const std::string notReading = name + "the statement is not one that only reads rows.";
  const std::string several = name + "the text holds more than one statement.";
  using Row = std::pair<const char*, std::string>;
  const auto cases = table(
      Row{"SELECT n FROM t; -- that is all\n;", "no error"},
      Row{"WITH a AS (SELECT n FROM t) SELECT * FROM a", "no error"},
      Row{"VALUES (1, 'a')", "no error"}, Row{"PRAGMA table_info(t)", "no error"},
      Row{"SELECT n FROM sale", name + "no such table: sale."},
      Row{" /* nothing */ ", name + "the text holds no statement."},
      Row{"DELETE FROM t", notReading}, Row{"INSERT INTO t VALUES (4) RETURNING n", notReading},
      Row{"SELECT n FROM t WHERE n = ?",
          name + "the statement has parameters, and nothing fills them."},
      Row{"SELECT 1; SELECT 2", several}, Row{"SELECT 1; and so on", several});
  for (const auto& [statement, message] : cases) EXPECT_EQ(failure(statement), message);
}

TEST_F(SqliteRecordsetTest, TellsWhatFailsWhileReading) {
  SqliteRecordset rows(database(), "SELECT abs(n - 9223372036854775807 - 3) FROM t");
  EXPECT_EQ(errorOf([&] { rows.MoveLast(); }),
            "Cannot read \"" + file_.string() + "\": integer overflow.");
  EXPECT_TRUE(rows.Eof());
  SqliteRecordset blob(database(), "SELECT 1, x'00E9' AS photo");
  EXPECT_EQ(errorOf([&] { blob.value(1); }),
            "Cannot read \"" + file_.string() +
                "\": the field \"photo\" holds a blob that is no text, in row 1.");
}

TEST_F(SqliteRecordsetTest, TellsWhyADatabaseDoesNotOpen) {
  const auto reason = [&](const std::filesystem::path& file) {
    const std::string message =
        errorOf([&] { SqliteDatabase(file, std::chrono::milliseconds(0)); });
    const std::string start = "Cannot open the database \"" + file.string() + "\": ";
    return message.starts_with(start) ? message.substr(start.size()) : message;
  };
  std::ofstream(folder_ / "notes.txt") << std::string(4096, 'x');
  EXPECT_EQ(reason(folder_ / "none.db"), "No such file or directory.");
  EXPECT_FALSE(std::filesystem::exists(folder_ / "none.db"));
  EXPECT_EQ(reason(":memory:"), "No such file or directory.");
  EXPECT_EQ(reason(folder_), "Is a directory.");
  EXPECT_EQ(reason(folder_ / "notes.txt"), "file is not a database.");
  run("BEGIN EXCLUSIVE");
  EXPECT_EQ(reason(file_), "database is locked.");
}

TEST_F(SqliteRecordsetTest, OutlivesItsDatabaseAndHoldsNoRows) {
  auto opened = std::make_unique<SqliteDatabase>(file_);
  SqliteRecordset rows(*opened,
                       "WITH RECURSIVE r(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM r LIMIT 20000)"
                       " SELECT i, printf('%.1000c', 'x') FROM r");
  opened.reset();
  const auto before = sqlite3_memory_used();
  sqlite3_memory_highwater(1);
  for (; !rows.Eof(); rows.MoveNext()) ASSERT_EQ(rows.value(1).text().size(), 1000U);
  EXPECT_EQ(rows.RecordCount(), 20000);
  EXPECT_LT(sqlite3_memory_highwater(0), before + 100'000);
}

}  // namespace
}  // namespace paperway
