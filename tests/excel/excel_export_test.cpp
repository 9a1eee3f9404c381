#include "excel/excel_export.h"

#include "support/expect_each.h"
#include "support/report_fixture.h"
#include "util/value_text.h"

namespace paperway {
namespace {

using Book = headless::Workbooks::Book;

/// "text", "=formula value" or nothing, with the marks of its format: b(old), g(rid), the font and
/// the number format.
std::string shown(const headless::Workbooks::Cell& cell) {
  const CellFormat& format = cell.format;
  std::string text = cell.formula + defaultText(cell.value);
  if (format == CellFormat{}) return text;
  text += std::string("{") + (format.bold ? "b" : "") + (format.grid ? "g" : "");
  if (!format.font.empty()) text += " " + format.font;
  if (!format.numberFormat.empty()) text += " " + format.numberFormat;
  return text + "}";
}

/// A row a line; bold blanks to the end of the sheet are one mark.
std::string shown(const Book& book) {
  std::string text;
  for (const auto& row : book.rows) {
    std::size_t end = row.size();
    if (end == 256) {
      while (shown(row[end - 1]) == "{b}") --end;
    }
    for (std::size_t i = 0; i < end; ++i) text += (i > 0 ? "|" : "") + shown(row[i]);
    text += end < row.size() ? "|to IV\n" : "\n";
  }
  return text;
}

const Columns kColumns = {
    {"name", "Name", "20", "T", "L", "0", "N", "N"},
    {"day", "Day", "10", "D", "L", "0", "N", "N"},
    {"paid", "Paid", "12", "N", "R", "0", "Y", "N", "", "", "0.00", "", "", "", "", "Courier New"}};

class ExcelExportTest : public ReportTest {
 protected:
  ExcelExportTest() { machine_.dialogs.files = {path("chosen.xlsx")}; }

  /// The sheet of these rows.
  std::string sheet(const Columns& columns, ExcelExportArguments arguments) {
    setColumns(columns);
    if (arguments.Excel_FileName.empty()) arguments.Excel_FileName = path("book.xlsx");
    class1_.Excel_Export(arguments);
    nextSerial_ = arguments.Srno;
    return shown(book());
  }

  const Book& book() const { return machine_.workbooks.books.back(); }

  static MemoryTable payments() {
    MemoryTable rows({"name", "day", "paid"});
    rows.addRow({"=Ann", Date{2004, 1, 5}, 2.345});
    rows.addRow({Value(), Value(), Value()});
    return rows;
  }
};

TEST_F(ExcelExportTest, WritesTitlesHeadingsRowsAndTotals) {
  MemoryTable rows = payments();
  const std::string plain = "{g Arial Narrow}|{g Arial Narrow}";
  EXPECT_EQ(sheet(kColumns,
                  {.Rs = rows, .Tital1 = "First", .Tital3 = "Third", .Srno = 5, .TFontNM3 = "T"}),
            "First{ Arial Narrow}\n"
            "Third{ T}\n"
            "#{bg}|Name{bg Arial Narrow}|Day{bg Arial Narrow}|Paid{bg Courier New 0.00}|to IV\n"
            "5{g}|=Ann{g Arial Narrow}|05-Jan-2004{g Arial Narrow}|2.35{g Courier New 0.00}\n"
            "6{g}|" +
                plain +
                "|0{g Courier New 0.00}\n"
                "{g}|" +
                plain + "|=SUM(R[-2]C:R[-1]C)2.35{g Courier New 0.00}\n");
  EXPECT_EQ(nextSerial_, 7);
  EXPECT_TRUE(rows.Eof());
  EXPECT_EQ(book().plan.columnWidths,
            (std::vector<std::optional<double>>{std::nullopt, 24, 12, 14.399999999999999}));
}

TEST_F(ExcelExportTest, WithoutTitlesNumbersAndRowsOnlyHeadingsAndTotalsAreLeft) {
  MemoryTable rows({"name", "day", "paid"});
  EXPECT_EQ(sheet(kColumns, {.Rs = rows}),
            "Name{bg Arial Narrow}|Day{bg Arial Narrow}|Paid{bg Courier New 0.00}|to IV\n"
            "{g Arial Narrow}|{g Arial Narrow}|=SUM(R[-0]C:R[-1]C)0{g Courier New 0.00}\n");
  EXPECT_EQ(book().plan.page.titleRows, 1);
}

TEST_F(ExcelExportTest, PageIsThatOfTheArguments) {
  MemoryTable rows = payments();
  sheet(kColumns,
        {.Rs = rows,
         .Tital2 = "T",
         .PageOriantationPL = "L",
         .LeftFooter = "l",
         .RightFooter = "r",
         .PageTopMargin = 1,
         .PageBottomMargin = 2,
         .PageRightMargin = 3,
         .PageLeftMargin = 4,
         .PageFooterMargin = 5});
  const SheetPage& page = book().plan.page;
  EXPECT_TRUE(page.landscape);
  EXPECT_EQ(page.leftFooter + "," + page.centerFooter + "," + page.rightFooter,
            "l,Page &P of &N,r");
  EXPECT_EQ((std::vector<int>{page.topMargin,
                              page.bottomMargin,
                              page.rightMargin,
                              page.leftMargin,
                              page.footerMargin,
                              page.paper,
                              page.titleRows}),
            (std::vector<int>{1, 2, 3, 4, 5, 9, 2}));
}

TEST_F(ExcelExportTest, CellsHoldWhatTheirTypeAsksFor) {
  const auto cell = [&](const char* type, const char* pattern, const Value& value) {
    MemoryTable rows({"f"});
    rows.addRow({value});
    const std::string text =
        sheet({{"f", "F", "5", type, "L", "0", "N", "N", "", "", pattern}}, {.Rs = rows});
    const std::string row = text.substr(text.find('\n') + 1);
    return row.substr(0, row.find('{'));
  };
  expectEach(cell,
             Row{"T", "", Value("00123"), "00123"},
             Row{"T", "", Value(7.25), "7.25"},
             Row{"T", "", Value(Date{2026, 3, 5}), "3/5/2026"},
             Row{"T", "", Value(), ""},
             Row{"D", "0.00", Value(Date{2026, 3, 5}), "05-Mar-2026"},
             Row{"D", "", Value("soon"), "soon"},
             Row{"N", "", Value("12.5 kg"), "12.5"},
             Row{"N", "0.0%", Value(0.1234), "0.123"},
             Row{"N", "Rs. 0.00", Value(-1.239), "-1.24"},
             Row{"N", "Currency", Value(-1234.5), "-1234.5"},
             Row{"N", "#,##0,", Value(1234567.0), "1235"},
             Row{"N", "0.00E+00", Value(123456.0), "123000"},
             Row{"N", "0.00", Value(1e300), "1E+300"},
             Row{"X", "", Value("text"), ""});
}

TEST_F(ExcelExportTest, FieldThatTellsDuplicatesKeepsTheSheetsLooks) {
  MemoryTable rows({"n"});
  rows.addRow({4.5});
  rows.addRow({4.5});
  const Columns columns = {
      {"n", "N", "5", "N", "R", "0", "Y", "N", "", "", "0.00", "", "", "Y", "n", "F"}};
  EXPECT_EQ(sheet(columns, {.Rs = rows}), "N{bg}|to IV\n4.5{g}\n4.5{g}\n{g}\n");
}

TEST_F(ExcelExportTest, AsksForANameBehindTheRows) {
  MemoryTable rows = payments();
  setColumns(kColumns);
  ExcelExportArguments arguments{.Rs = rows, .Tital1 = "T", .Srno = 1};
  class1_.Excel_Export(arguments);
  const std::string spooled = shown(book());
  EXPECT_EQ(arguments.Excel_FileName, path("chosen.xlsx"));
  EXPECT_EQ(arguments.TFontNM5, "Arial Narrow");
  const FileQuestion& asked = machine_.dialogs.questions.back();
  EXPECT_EQ(asked.title, "Please Enter New Excel File");
  EXPECT_TRUE(asked.confirmReplace && asked.folderMustExist);
  rows.MoveFirst();
  EXPECT_EQ(spooled, sheet(kColumns, {.Rs = rows, .Tital1 = "T", .Srno = 1}));

  rows.MoveFirst();
  class1_.Excel_Export({.Rs = rows});
  EXPECT_EQ(machine_.messageBox.shown.back().text, " Please Enter File Name ");
  EXPECT_EQ(machine_.workbooks.books.size(), 2U);
  EXPECT_TRUE(std::filesystem::is_empty(machine_.folders.temporary()));
}

TEST_F(ExcelExportTest, FailuresNameTheThingAndTheReason) {
  const auto failure = [&](const char* type, const char* pattern, const Value& value) {
    MemoryTable rows({"f"});
    rows.addRow({value});
    return errorOf([&] {
      sheet({{"f", "F", "5", type, "L", "0", "N", "N", "", "", pattern}}, {.Rs = rows});
    });
  };
  expectEach(failure,
             Row{"N",
                 "Yes/No",
                 Value(3.0),
                 "Field \"f\" of row 1 of the data, \"3\", is \"Yes\" in the pattern \"Yes/No\", "
                 "which is no number."},
             Row{"T",
                 "",
                 Value("a\xFF"),
                 "Field \"f\" of row 1 of the data is not UTF-8 text: see byte 2 of it."});
  MemoryTable rows({"f"});
  EXPECT_EQ(errorOf([&] { Class1(machine_.platform()).Excel_Export({.Rs = rows}); }),
            "There is no report format table: call Set_Repot_Format first.");
  machine_.workbooks.failure.emplace(AutomationError::kDiskFull, "test", "full");
  EXPECT_EQ(failure("T", "", Value("a")), "full");
}

TEST_F(ExcelExportTest, ColumnsHaveLetters) {
  const auto letters = [&](int column) { return class1_.GetExcelCol(column); };
  expectEach(letters,
             Row{1, "A"},
             Row{26, "Z"},
             Row{0, "@"},
             Row{27, "AA"},
             Row{52, "AZ"},
             Row{53, "BA"},
             Row{256, "IV"},
             Row{260, "IZ"},
             Row{261, ""});
  EXPECT_EQ(errorOf([&] { class1_.GetExcelCol(-65); }), "There is no column -65.");
}

}  // namespace
}  // namespace paperway
