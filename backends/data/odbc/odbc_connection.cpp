#include <array>

#include "backends/data/odbc/odbc_attributes.h"
#include "backends/data/odbc/odbc_session.h"
#include "paperway/automation_error.h"
#include "paperway/odbc.h"
#include "util/text.h"

namespace paperway {
namespace {

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
  const OdbcAttributes attributes(connection);
  const std::string& text = attributes.text();
  const SQLRETURN result = SQLDriverConnect(connection_.get(), nullptr, odbcText(text),
                                            static_cast<SQLSMALLINT>(text.size()), nullptr, 0,
                                            nullptr, SQL_DRIVER_NOPROMPT);
  if (!SQL_SUCCEEDED(result)) {
    throw AutomationError(AutomationError::kDataProvider, "OdbcConnection",
                          "Cannot connect to \"" + attributes.shown() +
                              "\": " + attributes.withoutPasswords(connection_.diagnostics()));
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
