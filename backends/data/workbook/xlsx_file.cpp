#include "backends/data/workbook/xlsx_file.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <string>
#include <vector>

#include "backends/data/workbook/book_file.h"
#include "backends/data/workbook/xlsx_styles.h"
#include "backends/data/workbook/xml_text.h"
#include "backends/data/workbook/zip_writer.h"
#include "util/digits.h"
#include "util/path_text.h"

namespace paperway::workbook {
namespace {

constexpr SheetLimits kLimits{1'048'576, 16'384,
                              "Write the rows to more than one workbook, or as a text report."};
constexpr std::size_t kBlock = 128 * 1024;

constexpr std::string_view kXml = R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?>
)";

constexpr std::string_view kContentTypes =
    R"(<Types xmlns="http://schemas.openxmlformats.org/package/2006/content-types">)"
    R"(<Default Extension="rels" )"
    R"(ContentType="application/vnd.openxmlformats-package.relationships+xml"/>)"
    R"(<Default Extension="xml" ContentType="application/xml"/>)"
    R"(<Override PartName="/xl/workbook.xml" ContentType=)"
    R"("application/vnd.openxmlformats-officedocument.spreadsheetml.sheet.main+xml"/>)"
    R"(<Override PartName="/xl/worksheets/sheet1.xml" ContentType=)"
    R"("application/vnd.openxmlformats-officedocument.spreadsheetml.worksheet+xml"/>)"
    R"(<Override PartName="/xl/styles.xml" ContentType=)"
    R"("application/vnd.openxmlformats-officedocument.spreadsheetml.styles+xml"/></Types>)";

constexpr std::string_view kRelationships =
    R"(<Relationships xmlns="http://schemas.openxmlformats.org/package/2006/relationships">)"
    R"(<Relationship Id="rId1" Type=)"
    R"("http://schemas.openxmlformats.org/officeDocument/2006/relationships/officeDocument" )"
    R"(Target="xl/workbook.xml"/></Relationships>)";

constexpr std::string_view kBookRelationships =
    R"(<Relationships xmlns="http://schemas.openxmlformats.org/package/2006/relationships">)"
    R"(<Relationship Id="rId1" Type=)"
    R"("http://schemas.openxmlformats.org/officeDocument/2006/relationships/worksheet" )"
    R"(Target="worksheets/sheet1.xml"/>)"
    R"(<Relationship Id="rId2" Type=)"
    R"("http://schemas.openxmlformats.org/officeDocument/2006/relationships/styles" )"
    R"(Target="styles.xml"/></Relationships>)";

constexpr std::string_view kBookBegin =
    R"(<workbook xmlns="http://schemas.openxmlformats.org/spreadsheetml/2006/main" )"
    R"(xmlns:r="http://schemas.openxmlformats.org/officeDocument/2006/relationships">)"
    R"(<sheets><sheet name="Sheet1" sheetId="1" r:id="rId1"/></sheets>)";

std::string numberText(double number) {
  std::array<char, 32> room{};
  return {room.data(), std::to_chars(room.data(), room.data() + room.size(), number).ptr};
}

/// "1234.5": most numbers of a ledger have two decimals at most, which integers write quickly.
void appendNumber(std::string& out, double number) {
  std::int64_t hundredths = 0;
  if (!scaleExactly(number, 2, hundredths)) {
    std::array<char, 32> room{};
    out.append(room.data(), std::to_chars(room.data(), room.data() + room.size(), number).ptr);
    return;
  }
  std::array<char, 32> room{};
  char* const end = room.data() + room.size();
  char* at = end;
  const std::uint64_t size = magnitude(hundredths);
  const auto cents = static_cast<unsigned>(size % 100);
  if (cents % 10 != 0) {
    at -= 2;
    writePair(at, cents);
  } else if (cents != 0) {
    *--at = static_cast<char>('0' + cents / 10);
  }
  if (cents != 0) *--at = '.';
  at = writeDigitsBefore(at, size / 100);
  if (hundredths < 0) *--at = '-';
  out.append(at, end);
}

/// Programs measure a column in pixels of their usual font, seven to a digit and five beside.
double widthOf(double characters) {
  constexpr double kDigit = 7;
  constexpr double kBeside = 5;
  constexpr double kUnits = 256;
  return std::floor((kDigit * characters + kBeside) / kDigit * kUnits) / kUnits;
}

std::string columnsXml(const SheetPlan& plan) {
  std::string xml;
  for (std::size_t i = 0; i < plan.columnWidths.size(); ++i) {
    if (!plan.columnWidths[i]) continue;
    const std::string place = std::to_string(i + 1);
    const double width = std::min(*plan.columnWidths[i], kWidestColumn);
    xml += "<col min=\"" + place + "\" max=\"" + place + "\" width=\"" +
           numberText(widthOf(width)) + "\" customWidth=\"1\"" +
           (width > 0 ? "/>" : " hidden=\"1\"/>");
  }
  return xml.empty() ? xml : "<cols>" + xml + "</cols>";
}

std::string pageXml(const SheetPage& page, const WorkbookTarget& target) {
  const PageMargins margins(page);
  std::string xml = "<pageMargins";
  for (const auto& [name, inches] : {std::pair("left", margins.left),
                                     {"right", margins.right},
                                     {"top", margins.top},
                                     {"bottom", margins.bottom},
                                     {"header", margins.header},
                                     {"footer", margins.footer}}) {
    xml += std::string(" ") + name + "=\"" + numberText(inches) + '"';
  }
  xml += "/><pageSetup paperSize=\"" + std::to_string(page.paper) + "\" orientation=\"" +
         (page.landscape ? "landscape" : "portrait") + "\"/><headerFooter><oddFooter>";
  appendXmlText(xml, footerText(page, target));
  return xml + "</oddFooter></headerFooter>";
}

std::string bookXml(const SheetPage& page) {
  std::string xml = std::string(kXml) + std::string(kBookBegin);
  if (page.titleRows > 0) {
    xml +=
        std::string(R"(<definedNames><definedName name="_xlnm.Print_Titles" localSheetId="0">)") +
        kSheetName + "!$1:$" + std::to_string(page.titleRows) + "</definedName></definedNames>";
  }
  return xml + "</workbook>";
}

/// What stands before the values of the cells of a format.
struct CellHeads {
  std::string empty;
  std::string text;
  std::string spacedText;
  std::string number;
  std::string day;
  std::string dayAndTime;
  std::string formula;
};

CellHeads headsOf(std::size_t format) {
  const auto cell = [format](StyleKind kind) {
    return "<c s=\"" + std::to_string(styleOf(format, kind)) + '"';
  };
  const std::string plain = cell(StyleKind::plain);
  return {.empty = plain + "/>",
          .text = plain + " t=\"inlineStr\"><is><t>",
          .spacedText = plain + " t=\"inlineStr\"><is><t xml:space=\"preserve\">",
          .number = plain + "><v>",
          .day = cell(StyleKind::day) + "><v>",
          .dayAndTime = cell(StyleKind::dayAndTime) + "><v>",
          .formula = plain + "><f>"};
}

/// Rows and cells have no references of their own: each stands where it comes.
class XlsxFile : public BookFile {
 public:
  XlsxFile(Storage& storage, const WorkbookTarget& target, const SheetPlan& plan)
      : BookFile(storage, target, plan, kLimits),
        end_("</sheetData>" + pageXml(plan.page, target) + "</worksheet>"),
        zip_(file_, textOf(target.file), target.caller) {
    for (std::size_t i = 0; i < plan.formats.size(); ++i) heads_.push_back(headsOf(i));
    zip_.add("[Content_Types].xml", std::string(kXml) + std::string(kContentTypes));
    zip_.add("_rels/.rels", std::string(kXml) + std::string(kRelationships));
    zip_.add("xl/_rels/workbook.xml.rels", std::string(kXml) + std::string(kBookRelationships));
    zip_.add("xl/workbook.xml", bookXml(plan.page));
    zip_.add("xl/styles.xml", stylesXml(plan.formats));
    zip_.begin("xl/worksheets/sheet1.xml");
    sheet_ = std::string(kXml) +
             R"(<worksheet xmlns="http://schemas.openxmlformats.org/spreadsheetml/2006/main">)"
             R"(<sheetFormatPr defaultRowHeight="12.75"/>)" +
             columnsXml(plan) + "<sheetData>";
  }

 protected:
  void putEmpty(std::size_t format) override { begin() += heads_[format].empty; }

  void putText(std::size_t format, std::string_view text) override {
    const CellHeads& heads = heads_[format];
    begin() += needsSpacePreserved(text) ? heads.spacedText : heads.text;
    appendXmlText(sheet_, text);
    sheet_ += "</t></is></c>";
  }

  void putNumber(std::size_t format, double number) override {
    begin() += heads_[format].number;
    putValue(number);
  }

  void putDate(std::size_t format, double serial, DateKind kind) override {
    const CellHeads& heads = heads_[format];
    begin() += kind == DateKind::day ? heads.day : heads.dayAndTime;
    putValue(serial);
  }

  void putSum(std::size_t format, std::int64_t rows, double value) override {
    const std::string letters = columnLetters(column_);
    begin() += heads_[format].formula + "SUM(" + letters + std::to_string(row_ + 1 - rows) + ':' +
               letters + std::to_string(row_) + ")</f><v>";
    putValue(value);
  }

  void putRowEnd() override {
    begin() += "</row>";
    inRow_ = false;
    if (sheet_.size() < kBlock) return;
    zip_.write(sheet_);
    sheet_.clear();
  }

  void putEnd() override {
    zip_.write(sheet_ + end_);
    zip_.end();
    zip_.finish();
  }

 private:
  /// The sheet so far, within the row in hand.
  std::string& begin() {
    if (!inRow_) sheet_ += "<row>";
    inRow_ = true;
    return sheet_;
  }

  void putValue(double number) {
    appendNumber(sheet_, number);
    sheet_ += "</v></c>";
  }

  const std::string end_;  // of the sheet
  ZipWriter zip_;
  std::vector<CellHeads> heads_;  // of each format
  std::string sheet_;             // what the archive does not have yet
  bool inRow_ = false;
};

}  // namespace

std::unique_ptr<Workbook> createXlsx(Storage& storage, const WorkbookTarget& target,
                                     const SheetPlan& plan) {
  return std::make_unique<XlsxFile>(storage, target, plan);
}

}  // namespace paperway::workbook
