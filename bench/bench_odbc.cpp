// All rows of a statement by ODBC: through a recordset, or by a bare loop of SQLFetch over bound
// columns that does nothing else.
//
//   bench_odbc recordset|bare CONNECTION STATEMENT

#include <array>
#include <cstdio>
#include <cstring>
#include <exception>
#include <sql.h>
#include <sqlext.h>
#include <stdexcept>
#include <string>
#include <vector>

#include "paperway/odbc.h"

namespace {

struct Sums {
  std::size_t rows = 0;
  std::size_t textBytes = 0;
  double numbers = 0;
};

void add(Sums& sums, paperway::ValueView value) {
  switch (value.kind()) {
    case paperway::ValueView::Kind::text:
      sums.textBytes += value.text().size();
      break;
    case paperway::ValueView::Kind::integer:
      sums.numbers += static_cast<double>(value.integer());
      break;
    case paperway::ValueView::Kind::real:
      sums.numbers += value.real();
      break;
    case paperway::ValueView::Kind::date:
      sums.textBytes += std::strlen("2026-03-05");
      break;
    case paperway::ValueView::Kind::null:
      break;
  }
}

Sums readRecordset(const std::string& connection, const std::string& statement) {
  paperway::OdbcRecordset rows(paperway::OdbcConnection(connection), statement);
  Sums sums;
  const std::size_t fields = rows.fieldCount();
  for (; !rows.Eof(); rows.MoveNext()) {
    for (std::size_t i = 0; i < fields; ++i) add(sums, rows.value(i));
    ++sums.rows;
  }
  return sums;
}

struct Cell {
  std::array<char, 256> text{};
  SQLDOUBLE real = 0;
  SQLBIGINT integer = 0;
  SQLLEN length = 0;
  SQLSMALLINT cType = SQL_C_CHAR;
};

void check(SQLRETURN result, const char* what) {
  if (!SQL_SUCCEEDED(result)) throw std::runtime_error(std::string("cannot ") + what);
}

SQLCHAR* odbcText(const std::string& text) {
  return reinterpret_cast<SQLCHAR*>(const_cast<char*>(text.c_str()));
}

void bind(SQLHSTMT handle, SQLUSMALLINT place, Cell& cell) {
  SQLLEN type = 0;
  check(SQLColAttribute(handle, place, SQL_DESC_CONCISE_TYPE, nullptr, 0, nullptr, &type),
        "describe");
  SQLPOINTER target = cell.text.data();
  if (type == SQL_INTEGER || type == SQL_BIGINT || type == SQL_SMALLINT) {
    cell.cType = SQL_C_SBIGINT;
    target = &cell.integer;
  } else if (type == SQL_DOUBLE || type == SQL_FLOAT || type == SQL_NUMERIC) {
    cell.cType = SQL_C_DOUBLE;
    target = &cell.real;
  }
  check(SQLBindCol(handle, place, cell.cType, target, static_cast<SQLLEN>(cell.text.size()),
                   &cell.length),
        "bind");
}

Sums readBare(const std::string& connection, const std::string& statement) {
  SQLHENV environment = nullptr;
  SQLHDBC session = nullptr;
  SQLHSTMT handle = nullptr;
  SQLAllocHandle(SQL_HANDLE_ENV, nullptr, &environment);
  SQLSetEnvAttr(environment, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0);
  SQLAllocHandle(SQL_HANDLE_DBC, environment, &session);
  check(SQLDriverConnect(session, nullptr, odbcText(connection), SQL_NTS, nullptr, 0, nullptr,
                         SQL_DRIVER_NOPROMPT),
        "connect");
  SQLAllocHandle(SQL_HANDLE_STMT, session, &handle);
  check(SQLExecDirect(handle, odbcText(statement), SQL_NTS), "run the statement");
  SQLSMALLINT count = 0;
  SQLNumResultCols(handle, &count);
  std::vector<Cell> row(static_cast<std::size_t>(count));
  for (std::size_t i = 0; i < row.size(); ++i) {
    bind(handle, static_cast<SQLUSMALLINT>(i + 1), row[i]);
  }
  Sums sums;
  while (SQL_SUCCEEDED(SQLFetch(handle))) {
    for (const Cell& cell : row) {
      if (cell.length == SQL_NULL_DATA) continue;
      if (cell.cType == SQL_C_CHAR) {
        sums.textBytes += static_cast<std::size_t>(cell.length);
      } else {
        sums.numbers += cell.cType == SQL_C_DOUBLE ? cell.real : static_cast<double>(cell.integer);
      }
    }
    ++sums.rows;
  }
  SQLFreeHandle(SQL_HANDLE_STMT, handle);
  SQLDisconnect(session);
  SQLFreeHandle(SQL_HANDLE_DBC, session);
  SQLFreeHandle(SQL_HANDLE_ENV, environment);
  return sums;
}

}  // namespace

int main(int argc, char** argv) try {
  if (argc != 4) {
    std::fprintf(stderr, "usage: bench_odbc recordset|bare CONNECTION STATEMENT\n");
    return 2;
  }
  const Sums sums =
      std::string(argv[1]) == "bare" ? readBare(argv[2], argv[3]) : readRecordset(argv[2], argv[3]);
  std::fprintf(stderr, "%zu rows, %zu bytes of text, numbers that add up to %.2f\n", sums.rows,
               sums.textBytes, sums.numbers);
  return 0;
} catch (const std::exception& error) {
  std::fprintf(stderr, "bench_odbc: %s\n", error.what());
  return 1;
}
