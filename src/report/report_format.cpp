#include "report/report_format.h"

#include <cmath>
#include <limits>

#include "paperway/automation_error.h"
#include "util/numbers.h"
#include "util/text.h"
#include "util/value_text.h"

namespace paperway {
namespace {

constexpr const char* kSource = "Set_Repot_Format";

/// Reads the fields of one row; errors name the field and the row.
class RowReader {
 public:
  RowReader(const Recordset& rows, std::size_t rowNumber) : rows_(rows), rowNumber_(rowNumber) {}

  std::string text(std::string_view name) const { return defaultText(required(name)); }

  std::string text(std::string_view name, std::string_view whenNull) const {
    const ValueView value = rows_.value(rows_.fieldOrdinal(name));
    return value.isNull() ? std::string(whenNull) : defaultText(value);
  }

  char32_t letter(std::string_view name) const { return firstCharacter(text(name)); }

  char32_t letter(std::string_view name, std::string_view whenNull) const {
    return firstCharacter(text(name, whenNull));
  }

  /// Rounded to the nearest whole number, a half to the even one.
  template <typename Integer>
  Integer integer(std::string_view name) const {
    const double number = std::nearbyint(numberOf(name, required(name)));
    if (number < std::numeric_limits<Integer>::min() ||
        number > std::numeric_limits<Integer>::max()) {
      fail(AutomationError::kOverflow, name,
           "holds " + defaultText(number) + ", which lies outside " +
               std::to_string(std::numeric_limits<Integer>::min()) + " to " +
               std::to_string(std::numeric_limits<Integer>::max()));
    }
    return static_cast<Integer>(number);
  }

  double realOrZero(std::string_view name) const {
    const ValueView value = rows_.value(rows_.fieldOrdinal(name));
    return value.isNull() ? 0 : numberOf(name, value);
  }

 private:
  ValueView required(std::string_view name) const {
    const ValueView value = rows_.value(rows_.fieldOrdinal(name));
    if (value.isNull()) fail(AutomationError::kInvalidUseOfNull, name, "is null and must not be");
    return value;
  }

  double numberOf(std::string_view name, ValueView value) const {
    const std::string text = defaultText(value);
    const auto number = parseNumber(text);
    if (!number) fail(AutomationError::kTypeMismatch, name, "holds \"" + text + "\", no number");
    return *number;
  }

  static char32_t firstCharacter(std::string_view text) {
    std::size_t offset = 0;
    return text.empty() ? U' ' : nextCharacter(text, offset);
  }

  [[noreturn]] void fail(long number, std::string_view name, const std::string& reason) const {
    throw AutomationError(number, kSource,
                          "Field \"" + std::string(name) + "\" of row " +
                              std::to_string(rowNumber_) + " of the column table " + reason + ".");
  }

  const Recordset& rows_;
  std::size_t rowNumber_;
};

/// Takes every "Count+" out of a group field's name and tells whether there was one.
bool takeCountMarker(std::string& groupField) {
  constexpr std::string_view kMarker = "Count+";
  bool found = false;
  std::size_t at = 0;
  while ((at = findIgnoringCase(groupField, kMarker, at)) != std::string::npos) {
    groupField.erase(at, kMarker.size());
    found = true;
  }
  return found;
}

/// The fields that a column table may leave out.
struct OptionalFields {
  explicit OptionalFields(const Recordset& rst)
      : dupPrintYN(rst.findField("DupPrintYN") >= 0),
        dupPrintField(rst.findField("DupPrintField") >= 0),
        fontSize(rst.findField("FontSize") >= 0),
        groupHeader(rst.findField("GroupHeader") >= 0),
        groupHeaderFont(rst.findField("G_H_FontNm") >= 0),
        groupHeaderFontSize(rst.findField("G_H_FontSize") >= 0) {}

  bool dupPrintYN, dupPrintField, fontSize, groupHeader, groupHeaderFont, groupHeaderFontSize;
};

void readStyleFields(const RowReader& row, const OptionalFields& has, ColumnFormat& column) {
  if (has.fontSize) {
    column.FontSize = row.realOrZero("FontSize");
    if (column.FontSize == 0) column.CellClass = "<Q>";
  }
  if (has.groupHeader) column.GroupHeader = row.text("GroupHeader", "0");
  if (has.groupHeaderFont) column.G_H_FontNm = row.text("G_H_FontNm", "0");
  if (has.groupHeaderFontSize) column.G_H_FontSize = row.realOrZero("G_H_FontSize");
}

void readColumn(const RowReader& row, const OptionalFields& has, ColumnFormat& column) {
  readStyleFields(row, has, column);
  column.fNM = row.text("fNM");
  column.fHeder = row.text("fHeder");
  column.Sz = row.integer<std::int16_t>("Sz");
  column.Dtyp = row.letter("Dtyp");
  column.Ali = row.letter("Ali");
  column.Spc = row.integer<std::uint8_t>("Spc");
  column.Frmt = row.text("Frmt", "");
  column.GTot1 = row.text("GTot1", "");
  column.GTot2 = row.text("GTot2", "");
  column.Group1Count = takeCountMarker(column.GTot1) ? 1 : 0;
  column.Group2Count = takeCountMarker(column.GTot2) ? 1 : 0;
  column.Lt = row.letter("Lt");
  column.BoldGroup1 = row.letter("BoldGroup1", "");
  column.BoldGroup2 = row.letter("BoldGroup2", "");
  column.AllPageTot = row.letter("AllPageTot", "N");
  column.FontNm = row.text("FontNm", "Arial Narrow");
  column.DupPrintYN = has.dupPrintYN ? row.text("DupPrintYN", "N") : "N";
  column.DupPrintField = has.dupPrintField ? row.text("DupPrintField", "") : "";
}

/// Rows of the column table; the cursor is left on the last one.
std::size_t countRows(Recordset& rst) {
  try {
    rst.MoveLast();
  } catch (const AutomationError& error) {
    if (error.number() != AutomationError::kNoCurrentRow) throw;
    throw AutomationError(error.number(), kSource, "The column table has no rows.");
  }
  const std::int64_t rows = rst.RecordCount();
  if (rows < 1) {
    throw AutomationError(AutomationError::kDataProvider, kSource,
                          "The column table does not say how many rows it has.");
  }
  return static_cast<std::size_t>(rows);
}

}  // namespace

std::vector<std::filesystem::path> sourceFiles(const Recordset& rows,
                                               const ReportFormatTable& table) {
  std::vector<std::filesystem::path> files = rows.sourceFiles();
  files.insert(files.end(), table.sourceFiles.begin(), table.sourceFiles.end());
  return files;
}

void readReportFormat(Recordset& rst, std::shared_ptr<ReportFormatTable>& table) {
  const std::size_t rows = countRows(rst);
  table = std::make_shared<ReportFormatTable>(rows);
  table->sourceFiles = rst.sourceFiles();
  rst.MoveFirst();
  const OptionalFields has(rst);
  for (std::size_t i = 0; !rst.Eof(); ++i) {
    if (i >= rows) {
      throw AutomationError(AutomationError::kSubscript, kSource,
                            "The column table has more rows than the " + std::to_string(rows) +
                                " that its count says.");
    }
    readColumn(RowReader(rst, i + 1), has, table->records[i]);
    rst.MoveNext();
  }
}

}  // namespace paperway
