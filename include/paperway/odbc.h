#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "paperway/export.h"
#include "paperway/recordset.h"

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
class PAPERWAY_API OdbcConnection {
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

class OdbcCursor;

/// The rows of one query, straight from the database: no more than a block of them is held. The
/// connection stays open as long as one of its recordsets does.
///
/// A value has the type of its column: whole numbers and bits give integers; floating point numbers
/// reals; DECIMAL and NUMERIC an integer or a real where that is exact (15 digits), else a text of
/// all digits; DATE, TIME and TIMESTAMP dates; any other type a text, binary ones too when they are
/// UTF-8. SQLite's cells may differ from what their column declares; such a cell is what it holds.
/// A value that has none of these forms raises kTypeMismatch with the field's name.
class PAPERWAY_API OdbcRecordset : public Recordset {
 public:
  /// Stands on row 1. Anything but a query raises, and does not run.
  OdbcRecordset(const OdbcConnection& connection, std::string_view statement);
  /// Reads as if the driver could do what `driver` says, and no more.
  OdbcRecordset(const OdbcConnection& connection, std::string_view statement,
                const OdbcDriver& driver);
  ~OdbcRecordset() override;

  /// Runs the query again, unless row 1 is still at hand.
  void MoveFirst() override;
  /// Reads all rows up to the last one.
  void MoveLast() override;
  void MoveNext() override;
  bool Eof() const override { return eof_; }
  /// -1 until the last row has been reached.
  std::int64_t RecordCount() const override { return count_; }

  /// The file of a SQLite database. Others keep their files to themselves.
  std::vector<std::filesystem::path> sourceFiles() const override { return sourceFiles_; }

  std::size_t fieldCount() const override;
  std::string_view fieldName(std::size_t ordinal) const override;
  ValueView value(std::size_t ordinal) const override;

 private:
  void fetchBlock();
  void keepRow();
  [[noreturn]] static void raiseNoRow();

  std::vector<std::filesystem::path> sourceFiles_;
  std::unique_ptr<OdbcCursor> cursor_;
  std::vector<Value> lastRow_;   // of which the cursor is past; in use when `onLastRow_`
  std::int64_t rowsBefore_ = 0;  // the block
  std::size_t blockRows_ = 0;
  std::size_t row_ = 0;  // in the block
  std::int64_t count_ = -1;
  bool eof_ = true;
  bool onLastRow_ = false;
};

}  // namespace paperway
