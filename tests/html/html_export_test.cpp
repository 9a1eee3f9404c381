#include "html/html_export.h"

#include "support/expect_each.h"
#include "support/table_fixture.h"

namespace paperway {
namespace {

using HtmlExportTest = TableTest;

const Columns kColumns = {
    {"item", "Item", "8", "T", "L", "0", "N", "N", "", "", "", "", "", "Y", "item", "Courier New"},
    {"date", "Date", "11", "D", "L", "0", "N", "N", "", "", "dd-mmm-yyyy"},
    {"qty", "Qty", "6", "N", "L", "0", "Y", "N", "customer", "region", "0", "", "", "N", "", "F"},
    {"customer", "By", "3", "T", "R", "0", "N", "N", "", "", "", "", "", "N", "", "Inner"},
    {"region", "X", "4", "X", "R", "0", "N", "N", "", "", "", "", "", "Y", "", "Outer"},
    {"amount",
     "Amount",
     "10",
     "N",
     "R",
     "0",
     "Y",
     "Y",
     "customer",
     "region",
     "#,##0.00",
     "",
     "",
     "N",
     "",
     "G"}};

MemoryTable sales() {
  MemoryTable rows({"region", "customer", "item", "date", "qty", "amount"});
  const auto add = [&](const char* region,
                       const char* customer,
                       const char* item,
                       int day,
                       std::int64_t qty,
                       Value amount) {
    rows.addRow(
        {region, customer, item, Date{2026, 3, static_cast<std::uint8_t>(day)}, qty, amount});
  };
  add("North", "Adam", "A long item", 1, 2, 10.5);
  add("NORTH", "Adam", "A long item", 2, 3, 1000.25);
  add("North", "Bob", "\xE2\x82\xB9 a<b", 3, 4, Value());
  add("South", "Bob", "Caf\xC3\xA9", 4, 5, 7.0);
  return rows;
}

TEST_F(HtmlExportTest, WritesPagesOfTables) {
  MemoryTable rows = sales();
  EXPECT_EQ(table(kColumns,
                  {.Rs = rows,
                   .Tital1 = "Sales",
                   .Tital3 = "\xE2\x82\xB9 2026",
                   .Srno = 1,
                   .CenterHeder1Right2 = 1,
                   .TFontNM1 = "Arial"}),
            golden("table.html"));
  EXPECT_TRUE(rows.Eof());
  EXPECT_EQ(machine_.pageSetup.kept.footer, "&b Page &p of &P");
}

/// A row of one column and its field's value, as the table shows it.
struct OneCell {
  std::string type, align, pattern, head, cell;
};

TEST_F(HtmlExportTest, HeadsAndCellsByTypeAndAlignment) {
  const std::string font = "<font face='F'>";
  const std::string gap = "&nbsp;&nbsp;";
  for (const auto& [type, align, pattern, head, cell] :
       {OneCell{"T",
                "L",
                "",
                " 30  >&nbsp;&nbsp;" + font + "<b>H</b>&nbsp;</Font></td>",
                "<td>" + gap + font + "12.25&nbsp;</font></td>"},
        OneCell{"T",
                "R",
                "",
                " 30 >&nbsp;" + font + "<b>H</b>" + gap + "</Font></td>",
                "<td align='right'>&nbsp" + font + "12.25" + gap + "</font></td>"},
        OneCell{"D",
                "R",
                "yyyy",
                " 30>" + gap + font + "<b>H&nbsp;</b></Font></td>",
                "<td>" + gap + font + "1900 </font></td>"},
        OneCell{"N",
                "L",
                "0.0000",
                " 30>" + gap + font + "<b>" + font + "H</b>" + gap + "</Font></td>",
                "<td>" + gap + " " + font + "12.2500&nbsp;</font></td>"},
        OneCell{"N",
                "C",
                "0.0000",
                " 30>&nbsp;" + font + "<b>H</b>" + gap + "</Font></td>",
                "<td align='right'>&nbsp;" + font + "12.2500" + gap + "</font></td>"}}) {
    MemoryTable rows({"f"}, {{12.25}});
    machine_.pageSetup.kept.textSize = 0;
    const std::string bytes =
        table({{"f", "H", "5", type, align, "0", "N", "N", "", "", pattern, "", "", "", "", "F"}},
              {.Rs = rows});
    EXPECT_EQ(between(bytes, " width=", "\r\n"), head) << type << align;
    EXPECT_NE(bytes.find("<tr>\r\n" + cell + "\r\n</tr>"), bytes.npos) << type << align << bytes;
  }
}

TEST_F(HtmlExportTest, OtherTypesHaveNoCellAndXNoPlace) {
  for (const auto& [type, cells] : {std::pair{"X", 0}, {"x", 0}, {"t", 1}, {" ", 1}}) {
    MemoryTable rows({"f"}, {{"v"}});
    const std::string bytes = table({{"f", "H", "5", type, "L", "0", "Y", "N"}}, {.Rs = rows});
    EXPECT_EQ(count(bytes, "<td"), static_cast<std::size_t>(cells)) << type;  // of the grand total
  }
}

TEST_F(HtmlExportTest, TitlesStandLeftAndPlainOrByTheirFonts) {
  const auto head = [this](std::uint8_t align) {
    MemoryTable rows({"f"});
    const std::string bytes = table({{"f", "H", "5", "T", "L", "0", "N", "N"}},
                                    {.Rs = rows,
                                     .Tital2 = "A&B",
                                     .Srno = 1,
                                     .CenterHeder1Right2 = align,
                                     .TFontNM2 = "G",
                                     .ChrWidth = 6.3F});
    return between(bytes, "<font face='Arial Narrow'>\r\n", "<b>&nbsp;#");
  };
  const std::string look =
      " cellpadding='0' cellspacing='0'  style='border-collapse: collapse;   id='AutoNumber1'"
      "  bordercolor='#000000'  height='10'>\r\n";
  EXPECT_EQ(head(0),
            "<p><b>A&B</b></p>\r\n <table  width = ' 0' border='1'" + look +
                "<tr>\r\n<td><font face='Arial Narrow'>");
  machine_.pageSetup.kept.textSize = 0;
  const std::string table = " <table  width = ' 69.3000020980835' border='";
  for (const auto& [align, place] : {std::pair{1, "center"}, {2, "right"}, {255, "right"}}) {
    EXPECT_EQ(head(static_cast<std::uint8_t>(align)),
              table + "0'" + look + "<td>\r\n<p align='" + place +
                  "'><font face='G'><b>A&B</b></font></p>\r\n</td>\r\n" + table + "1'" + look +
                  "<tr>\r\n<td>");
  }
}

/// Rows on each page of a document without totals that are carried.
std::vector<std::size_t> rowsOfPages(const std::string& bytes) {
  std::vector<std::size_t> rows;
  for (std::size_t begin = 0; begin != bytes.npos;) {
    const std::size_t end = bytes.find("page-break-after", begin + 1);
    std::size_t found = 0;
    for (std::size_t at = begin; (at = bytes.find("row-", at + 1)) < end && at != bytes.npos;)
      ++found;
    rows.push_back(found);
    begin = end;
  }
  return rows;
}

TEST_F(HtmlExportTest, PagesEndWithTheRowThatIsTooMuch) {
  struct Case {
    int textSize;
    const char* printer;
    std::int16_t orientation;
    const char* asked;
    const char* answered;
    std::vector<std::size_t> pages;
  };
  const auto number = [](std::size_t rows) { return std::vector<std::size_t>(1, rows); };
  machine_.printers.kept["Laser"].PaperSize = 1;          // 12240 x 15840 twips
  machine_.pageSetup.kept = {3, 3, 2.5, 2.5, 0, "", ""};  // leave 6480 of them upright, 4320 across
  for (const Case& each : {Case{0, "Laser", 1, "", "P", {28, 2}},
                           Case{1, "Laser", 1, "L", "L", {16, 14}},
                           Case{2, "Laser", 1, "l", "P", {20, 10}},
                           Case{4, "Laser", 1, "P", "P", {20, 10}},
                           Case{2, "Laser", 2, "L", "P", {9, 9, 9, 3}},
                           Case{2, "Dot Matrix", 1, "", "P", {24, 6}},  // it keeps no paper: A4
                           Case{5, "Laser", 1, "", "P", number(30)}}) {
    MemoryTable rows({"f"});
    for (int row = 0; row < 30; ++row) rows.addRow({"row-"});
    machine_.printers.currentPrinter = each.printer;
    machine_.printers.kept["Laser"].Orientation = each.orientation;
    machine_.pageSetup.kept.textSize = static_cast<std::uint8_t>(each.textSize);
    const std::string bytes = table({{"f", "H", "5", "T", "L", "0", "N", "N"}},
                                    {.Rs = rows, .PortraitLansscape = each.asked});
    EXPECT_EQ(rowsOfPages(bytes), each.pages) << each.textSize << each.printer << each.asked;
    EXPECT_EQ(orientation_, each.answered) << each.textSize << each.printer << each.asked;
  }
}

TEST_F(HtmlExportTest, NullsAndOddGroups) {
  const Columns columns = {{"n", "N", "4", "N", "L", "0", "Y", "N", "", "", "0;;;nil"},
                           {"t", "T", "4", "T", "L", "0", "N", "N", "g", ""},
                           {"d", "D", "4", "D", "L", "0", "N", "N", "", "", "yyyy"}};
  MemoryTable rows({"g", "n", "t", "d"}, {{{}, {}, {}, {}}, {{}, 2.5, "x", {}}, {"", 2, "y", {}}});
  const std::string bytes = table(columns, {.Rs = rows});
  EXPECT_EQ(count(bytes, "<b></b></td>"), 2U);  // of a null, which is not an empty text
  EXPECT_NE(bytes.find("<font face='Arial Narrow'>nil&nbsp;"), bytes.npos);
  EXPECT_NE(bytes.find("<font face='Arial Narrow'>    &nbsp;"), bytes.npos);
  EXPECT_NE(bytes.find("<font face='Arial Narrow'>    </font>"), bytes.npos);
  EXPECT_NE(bytes.find("<td align='left'><b><font face='Arial Narrow'>2.5&nbsp;"), bytes.npos);
}

TEST_F(HtmlExportTest, ASecondExportGoesOnFromTheSumsOfTheFirst) {
  MemoryTable rows({"n"}, {{2}});
  const Columns columns = {{"n", "N", "4", "N", "R", "0", "Y", "N"}};
  const std::string once = table(columns, {.Rs = rows});
  EXPECT_NE(once.find("<b>&nbsp;<font face='Arial Narrow'>2&nbsp;"), once.npos);
  rows.MoveFirst();
  class1_.HTML_Export({.Rs = rows, .HTML_FileName = html_});
  EXPECT_NE(bytesOf(html_).find("<b>&nbsp;<font face='Arial Narrow'>4&nbsp;"), once.npos);
}

TEST_F(HtmlExportTest, WithoutATableTheEarlierDocumentGoes) {
  MemoryTable rows({"f"});
  replaceFile(html_, "earlier");
  class1_.HTML_Export({.Rs = rows, .HTML_FileName = html_, .Preview1 = 1});
  EXPECT_FALSE(std::filesystem::exists(html_));
  class1_.HTML_Export_Salary({.Rs = rows, .HTML_FileName = html_});
  EXPECT_FALSE(std::filesystem::exists(html_));
  EXPECT_NE(errorOf([&] { class1_.HTML_Export({.Rs = rows, .HTML_FileName = folder_.path}); }),
            "no error");
}

TEST_F(HtmlExportTest, AFailureLeavesTheEarlierDocument) {
  const Columns columns = {{"f", "H", "5", "T", "L", "0", "N", "N"}};
  const auto failure = [&](std::vector<std::string> names, const std::string& value) {
    MemoryTable rows(std::move(names), {{value}});
    replaceFile(html_, "earlier");
    const std::string error = errorOf([&] { table(columns, {.Rs = rows}); });
    const bool stands = bytesOf(html_) == "earlier";
    const std::string salaryError = errorOf([&] { salary(columns, {.Rs = rows}); });
    EXPECT_EQ(salaryError, error);
    return stands ? error : "the earlier one is gone: " + error;
  };
  EXPECT_EQ(failure({"f"}, "v"), "the earlier one is gone: no error");
  EXPECT_NE(failure({"g"}, "v").find("There is no field \"f\""), std::string::npos);
  EXPECT_NE(failure({"f"}, "\xFF").find("Field \"f\" of row 1"), std::string::npos);
  machine_.pageSetup.writeFailure = AutomationError(70, "PageSetup", "The store is read-only");
  EXPECT_EQ(failure({"f"}, "v"), "The store is read-only");
  machine_.pageSetup.writeFailure.reset();
  MemoryTable rows({"f"}, {{"v"}});
  for (std::size_t step = 1; step < 12; ++step) {
    replaceFile(html_, "earlier");
    machine_.storage.steps = 0;
    machine_.storage.failAt = step;
    const std::string error = errorOf([&] { table(columns, {.Rs = rows}); });
    machine_.storage.failAt = 0;
    const bool inPlace = error == "no error" || machine_.storage.failed == "syncFolder";
    EXPECT_TRUE(inPlace || bytesOf(html_) == "earlier") << machine_.storage.failed;
    rows.MoveFirst();
  }
}

TEST_F(HtmlExportTest, OpensWhatItWroteInTheBrowserWindow) {
  MemoryTable rows({"f"});
  const Columns columns = {{"f", "H", "5", "T", "L", "0", "N", "N"}};
  table(columns, {.Rs = rows, .Preview1 = 2});
  EXPECT_TRUE(machine_.windows.forms.empty());
  table(columns, {.Rs = rows, .Preview1 = 1});
  EXPECT_EQ(machine_.windows.forms.size(), 1U);
  salary(columns, {.Rs = rows, .Preview1 = 1});
  EXPECT_EQ(machine_.windows.forms.size(), 1U);  // which takes the new document
  setColumns(Columns(255, columns[0]));
  EXPECT_NE(errorOf([&] {
              class1_.HTML_Export({.Rs = rows, .HTML_FileName = html_});
            }).find("255 columns"),
            std::string::npos);
}

}  // namespace
}  // namespace paperway
