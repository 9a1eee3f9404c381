#include <fnmatch.h>
#include <string>

#include "odbc_fixture.h"
#include "util/numbers.h"

namespace paperway {
namespace {

constexpr int kRows = 1000;
constexpr char kNoRow[] = "The recordset has no current row.";

// Every seventh is too long for its room in a block.
std::string noteOf(int row) {
  return row % 7 == 0 ? std::string(static_cast<std::size_t>(row) + 600, 'x') + " é"
                      : "note " + std::to_string(row);
}

void moveOn(Recordset& rows, int count) {
  for (int i = 0; i < count; ++i) rows.MoveNext();
}

using Case = std::array<std::string, 3>;  // connection, query, what the error says

class OdbcWalk : public ::testing::Test {
 protected:
  OdbcWalk() {
    databases_.runOnBoth("CREATE TABLE " + table_ + "(n INTEGER, note TEXT)");
    std::string rows;
    for (int i = 1; i <= kRows; ++i) {
      rows += (i > 1 ? ", (" : "(") + std::to_string(i) + ", '" + noteOf(i) + "')";
    }
    databases_.runOnBoth("INSERT INTO " + table_ + " VALUES " + rows);
  }

  std::string query(const std::string& condition = "true") const {
    return "SELECT n, note FROM " + table_ + " WHERE " + condition + " ORDER BY n";
  }

  static void expectRow(const Recordset& rows, int row) {
    ASSERT_FALSE(rows.Eof());
    EXPECT_EQ(rows.value(0).integer(), row);
    EXPECT_EQ(rows.value(1).text(), noteOf(row));
  }

  const TwoDatabases databases_;
  const std::string table_ = ownName("walk");
};

TEST_F(OdbcWalk, GoesThroughAllRowsRewindsAndCounts) {
  for (const Way& way : kWays) {
    SCOPED_TRACE(way.name);
    const auto rows = way.open(databases_, query());
    EXPECT_EQ(rows->fieldOrdinal("NOTE"), 1U);
    EXPECT_EQ(rows->RecordCount(), -1);
    for (int row = 1; row <= kRows; ++row, rows->MoveNext()) expectRow(*rows, row);
    EXPECT_TRUE(rows->Eof());
    EXPECT_EQ(errorOf([&] { rows->MoveNext(); }), kNoRow);
    EXPECT_EQ(errorOf([&] { rows->value(0); }), kNoRow);
    for (const int turn : {14, 7, 14, 700, 3}) {
      rows->MoveFirst();
      expectRow(*rows, 1);
      moveOn(*rows, turn - 1);
      expectRow(*rows, turn);
    }
    for (const int count : {1, 7, kRows}) {
      const auto some = way.open(databases_, query("n <= " + std::to_string(count)));
      for (int turn = 0; turn < 2; ++turn) {
        some->MoveLast();
        some->MoveLast();
        EXPECT_EQ(some->RecordCount(), count);
        expectRow(*some, count);
        some->MoveNext();
        EXPECT_TRUE(some->Eof());
      }
      some->MoveFirst();
      expectRow(*some, 1);
    }
  }
}

TEST_F(OdbcWalk, OfNoRowsIsAtItsEndAndOfOneIsNotRunAgain) {
  for (const Way& way : kWays) {
    SCOPED_TRACE(way.name);
    const auto rows = way.open(databases_, query("n < 0"));
    for (int turn = 0; turn < 2; ++turn, rows->MoveFirst()) EXPECT_TRUE(rows->Eof());
    EXPECT_EQ(rows->RecordCount(), 0);
    EXPECT_EQ(rows->fieldCount(), 2U);
    EXPECT_EQ(errorOf([&] { rows->MoveLast(); }), kNoRow);
    EXPECT_EQ(errorOf([&] { rows->fieldOrdinal("nmae"); }),
              "There is no field \"nmae\"; the fields are n, note.");
    const auto one = way.open(databases_, "SELECT random() AS r");
    const Value before = one->value(0).toValue();
    one->MoveFirst();
    EXPECT_EQ(one->value(0).toValue(), before);
  }
}

TEST(OdbcLongQuery, GivesRowsAsTheyComeAndEndsWhenAsked) {
  const TwoDatabases databases;
  for (const auto& [server, query, reason] :
       {Case{databases.sqlite(),
             "WITH RECURSIVE s(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM s) SELECT n FROM s",
             "[HY000] [SQLite]interrupted"},
        Case{postgres("UseDeclareFetch=1;Fetch=1000"),
             "SELECT generate_series(1, 50000000) AS n",
             "[57014] ERROR: canceling statement due to user request"}}) {
    const OdbcConnection connection(server);
    OdbcRecordset rows(connection, query);
    moveOn(rows, 5000);
    EXPECT_EQ(columnNumber(rows.value(0)), 5001) << query;
    connection.stopWhen([] { return true; });
    const std::string error =
        errorOf([&, sorted = query + " ORDER BY 1"] { OdbcRecordset(connection, sorted); });
    EXPECT_NE(error.find(reason), std::string::npos) << error;
  }
}

TEST_F(OdbcWalk, TwoAtOnceShareAConnection) {
  for (const std::string& connection : {databases_.sqlite(), postgres("UseDeclareFetch=1")}) {
    auto opened = std::make_unique<OdbcConnection>(connection);
    OdbcRecordset first(*opened, query());
    OdbcRecordset second(*opened, query("n > 500"));
    opened.reset();
    moveOn(first, 499);
    moveOn(second, 499);
    expectRow(first, 500);
    expectRow(second, 1000);
  }
}

TEST(OdbcError, CarriesTheDriversWordsAndState) {
  const TwoDatabases databases;
  const std::string lite = databases.sqlite();
  const std::string server = postgres();
  const std::string lost = "Driver={PostgreSQL Unicode};Servername=127.0.0.1;Port=1;Pwd={a}};b}";
  const std::string longQuery = "SELECT '" + std::string(300, 'y') + "' FROM x";
  for (const auto& [connection, query, pattern] :
       {Case{"no such source", "", "Cannot connect to \"no such source\": [[]IM002] *"},
        Case{"shop;Pwd=s3cret", "", "Cannot connect to \"shop;Pwd=[*][*][*]\": [[]IM002] *"},
        Case{"Driver=SQLite3;Database=/nowhere/é.db", "", "* to \"*/é.db\": [[]HY000] *failed*"},
        Case{lost, "", "*Port=1;Pwd=[*][*][*]\": [[]08001] *refused*"},
        Case{server + "Uid=nobody;Password=wrong", "", "*;Password=[*][*][*]\": [[]*] *nobody*"},
        Case{server,
             "SELECT * FROM sale",
             "Cannot prepare \"SELECT [*] FROM sale\": [[]42P01] *sale*"},
        Case{server, "SELECT 1 / (1 - 1) AS x", "*: [[]22012] *division by zero*"},
        Case{server, "SELECT 'é' FROM grün", "* FROM grün\": [[]42P01] *\"grün\"*"},
        Case{lite, "SELECT * FROM sale", "Cannot prepare *: [[]HY000] *no such table: sale*"},
        Case{lite, "SELECT ?", "Cannot run \"SELECT [?]\": [[]HY000] *unbound*"},
        Case{lite, "", "Cannot prepare \"\": [[]HY090] *"},
        Case{lite, longQuery, "*yyy…\": [[]HY000] *"}}) {
    const std::string error = errorOf(
        [&server = connection, &query = query] { OdbcRecordset(OdbcConnection(server), query); });
    EXPECT_EQ(fnmatch(pattern.c_str(), error.c_str(), 0), 0) << pattern << " gives: " << error;
    EXPECT_EQ(error.find('\n'), std::string::npos);
  }
}

TEST(OdbcError, AStatementThatIsNoQueryDoesNotRun) {
  const TwoDatabases databases;
  const std::string table = ownName("kept");
  databases.runOnBoth("CREATE TABLE " + table + "(n INTEGER)");
  databases.runOnBoth("INSERT INTO " + table + " VALUES (1)");
  const std::string statement = "DELETE FROM " + table;
  for (const std::string& connection : {databases.sqlite(), postgres()}) {
    const OdbcConnection opened(connection);
    EXPECT_EQ(errorOf([&] { OdbcRecordset(opened, statement); }),
              "The statement \"" + statement + "\" gives no columns; a recordset needs a query.");
    EXPECT_FALSE(OdbcRecordset(opened, "SELECT n FROM " + table).Eof());
  }
}

TEST(OdbcError, EndsTheRowsWhenTheServerGoesAway) {
  OdbcRecordset rows(OdbcConnection(postgres("UseDeclareFetch=1;Fetch=10")),
                     "SELECT generate_series(1, 100000), pg_backend_pid() AS pid");
  run(postgres(),
      "DO $$ BEGIN PERFORM pg_terminate_backend(" + std::to_string(rows.value(1).integer()) +
          ", 10000); END $$");
  const std::string error = errorOf([&] {
    while (!rows.Eof()) rows.MoveNext();
  });
  EXPECT_EQ(error.rfind("Cannot fetch the rows of \"SELECT generate_series", 0), 0U) << error;
  EXPECT_TRUE(rows.Eof());
  EXPECT_EQ(rows.RecordCount(), -1);
}

}  // namespace
}  // namespace paperway
