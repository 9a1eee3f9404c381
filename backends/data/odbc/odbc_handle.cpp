#include "backends/data/odbc/odbc_handle.h"

#include <array>

#include "paperway/automation_error.h"

namespace paperway {
namespace {

locale_t utf8Locale() {
  static const locale_t locale =
      newlocale(LC_CTYPE_MASK | LC_NUMERIC_MASK, "C.UTF-8", duplocale(LC_GLOBAL_LOCALE));
  return locale;
}

// Drivers put line ends and tabs into their messages.
std::string onOneLine(std::string_view text) {
  std::string line;
  for (const char c : text) {
    const bool space = c == ' ' || c == '\n' || c == '\r' || c == '\t';
    if (!space) {
      line += c;
    } else if (!line.empty() && line.back() != ' ') {
      line += ' ';
    }
  }
  while (line.ends_with(' ')) line.pop_back();
  return line;
}

}  // namespace

Utf8Locale::Utf8Locale() : before_(uselocale(utf8Locale())) {}

Utf8Locale::~Utf8Locale() {
  uselocale(before_);
}

OdbcHandle::OdbcHandle(SQLSMALLINT kind, const OdbcHandle* parent) : kind_(kind) {
  const SQLHANDLE above = parent == nullptr ? SQL_NULL_HANDLE : parent->get();
  if (!SQL_SUCCEEDED(SQLAllocHandle(kind, above, &handle_))) {
    throw AutomationError(AutomationError::kDataProvider, "OdbcConnection",
                          "ODBC gives no handle: " +
                              (parent == nullptr ? "it is out of memory." : parent->diagnostics()));
  }
  if (kind == SQL_HANDLE_ENV) {
    SQLSetEnvAttr(handle_, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0);
  }
}

OdbcHandle::~OdbcHandle() {
  const Utf8Locale locale;
  SQLFreeHandle(kind_, handle_);
}

std::string OdbcHandle::diagnostics() const {
  std::string result;
  std::array<SQLCHAR, 6> state{};
  std::array<SQLCHAR, 4096> message{};
  for (SQLSMALLINT record = 1;; ++record) {
    SQLINTEGER native = 0;
    SQLSMALLINT length = 0;
    if (!SQL_SUCCEEDED(SQLGetDiagRec(kind_, handle_, record, state.data(), &native, message.data(),
                                     message.size(), &length))) {
      break;
    }
    if (!result.empty()) result += ' ';
    result += '[' + std::string(reinterpret_cast<const char*>(state.data())) + "] ";
    result += onOneLine(reinterpret_cast<const char*>(message.data()));
  }
  return result.empty() ? "the driver gives no reason" : result;
}

}  // namespace paperway
