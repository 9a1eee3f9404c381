#pragma once

// Shared by the files of this folder; not for hosts.

#include <string>
#include <string_view>

#include "backends/data/odbc/odbc_handle.h"
#include "paperway/odbc.h"

namespace paperway {

/// An open connection; it ends with the last of its recordsets.
class OdbcSession {
 public:
  explicit OdbcSession(std::string_view connection);
  ~OdbcSession();
  OdbcSession(const OdbcSession&) = delete;
  OdbcSession& operator=(const OdbcSession&) = delete;

  const OdbcHandle& handle() const { return connection_; }
  const OdbcDriver& driver() const { return driver_; }
  /// Of a database that is a file; else empty.
  std::string databaseFile() const;
  void stopWhen(bool (*question)()) { asked_ = question; }
  bool (*asked() const)() { return asked_; }

 private:
  OdbcHandle environment_{SQL_HANDLE_ENV, nullptr};
  OdbcHandle connection_{SQL_HANDLE_DBC, &environment_};
  OdbcDriver driver_;
  bool (*asked_)() = nullptr;
};

}  // namespace paperway
