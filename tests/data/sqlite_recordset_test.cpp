#include <fstream>
#include <sqlite3.h>

#include "paperway/sqlite.h"
#include "support/error_of.h"
#include "support/expect_each.h"
#include "support/shown.h"
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

  TestFolder own_;
  const std::filesystem::path& folder_ = own_.path;
  std::filesystem::path file_ = folder_ / "sales.db";
  const std::string unreadable_ = "Cannot read \"" + file_.string() + "\": ";
  sqlite3* writer_ = nullptr;
};

TEST_F(SqliteRecordsetTest, TypesValuesAsDeclaredAndStored) {
  const auto described = [&](const std::string& declared, const std::string& stored) {
    run("DROP TABLE IF EXISTS c; CREATE TABLE c(v " + declared + "); INSERT INTO c VALUES(" +
        stored + ")");
    SqliteRecordset rows(database(), "SELECT v FROM c");
    const std::string first = shown(rows.value(0));
    rows.MoveLast();
    EXPECT_EQ(shown(rows.value(0)), first) << "after MoveLast";
    return first;
  };
  expectEach(described,
             Row{"REAL", "2", "r 2"},
             Row{"TEXT", "12", "t 12"},
             Row{"TEXT", "'2026-03-05'", "t 2026-03-05"},
             Row{"INTEGER", "'abc'", "t abc"},
             Row{"Date", "'2026-02-30'", "t 2026-02-30"},
             Row{"DATE", "20260305", "i 20260305"},
             Row{"datetime", "'2026-03-05 14:07:09'", "d 3/5/2026 2:07:09 PM"},
             Row{"timestamp without time zone", "'2026-03-05T14:07'", "d 3/5/2026 2:07:00 PM"},
             Row{"BLOB", "x'C3A9'", "t é"},
             Row{"BLOB", "x''", "t "},
             Row{"BLOB", "zeroblob(0)", "t "});
}

TEST_F(SqliteRecordsetTest, TakesOneReadingStatement) {
  const auto failure = [&](const char* statement) {
    return errorOf([&] { SqliteRecordset(database(), statement); });
  };
  const std::string notReading = unreadable_ + "the statement is not one that only reads rows.";
  const std::string several = unreadable_ + "the text holds more than one statement.";
  expectEach(failure,
             Row{"SELECT n FROM t; -- that is all\n;", "no error"},
             Row{"WITH a AS (SELECT n FROM t) SELECT * FROM a", "no error"},
             Row{"VALUES (1, 'a')", "no error"},
             Row{"PRAGMA table_info(t)", "no error"},
             Row{"SELECT n FROM sale", unreadable_ + "no such table: sale."},
             Row{" /* nothing */ ", unreadable_ + "the text holds no statement."},
             Row{"DELETE FROM t", notReading},
             Row{"INSERT INTO t VALUES (4) RETURNING n", notReading},
             Row{"SELECT n FROM t WHERE n = ?",
                 unreadable_ + "the statement has parameters, and nothing fills them."},
             Row{"SELECT 1; SELECT 2", several},
             Row{"SELECT 1; and so on", several});
}

TEST_F(SqliteRecordsetTest, TellsWhatFailsWhileReading) {
  SqliteRecordset rows(database(), "SELECT abs(n - 9223372036854775807 - 3) FROM t");
  EXPECT_EQ(errorOf([&] { rows.MoveLast(); }), unreadable_ + "integer overflow.");
  EXPECT_TRUE(rows.Eof());
  SqliteRecordset blob(database(), "SELECT 1, x'00E9' AS photo");
  EXPECT_EQ(errorOf([&] { blob.value(1); }),
            unreadable_ + "the field \"photo\" holds a blob that is no text, in row 1.");
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
