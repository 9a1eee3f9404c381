#include <string>

#include "odbc_fixture.h"
#include "support/expect_each.h"
#include "support/shown.h"

namespace paperway {
namespace {

struct Cell {
  const char* type;
  std::string literal;
  std::string postgres;
  std::string sqlite = postgres;
  std::string sqliteItself = sqlite;
};

std::string repeated(const char* part, int times) {
  std::string text;
  for (int i = 0; i < times; ++i) text += part;
  return text;
}
const std::string kLong = repeated("longer — länger 😀 ", 4000);
const std::string kUmlauts = repeated("ü", 400);

const auto kCells = table(
    Cell{"INTEGER", "2147483647", "i 2147483647"},
    Cell{"BIGINT", "9007199254740993", "i 9007199254740993"},
    Cell{"BIGINT", "-9223372036854775808", "i -9223372036854775808"}, Cell{"REAL", "0.5", "r 0.5"},
    Cell{"REAL", "100", "r 100"}, Cell{"DOUBLE PRECISION", "0.1", "r 0.1"},
    Cell{"DOUBLE PRECISION", "1e300", "r 1E+300"}, Cell{"NUMERIC(12,2)", "0.10", "r 0.1"},
    Cell{"NUMERIC(12,2)", "125.00", "i 125"}, Cell{"DECIMAL(12,2)", "-0.05", "r -0.05"},
    Cell{"NUMERIC(16,2)", "1234567890123.45", "r 1234567890123.45"},
    // SQLite itself keeps these as doubles.
    Cell{"NUMERIC(16,2)", "12345678901234.56", "t 12345678901234.56", "r 12345678901234.6"},
    Cell{"NUMERIC(30,3)",
         "-12345678901234567890.5",
         "t -12345678901234567890.500",
         "r -1.23456789012346E+19"},
    Cell{"NUMERIC(30,0)", "9223372036854775807", "i 9223372036854775807"},
    Cell{"NUMERIC(30,0)", "5000000000000000000000", "r 5E+21"}, Cell{"BOOLEAN", "true", "i 1"},
    Cell{"DATE", "'2026-03-05'", "d 3/5/2026"},
    Cell{"TIMESTAMP", "'2026-03-05 14:07:09'", "d 3/5/2026 2:07:09 PM"},
    Cell{"TIMESTAMP", "'2026-03-05 14:07:09.75'", "d 3/5/2026 2:07:09 PM"},
    Cell{"TIME", "'14:07:09'", "d 12/30/1899 2:07:09 PM", "d 12/30/1899 2:07:09 PM", "t 14:07:09"},
    Cell{"VARCHAR(20)", "'hé€😀'", "t hé€😀"}, Cell{"VARCHAR(20)", "'00123'", "t 00123"},
    Cell{"VARCHAR(400)", "'" + kUmlauts + "'", "t " + kUmlauts}, Cell{"TEXT", "''", "t "},
    Cell{"TEXT", "'" + kLong + "'", "t " + kLong}, Cell{"INTEGER", "42", "i 42"});

TEST(OdbcValues, HaveTheTypesOfTheirColumns) {
  const TwoDatabases databases;
  const std::string table = ownName("cells");
  std::string columns;
  std::string values;
  std::string nulls;
  for (const Cell& cell : kCells) {
    const std::string comma = columns.empty() ? "" : ", ";
    columns += comma + "f" + std::to_string(columns.size()) + ' ' + cell.type;
    values += comma + cell.literal;
    nulls += comma + "NULL";
  }
  databases.runOnBoth("CREATE TABLE " + table + "(" + columns + ")");
  databases.runOnBoth("INSERT INTO " + table + " VALUES (" + nulls + "), (" + values + ")");

  for (const Way& way : kWays) {
    const auto rows = way.open(databases, "SELECT * FROM " + table + " ORDER BY f0 NULLS FIRST");
    ASSERT_EQ(rows->fieldCount(), kCells.size()) << way.name;
    for (std::size_t i = 0; i < kCells.size(); ++i) {
      EXPECT_TRUE(rows->value(i).isNull()) << way.name << ", " << kCells[i].type;
    }
    rows->MoveNext();
    for (std::size_t i = 0; i < kCells.size(); ++i) {
      const Cell& cell = kCells[i];
      const auto& lite = way.attributes == nullptr ? cell.sqliteItself : cell.sqlite;
      EXPECT_EQ(shown(rows->value(i)), way.isPostgres ? cell.postgres : lite)
          << way.name << ", " << cell.type << ' ' << cell.literal.substr(0, 40);
    }
  }
}

/// The fields of a query's first row, with commas between them.
struct FieldsOf {
  OdbcConnection connection;

  std::string operator()(const std::string& query) const {
    const OdbcRecordset rows(connection, query);
    std::string fields;
    for (std::size_t i = 0; i < rows.fieldCount(); ++i) {
      fields += (i > 0 ? ", " : "") + shown(rows.value(i));
    }
    return fields;
  }
};

TEST(OdbcValues, OfSqliteAreWhatTheCellHolds) {
  const TwoDatabases databases;
  run(databases.sqlite(), "CREATE TABLE loose(n INTEGER, r REAL, d DATE, v VARCHAR(3), b BLOB)");
  run(databases.sqlite(),
      "INSERT INTO loose VALUES('none', 'x', 'soon', 'longer than three', x'c3a97a'),"
      "(1.5, 5, 20260305, 5, 'text')");
  expectEach(
      FieldsOf{OdbcConnection(databases.sqlite())},
      Row{"SELECT * FROM loose", "t none, t x, t soon, t longer than three, t éz"},
      Row{"SELECT * FROM loose WHERE v = '5'", "r 1.5, r 5, i 20260305, t 5, t text"},
      // Expressions: what SQLite would write for a number is one.
      Row{"SELECT count(*), 2 * 2.5, 0.1, -1e300, 0 FROM loose", "i 2, r 5, r 0.1, r -1E+300, i 0"},
      Row{"SELECT '007', '5.50', '+5', '5 pieces', '-', 'inf'",
          "t 007, t 5.50, t +5, t 5 pieces, t -, t inf"},
      Row{"SELECT upper(n), 'é' AS \"ü\" FROM loose WHERE 'ß' = 'ß'", "t NONE, t é"});
}

TEST(OdbcValues, OfPostgresKeepWhatTheyAre) {
  expectEach(FieldsOf{OdbcConnection(postgres())},
             Row{"SELECT 'NaN'::numeric, 123.456000, false, '0100-01-01'::date",
                 "t NaN, r 123.456, i 0, d 1/1/0100"},
             Row{"SELECT count(*) FROM pg_class WHERE false", "i 0"},
             Row{"SELECT 'c3a97a'::bytea, '\\xc3a97a'::bytea", "t c3a97a, t éz"},
             Row{"SELECT '{\"a\": 1}'::json, 'ab'::char(4), '1 day'::interval",
                 "t {\"a\": 1}, t ab  , t 1 day"},
             Row{"SELECT repeat('x', 2000)::varchar", "t " + std::string(2000, 'x')});
  expectEach(FieldsOf{OdbcConnection(postgres("BoolsAsChar=0"))}, Row{"SELECT true", "i 1"});
}

TEST(OdbcValues, ArriveInUtf8FromADatabaseInAnotherEncoding) {
  const std::string name = ownName("latin");
  run(postgres(), "CREATE DATABASE " + name + " ENCODING 'LATIN1' LOCALE 'C' TEMPLATE template0");
  std::string connection = postgres();
  connection.replace(connection.find("=postgres;") + 1, 8, name);
  expectEach(FieldsOf{OdbcConnection(connection)},
             Row{"SELECT U&'gr\\00FC\\00DFe'::text AS \"größe\"", "t grüße"});
}

TEST(OdbcValues, ThatHaveNoFormNameTheirPlace) {
  const TwoDatabases databases;
  const std::string server = postgres();
  const std::string outside =
      " of row 1 holds a date or time outside the calendar's years 100 to 9999.";
  const auto errorOfQuery = [](const std::string& connection, const char* query) {
    OdbcRecordset rows(OdbcConnection(connection), query);
    return errorOf([&] { rows.MoveLast(); });
  };
  expectEach(errorOfQuery,
             Row{server,
                 "SELECT '\\x00ff'::bytea AS photo",
                 "The field \"photo\" of row 1 holds bytes that are no text."},
             Row{server, "SELECT '0044-03-15 BC'::date AS ides", "The field \"ides\"" + outside},
             Row{server, "SELECT '-infinity'::timestamp AS ever", "The field \"ever\"" + outside},
             Row{databases.sqlite(),
                 "SELECT 'a' AS latin UNION ALL SELECT CAST(x'67fc' AS TEXT)",
                 "The field \"latin\" of row 2 holds a text that is not UTF-8."});
}

}  // namespace
}  // namespace paperway
