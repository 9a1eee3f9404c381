#pragma once

// Shared by the files of this folder; not for hosts.

#include <clocale>
#include <sql.h>
#include <sqlext.h>
#include <string>
#include <string_view>

namespace paperway {

/// While one lives, its thread's character set is UTF-8 and its decimal mark a point. Drivers and
/// the driver manager take both from the locale, which is the host's and stays as it is. Where the
/// system lacks the locale "C.UTF-8", the host's own counts.
class Utf8Locale {
 public:
  Utf8Locale();
  ~Utf8Locale();
  Utf8Locale(const Utf8Locale&) = delete;
  Utf8Locale& operator=(const Utf8Locale&) = delete;

 private:
  locale_t before_;
};

/// An ODBC handle that frees itself; an environment (without a parent) asks for ODBC 3.
class OdbcHandle {
 public:
  OdbcHandle(SQLSMALLINT kind, const OdbcHandle* parent);
  ~OdbcHandle();
  OdbcHandle(const OdbcHandle&) = delete;
  OdbcHandle& operator=(const OdbcHandle&) = delete;

  SQLHANDLE get() const { return handle_; }

  /// What the last call on the handle had to say: "[42P01] ERROR: relation "sale" does not exist".
  std::string diagnostics() const;

 private:
  SQLSMALLINT kind_;
  SQLHANDLE handle_ = SQL_NULL_HANDLE;
};

/// ODBC takes texts that it does not change by a pointer to what it could change.
inline SQLCHAR* odbcText(std::string_view text) {
  return reinterpret_cast<SQLCHAR*>(const_cast<char*>(text.data()));
}

}  // namespace paperway
