#include "backends/data/workbook/xls_globals.h"

#include <algorithm>
#include <cmath>

#include "backends/data/workbook/biff_records.h"
#include "backends/data/workbook/book_file.h"
#include "backends/data/workbook/little_endian.h"
#include "backends/data/workbook/look_tables.h"

namespace paperway::workbook {
namespace {

constexpr unsigned kKinds = 3;
constexpr unsigned kStyles = 15;           // before the cells' own
constexpr unsigned kFirstOwnNumber = 164;  // those below are the program's
constexpr unsigned kDay = 14;
constexpr unsigned kDayAndTime = 22;
constexpr std::uint32_t kThinLines = 0x1111 + (0x40U << 16) + (0x40U << 23);
constexpr std::uint32_t kLineColors = 0x40 + (0x40U << 7);

std::string words(std::initializer_list<unsigned> fields) {
  std::string data;
  for (const unsigned field : fields) put16(data, field);
  return data;
}

std::string shortText(std::string_view utf8) {
  const BiffText text(utf8);
  std::string data;
  put8(data, text.units());
  text.putTo(data);
  return data;
}

std::string longText(std::string_view utf8) {
  const BiffText text(utf8);
  std::string data;
  put16(data, text.units());
  text.putTo(data);
  return data;
}

void putFonts(std::string& out, const LookTables& tables) {
  constexpr unsigned kTwipsOfPoint = 20;
  constexpr int kFirstFonts = 4;  // the next one is known as the sixth
  for (std::size_t i = 0; i < tables.fonts.size(); ++i) {
    const auto& [name, bold] = tables.fonts[i];
    const std::string data = words({kUsualFontSize * kTwipsOfPoint, bold ? 1U : 0U, 0x7FFF,
                                    bold ? 700U : 400U, 0, 0, 0}) +
                             shortText(name.empty() ? kUsualFont : name);
    for (int copies = i == 0 ? kFirstFonts : 1; copies > 0; --copies) {
      putRecord(out, Biff::font, data);
    }
  }
}

void putNumbers(std::string& out, const LookTables& tables) {
  for (std::size_t i = 1; i < tables.numbers.size(); ++i) {
    putRecord(out, Biff::format,
              words({kFirstOwnNumber + static_cast<unsigned>(i)}) + longText(tables.numbers[i]));
  }
}

void putStyle(std::string& out, const LookTables::Look& look, unsigned number, bool ofCell) {
  std::string data;
  put16(data, static_cast<unsigned>(look.font == 0 ? 0 : look.font + 4));
  put16(data, number);
  put16(data, ofCell ? 0x0001 : 0xFFF5);
  for (const unsigned byte : {0x20U, 0U, 0U, ofCell ? 0x2CU : 0xF4U}) put8(data, byte);
  put32(data, look.grid ? kThinLines : 0);
  put32(data, look.grid ? kLineColors : 0);
  put16(data, 0x20C0);
  putRecord(out, Biff::cellStyle, data);
}

void putStyles(std::string& out, const LookTables& tables) {
  for (unsigned i = 0; i < kStyles; ++i) putStyle(out, {0, 0, false}, 0, false);
  for (const LookTables::Look& look : tables.looks) {
    const bool general = look.number == 0;
    const unsigned own = kFirstOwnNumber + static_cast<unsigned>(look.number);
    putStyle(out, look, general ? 0 : own, true);
    putStyle(out, look, general ? kDay : own, true);
    putStyle(out, look, general ? kDayAndTime : own, true);
  }
  std::string normal = words({0x8000});
  put8(normal, 0);
  put8(normal, 0xFF);
  putRecord(out, Biff::style, normal);
}

/// The rows that head each page: a name that the format knows.
void putPrintTitles(std::string& out, int rows) {
  constexpr unsigned kArea = 0x3B;
  constexpr unsigned kAreaBytes = 11;
  constexpr unsigned kPrintTitles = 7;
  if (rows <= 0) return;
  putRecord(out, Biff::externBook, words({1, 0x0401}));
  putRecord(out, Biff::externSheet, words({1, 0, 0, 0}));
  std::string data = words({0x0020});
  put8(data, 0);
  put8(data, 1);
  data += words({kAreaBytes, 0, 1, 0, 0});
  put8(data, 0);
  put8(data, kPrintTitles);
  put8(data, kArea);
  data += words({0, 0, static_cast<unsigned>(rows - 1), 0, 255});
  putRecord(out, Biff::name, data);
}

void putTexts(std::string& out, const std::vector<std::string_view>& texts, std::uint32_t named) {
  BiffTextsWriter writer(out, named, static_cast<std::uint32_t>(texts.size()));
  for (const std::string_view text : texts) writer.add(text);
  writer.finish();
}

unsigned widthOf(double characters) {
  constexpr double kDigit = 7;  // pixels
  constexpr double kBeside = 5;
  constexpr double kUnits = 256;
  return static_cast<unsigned>(
      std::floor((kDigit * std::min(characters, kWidestColumn) + kBeside) / kDigit * kUnits));
}

void putColumns(std::string& out, const SheetPlan& plan) {
  constexpr unsigned kOwnWidth = 2;
  constexpr unsigned kHidden = 1;
  putRecord(out, Biff::usualColumnWidth, words({8}));
  for (unsigned i = 0; i < plan.columnWidths.size(); ++i) {
    if (!plan.columnWidths[i]) continue;
    const double width = *plan.columnWidths[i];
    putRecord(
        out, Biff::columnInfo,
        words({i, i, widthOf(width), kStyles, width > 0 ? kOwnWidth : kOwnWidth | kHidden, 0}));
  }
}

void putPage(std::string& out, const SheetPage& page, const WorkbookTarget& target) {
  const PageMargins margins(page);
  putRecord(out, Biff::header, "");
  putRecord(out, Biff::footer, longText(footerText(page, target)));
  for (const auto& [id, inches] : {std::pair(Biff::leftMargin, margins.left),
                                   {Biff::rightMargin, margins.right},
                                   {Biff::topMargin, margins.top},
                                   {Biff::bottomMargin, margins.bottom}}) {
    std::string data;
    putDouble(data, inches);
    putRecord(out, id, data);
  }
  std::string data =
      words({static_cast<unsigned>(page.paper), 100, 1, 1, 1, page.landscape ? 0U : 2U, 600, 600});
  putDouble(data, margins.header);
  putDouble(data, margins.footer);
  data += words({1});
  putRecord(out, Biff::setup, data);
}

}  // namespace

void putBegin(std::string& out, XlsPart part) {
  putRecord(out, Biff::beginOfPart,
            words({0x0600, static_cast<unsigned>(part), 0x0DBB, 0x07CC, 0, 0, 6, 0}));
}

unsigned xlsStyle(std::size_t format, unsigned kind) {
  return kStyles + static_cast<unsigned>(format) * kKinds + kind;
}

std::string xlsGlobals(const SheetPlan& plan, const std::vector<std::string_view>& texts,
                       std::uint32_t named) {
  const LookTables tables(plan.formats);
  std::string out;
  putBegin(out, XlsPart::globals);
  putRecord(out, Biff::codePage, words({0x04B0}));
  putRecord(out, Biff::window1, words({0, 0, 0x4000, 0x2000, 0x38, 0, 0, 1, 0x258}));
  putRecord(out, Biff::dateMode, words({0}));
  putFonts(out, tables);
  putNumbers(out, tables);
  putStyles(out, tables);
  const std::size_t sheetAt = out.size() + 4;  // behind the record's head
  putRecord(out, Biff::sheet, words({0, 0, 0}) + shortText(kSheetName));
  putPrintTitles(out, plan.page.titleRows);
  putTexts(out, texts, named);
  putRecord(out, Biff::endOfPart, "");
  std::string position;
  put32(position, out.size());
  out.replace(sheetAt, position.size(), position);
  return out;
}

std::string xlsSheetHead(const SheetPlan& plan, const WorkbookTarget& target, std::int64_t rows,
                         std::int64_t columns) {
  std::string out;
  putBegin(out, XlsPart::sheet);
  putRecord(out, Biff::sheetOptions, words({0x04C1}));
  putPage(out, plan.page, target);
  putColumns(out, plan);
  std::string size;
  put32(size, 0);
  put32(size, static_cast<std::uint64_t>(rows));
  size += words({0, static_cast<unsigned>(columns), 0});
  putRecord(out, Biff::dimensions, size);
  return out;
}

}  // namespace paperway::workbook
