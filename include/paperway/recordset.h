#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "paperway/export.h"
#include "paperway/value.h"

namespace paperway {

class Fields;

/// Rows of named, typed fields with a cursor: all that the library asks of a host's data. The host
/// owns it; the library moves the cursor, reads and never writes or closes. Failures are
/// AutomationErrors.
class PAPERWAY_API Recordset {
 public:
  virtual ~Recordset() = default;

  /// To row 1; on an empty recordset Eof() is then true and nothing is raised.
  virtual void MoveFirst() = 0;
  /// To the last row; an empty recordset raises kNoCurrentRow.
  virtual void MoveLast() = 0;
  /// To the next row; behind the last one Eof() is true. Past that it raises kNoCurrentRow.
  virtual void MoveNext() = 0;
  virtual bool Eof() const = 0;

  /// Number of rows, exact after MoveLast(); before that it may be -1.
  virtual std::int64_t RecordCount() const = 0;

  virtual std::size_t fieldCount() const = 0;
  /// UTF-8; lives as long as the recordset.
  virtual std::string_view fieldName(std::size_t ordinal) const = 0;
  /// The value in the row in hand, `ordinal` below fieldCount(). A text stays valid until the
  /// cursor moves. Raises kNoCurrentRow where there is no row.
  virtual ValueView value(std::size_t ordinal) const = 0;

  /// Place of the field of that name, ignoring case; -1 when there is none.
  std::ptrdiff_t findField(std::string_view name) const;
  /// The same; an unknown name raises kItemNotFound, which names it and lists those that there are.
  std::size_t fieldOrdinal(std::string_view name) const;

  /// The files that the rows come from, as far as they are known: a report must not take the place
  /// of one.
  virtual std::vector<std::filesystem::path> sourceFiles() const { return {}; }

  paperway::Fields Fields() const;
};

/// One field of the row in hand.
class PAPERWAY_API Field {
 public:
  Field(const Recordset& rows, std::size_t ordinal) : rows_(rows), ordinal_(ordinal) {}
  std::string_view Name() const { return rows_.fieldName(ordinal_); }
  ValueView Value() const { return rows_.value(ordinal_); }

 private:
  const Recordset& rows_;
  std::size_t ordinal_;
};

/// The fields of the row in hand. Item() by a 0-based index or by name, ignoring case.
class PAPERWAY_API Fields {
 public:
  explicit Fields(const Recordset& rows) : rows_(rows) {}
  std::size_t Count() const { return rows_.fieldCount(); }
  Field Item(std::size_t ordinal) const;
  Field Item(std::string_view name) const { return {rows_, rows_.fieldOrdinal(name)}; }

 private:
  const Recordset& rows_;
};

inline Fields Recordset::Fields() const {
  return paperway::Fields(*this);
}

}  // namespace paperway
