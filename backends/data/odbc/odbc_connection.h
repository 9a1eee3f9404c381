#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace paperway {

/// What reading rows depends on in an ODBC driver. Each connection finds out about its own.
struct OdbcDriver {
  bool looseTypes = false;       // cells of any type in any column, as SQLite has them
  bool wideText = false;         // gives every text as UTF-16, so that no character is lost
  bool rereadsCells = false;     // gives a cell whole that was too long for its place in a row
  bool rereadsInBlocks = false;  // the same for each row of a block
};

class OdbcSession;

/// A connection by ODBC. For one thread: it and its recordsets are not to be used from two at a
/// time. Failures are AutomationErrors that carry the driver's messages with their SQLSTATE.
class OdbcConnection {
 public:
  /// A connection string ("Driver=SQLite3;Database=sales.db;StepAPI=1") or the name of a data
  /// source, in UTF-8. A password in it appears in no message.
  explicit OdbcConnection(std::string_view connection);

  const OdbcDriver& driver() const;

  /// Asked now and then while a recordset opened later waits for the database; true ends its
  /// statement with an AutomationError. The question comes from another thread.
  void stopWhen(bool (*asked)()) const;

 private:
  friend class OdbcRecordset;

  std::shared_ptr<OdbcSession> session_;
};

}  // namespace paperway
