#include <string>
#include <vector>

#include "odbc_fixture.h"
#include "util/value.h"

namespace paperway {
namespace {

// The kind of a value by a letter, then its default text.
std::string shown(ValueView value) {
  const char kinds[] = {'-', 't', 'r', 'i', 'd'};
  return kinds[static_cast<int>(value.kind())] + (" " + defaultText(value));
}

struct Cell {
  const char* type;
  std::string literal;
  std::string postgres;
  std::string sqlite = postgres;
  std::string sqliteItself = sqlite;
};

const std::string kLong = [] {
  std::string text = "start ";
  while (text.size() < 100'000) text += "longer — länger 😀 ";
  return text;
}();
const std::string kUmlauts = [] {
  std::string text;
  for (int i = 0; i < 400; ++i) text += "ü";
  return text;
}();

const std::vector<Cell> kCells = {
    {"SMALLINT", "-7", "i -7"},
    {"INTEGER", "2147483647", "i 2147483647"},
    {"BIGINT", "9007199254740993", "i 9007199254740993"},
    {"BIGINT", "-9223372036854775808", "i -9223372036854775808"},
    {"REAL", "0.5", "r 0.5"},
    {"REAL", "100", "r 100"},
    {"DOUBLE PRECISION", "0.1", "r 0.1"},
    {"DOUBLE PRECISION", "1e300", "r 1E+300"},
    {"NUMERIC(12,2)", "0.10", "r 0.1"},
    {"NUMERIC(12,2)", "125.00", "i 125"},
    {"DECIMAL(12,2)", "-0.05", "r -0.05"},
    {"NUMERIC(16,2)", "1234567890123.45", "r 1234567890123.45"},
    // SQLite itself keeps these as doubles.
    {"NUMERIC(16,2)", "12345678901234.56", "t 12345678901234.56", "r 12345678901234.6"},
    {"NUMERIC(30,3)", "-12345678901234567890.5", "t -12345678901234567890.500",
     "r -1.23456789012346E+19"},
    {"NUMERIC(30,0)", "9223372036854775807", "i 9223372036854775807"},
    {"NUMERIC(30,0)", "5000000000000000000000", "r 5E+21"},
    {"BOOLEAN", "true", "i 1"},
    {"DATE", "'2026-03-05'", "d 3/5/2026"},
    {"TIMESTAMP", "'2026-03-05 14:07:09'", "d 3/5/2026 2:07:09 PM"},
    {"TIMESTAMP", "'2026-03-05 14:07:09.75'", "d 3/5/2026 2:07:09 PM"},
    {"TIME", "'14:07:09'", "d 12/30/1899 2:07:09 PM", "d 12/30/1899 2:07:09 PM", "t 14:07:09"},
    {"VARCHAR(20)", "'h\u00E9\u20AC\U0001F600'", "t h\u00E9\u20AC\U0001F600"},
    {"VARCHAR(20)", "'00123'", "t 00123"},
    {"VARCHAR(400)", "'" + kUmlauts + "'", "t " + kUmlauts},
    {"TEXT", "''", "t "},
    {"TEXT", "'" + kLong + "'", "t " + kLong},
    {"INTEGER", "42", "i 42"},
};

TEST(OdbcValues, HaveTheTypesOfTheirColumns) {
  const TwoDatabases databases;
  const std::string table = ownName("cells");
  std::string columns;
  std::string values;
  std::string nulls;
  for (std::size_t i = 0; i < kCells.size(); ++i) {
    columns += (i > 0 ? ", f" : "f") + std::to_string(i) + ' ' + kCells[i].type;
    values += (i > 0 ? ", " : "") + kCells[i].literal;
    nulls += i > 0 ? ", NULL" : "NULL";
  }
  databases.runOnBoth("CREATE TABLE " + table + "(" + columns + ")");
  databases.runOnBoth("INSERT INTO " + table + " VALUES (" + nulls + ")");
  databases.runOnBoth("INSERT INTO " + table + " VALUES (" + values + ")");

  for (const Way& way : kWays) {
    const auto rows = way.open(databases, "SELECT * FROM " + table + " ORDER BY f0 NULLS FIRST");
    ASSERT_EQ(rows->fieldCount(), kCells.size()) << way.name;
    for (std::size_t i = 0; i < kCells.size(); ++i) {
      EXPECT_TRUE(rows->value(i).isNull()) << way.name << ", " << kCells[i].type;
    }
    rows->MoveNext();
    for (std::size_t i = 0; i < kCells.size(); ++i) {
      const Cell& cell = kCells[i];
      EXPECT_EQ(shown(rows->value(i)), way.isPostgres ? cell.postgres
                                       : std::string(way.name) == "SQLite itself"
                                           ? cell.sqliteItself
                                           : cell.sqlite)
          << way.name << ", " << cell.type << ' ' << cell.literal.substr(0, 40);
    }
  }
}

struct Query {
  std::string query;
  std::string shown;
};

void expectValues(const std::string& connection, const std::vector<Query>& cases) {
  const OdbcConnection opened(connection);
  for (const auto& [query, expected] : cases) {
    EXPECT_EQ(errorOf([&] {
                const OdbcRecordset rows(opened, query);
                EXPECT_EQ(shown(rows.value(0)), expected) << query;
              }),
              "no error")
        << query;
  }
}

TEST(OdbcValues, OfSqliteAreWhatTheCellHolds) {
  const TwoDatabases databases;
  run(databases.sqlite(), "CREATE TABLE loose(n INTEGER, r REAL, d DATE, v VARCHAR(3), b BLOB)");
  run(databases.sqlite(),
      "INSERT INTO loose VALUES('none', 'x', 'soon', 'longer than three', x'c3a97a'),"
      "(1.5, 5, 20260305, 5, 'text')");
  const std::string second = " FROM loose WHERE v = '5'";
  expectValues(databases.sqlite(), {{"SELECT n FROM loose", "t none"},
                                    {"SELECT r FROM loose", "t x"},
                                    {"SELECT d FROM loose", "t soon"},
                                    {"SELECT v FROM loose", "t longer than three"},
                                    {"SELECT b FROM loose", "t \u00E9z"},
                                    {"SELECT n" + second, "r 1.5"},
                                    {"SELECT r" + second, "r 5"},
                                    {"SELECT d" + second, "i 20260305"},
                                    {"SELECT v" + second, "t 5"},
                                    {"SELECT b" + second, "t text"},
                                    // Expressions: what SQLite would write for a number is one.
                                    {"SELECT count(*) FROM loose", "i 2"},
                                    {"SELECT 2 * 2.5", "r 5"},
                                    {"SELECT 0.1", "r 0.1"},
                                    {"SELECT -1e300", "r -1E+300"},
                                    {"SELECT 0", "i 0"},
                                    {"SELECT '007'", "t 007"},
                                    {"SELECT '5.50'", "t 5.50"},
                                    {"SELECT '+5'", "t +5"},
                                    {"SELECT '5 pieces'", "t 5 pieces"},
                                    {"SELECT '-'", "t -"},
                                    {"SELECT 'inf'", "t inf"},
                                    {"SELECT upper(n) FROM loose", "t NONE"},
                                    {"SELECT 'é' AS \"ü\" WHERE 'ß' = 'ß'", "t \u00E9"}});
}

TEST(OdbcValues, OfPostgresKeepWhatTheyAre) {
  expectValues(postgres(), {{"SELECT 'NaN'::numeric", "t NaN"},
                            {"SELECT 123.456000", "r 123.456"},
                            {"SELECT count(*) FROM pg_class WHERE false", "i 0"},
                            {"SELECT sum(x) FROM (VALUES (0.1), (0.2)) v(x)", "r 0.3"},
                            {"SELECT 'c3a97a'::bytea", "t c3a97a"},
                            {"SELECT '\\xc3a97a'::bytea", "t \u00E9z"},
                            {"SELECT false", "i 0"},
                            {"SELECT '{\"a\": 1}'::json", "t {\"a\": 1}"},
                            {"SELECT 'ab'::char(4)", "t ab  "},
                            {"SELECT '1 day'::interval", "t 1 day"},
                            {"SELECT '0100-01-01'::date", "d 1/1/0100"},
                            {"SELECT repeat('x', 2000)::varchar", "t " + std::string(2000, 'x')}});
  expectValues(postgres("BoolsAsChar=0"), {{"SELECT true", "i 1"}});
}

TEST(OdbcValues, ArriveInUtf8FromADatabaseInAnotherEncoding) {
  const std::string name = ownName("latin");
  run(postgres(), "CREATE DATABASE " + name + " ENCODING 'LATIN1' LOCALE 'C' TEMPLATE template0");
  std::string connection = postgres();
  connection.replace(connection.find("=postgres;") + 1, 8, name);
  expectValues(connection,
               {{"SELECT U&'gr\\00FC\\00DFe'::text AS \"größe\"", "t gr\u00FC\u00DFe"}});
}

TEST(OdbcValues, ThatHaveNoFormNameTheirField) {
  const TwoDatabases databases;
  const std::string postgresServer = postgres();
  const struct {
    std::string connection;
    const char* query;
    const char* error;
  } cases[] = {
      {postgresServer, "SELECT '\\x00ff'::bytea AS photo",
       "The field \"photo\" holds bytes that are no text."},
      {postgresServer, "SELECT '0044-03-15 BC'::date AS ides",
       "The field \"ides\" holds a date or time outside the calendar's years 100 to 9999."},
      {postgresServer, "SELECT '-infinity'::timestamp AS ever",
       "The field \"ever\" holds a date or time outside the calendar's years 100 to 9999."},
      {databases.sqlite(), "SELECT CAST(x'67fc' AS TEXT) AS latin",
       "The field \"latin\" holds a text that is not UTF-8."},
  };
  for (const auto& c : cases) {
    const OdbcRecordset rows(OdbcConnection(c.connection), c.query);
    EXPECT_EQ(errorOf([&] { rows.value(0); }), c.error) << c.query;
  }
}

}  // namespace
}  // namespace paperway
