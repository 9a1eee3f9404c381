#include <array>

#include "backends/data/odbc/odbc_session.h"
#include "paperway/automation_error.h"
#include "paperway/odbc.h"
#include "util/text.h"

namespace paperway {
namespace {

// Behind the value of an attribute: at the next ";", which means nothing within braces. There "}}"
// stands for a "}".
std::size_t endOfValue(std::string_view text, std::size_t begin) {
  std::size_t at = begin;
  if (at < text.size() && text[at] == '{') {
    at = text.find('}', at);
    while (at < text.size() && text.substr(at, 2) == "}}") at = text.find('}', at + 2);
  }
  const std::size_t end = text.find(';', at);
  return end == std::string_view::npos ? text.size() : end;
}

// The connection string as messages show it.
std::string withoutPasswords(std::string_view text) {
  std::string result;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t value = std::min(text.find('=', at), text.size() - 1) + 1;
    const std::size_t end = endOfValue(text, value);
    const std::string_view key = trimBlanks(text.substr(at, value - at - 1));
    const bool secret = equalIgnoringCase(key, "PWD") || equalIgnoringCase(key, "Password");
    result += text.substr(at, value - at);
    result += secret ? "***" : text.substr(value, end - value);
    if (end < text.size()) result += ';';
    at = end + 1;
  }
  return result;
}

std::string infoText(const OdbcHandle& connection, SQLUSMALLINT what) {
  std::array<char, 4096> text{};
  SQLGetInfo(connection.get(), what, text.data(), text.size(), nullptr);
  return text.data();
}

SQLUINTEGER infoBits(const OdbcHandle& connection, SQLUSMALLINT what) {
  SQLUINTEGER bits = 0;
  if (!SQL_SUCCEEDED(SQLGetInfo(connection.get(), what, &bits, sizeof bits, nullptr))) return 0;
  return bits;
}

OdbcDriver describeDriver(const OdbcHandle& connection) {
  const SQLUINTEGER rereads = infoBits(connection, SQL_GETDATA_EXTENSIONS);
  constexpr SQLUINTEGER kAnyCell = SQL_GD_BOUND | SQL_GD_ANY_COLUMN | SQL_GD_ANY_ORDER;
  OdbcDriver driver;
  driver.looseTypes = equalIgnoringCase(infoText(connection, SQL_DBMS_NAME), "SQLite");
  driver.wideText = (infoBits(connection, SQL_CONVERT_VARCHAR) & SQL_CVT_WVARCHAR) != 0;
  driver.rereadsCells = (rereads & kAnyCell) == kAnyCell;
  driver.rereadsInBlocks = driver.rereadsCells && (rereads & SQL_GD_BLOCK) != 0;
  return driver;
}

}  // namespace

OdbcSession::OdbcSession(std::string_view connection) {
  const Utf8Locale locale;
  const bool attributes = connection.find('=') != std::string_view::npos;
  const std::string text = (attributes ? "" : "DSN=") + std::string(connection);
  const SQLRETURN result = SQLDriverConnect(connection_.get(), nullptr, odbcText(text),
                                            static_cast<SQLSMALLINT>(text.size()), nullptr, 0,
                                            nullptr, SQL_DRIVER_NOPROMPT);
  if (!SQL_SUCCEEDED(result)) {
    throw AutomationError(
        AutomationError::kDataProvider, "OdbcConnection",
        "Cannot connect to \"" + withoutPasswords(connection) + "\": " + connection_.diagnostics());
  }
  driver_ = describeDriver(connection_);
}

std::string OdbcSession::databaseFile() const {
  return driver_.looseTypes ? infoText(connection_, SQL_DATABASE_NAME) : "";
}

// A cursor of the server may have begun a transaction, and a driver does not disconnect in one.
OdbcSession::~OdbcSession() {
  const Utf8Locale locale;
  SQLEndTran(SQL_HANDLE_DBC, connection_.get(), SQL_ROLLBACK);
  SQLDisconnect(connection_.get());
}

OdbcConnection::OdbcConnection(std::string_view connection)
    : session_(std::make_shared<OdbcSession>(connection)) {}

const OdbcDriver& OdbcConnection::driver() const {
  return session_->driver();
}

void OdbcConnection::stopWhen(bool (*asked)()) const {
  session_->stopWhen(asked);
}

}  // namespace paperway
