#include "html/salary_export.h"

#include "support/expect_each.h"
#include "support/table_fixture.h"

namespace paperway {
namespace {

using SalaryExportTest = TableTest;

const Columns kColumns = {{"name",
                           "Na<me",
                           "6",
                           "T",
                           "L",
                           "0",
                           "N",
                           "N",
                           "",
                           "",
                           "",
                           "",
                           "",
                           "Y",
                           "name",
                           "Courier New",
                           "9",
                           ">Person",
                           "<font face='Cap'>",
                           "8.5"},
                          {"joined",    "Joined", "9", "D", "L", "0", "N", "N",       "", "",
                           "dd-mmm-yy", "",       "",  "N", "",  "F", "0", ">Person", "", "7"},
                          {"unit", "Unit", "0", "T", "L", "0",     "N", "N",  "", "",
                           "",     "",     "",  "N", "",  "Inner", "0", "no", "", "0"},
                          {"basic",    "Basic", "8", "N", "R", "0", "Y",  "Y",   "unit", "site",
                           "#,##0.00", "",      "",  "N", "",  "F", "10", "Pay", "",     "0"},
                          {"extra", "Ex", "6", "N", "L", "0", "Y",  "Y",   "unit", "site",
                           "0",     "",   "",  "N", "",  "F", "10", "Pay", "",     "0"},
                          {"site", "Site", "4", "T", "R", "0",       "N",  "N", "", "",
                           "",     "",     "",  "N", "",  "unicode", "10", "",  "", "0"}};

MemoryTable people() {
  MemoryTable rows({"site", "unit", "name", "joined", "basic", "extra"});
  const auto add = [&](const char* site,
                       const char* unit,
                       const char* name,
                       int year,
                       double basic,
                       std::int64_t extra) {
    rows.addRow({site, unit, name, Date{static_cast<std::int16_t>(year), 3, 5}, basic, extra});
  };
  add("Pune", "Mill", "A <b> \"c\"", 2001, 10000.5, 5);
  add("Pune", "Mill", "A <b> \"c\"", 2002, 2000, 6);
  add("Pune", "Shop", "Ren\xC3\xA9", 2003, 300, 7);
  add("Agra", "Shop", "\xE2\x82\xB9", 2004, 4, 8);
  return rows;
}

TEST_F(SalaryExportTest, WritesPagesWithAStyleSheet) {
  MemoryTable rows = people();
  EXPECT_EQ(salary(kColumns,
                   {.Rs = rows,
                    .Tital1 = "Salaries^",
                    .Tital2 = "\xE2\x82\xB9 <2026>",
                    .Srno = 9,
                    .SrNo_FontName = "Arial",
                    .SrNo_FontSZ = 7.5,
                    .TFontNM1 = "Big",
                    .ChrWidth = 6.3F,
                    .Space_Numeric = "&nbsp;",
                    .Tital_FontSize = 14,
                    .Top_margin = 1,
                    .Left_margin = 2,
                    .DoubleLine_LastTotal = 1,
                    .FixRow_Height = 20}),
            golden("salary.html"));
  EXPECT_TRUE(rows.Eof());
  EXPECT_EQ(machine_.pageSetup.kept.footer, "&b Page &p of &P");
}

/// One column and what the sheet makes of a value.
struct OneCell {
  std::string type, align, head, cell;
};

/// A column with the fields of the style sheet.
std::vector<std::string> column(std::vector<std::string> fields, std::vector<std::string> style) {
  fields.resize(kColumnFields.size());
  fields.insert(fields.end(), style.begin(), style.end());
  return fields;
}

TEST_F(SalaryExportTest, HeadsAndCellsByTypeAndAlignment) {
  for (const auto& [type, align, head, cell] :
       {OneCell{"T", "L", "<b>.H</b></td>", "<td class=a0>  a&lt;&gt;&quot;&z  </td>"},
        OneCell{"T", "R", "<b>H.</b></td>", "<td class=a0>&nbspa&lt;&gt;&.</td>"},
        OneCell{"D", "L", " <b>H </b></td>", "<td class=a0> a<>\"&z    </td>"},
        OneCell{"N", "L", "<b>.H</b>.</td>", "<td class=a0> &nbsp; a<>\"&z   </td>"},
        OneCell{"N", "R", " <b>H</b>.</td>", "<td class=a0>  a<>\"&z  .</td>"}}) {
    MemoryTable rows({"f"}, {{" a<>\"&z  "}});
    const std::string bytes = salary({column({"f", "H", "10", type, align, "0", "N", "N"}, {})},
                                     {.Rs = rows, .Space_Numeric = "."});
    EXPECT_EQ(between(bytes, "<td width= 60 class=a0>", "\r\n"), head) << type << align;
    EXPECT_NE(bytes.find("<tr>\r\n" + cell + "\r\n</tr>"), bytes.npos) << type << align << bytes;
  }
}

TEST_F(SalaryExportTest, CaptionsOfNeighboursShareACell) {
  const auto band = [this](std::vector<std::string> captions) {
    Columns columns;
    for (const std::string& caption : captions) {
      columns.push_back(column({"f", "H", caption == "hidden" ? "0" : "4", "T", "L", "0", "N", "N"},
                               {"0", caption, "", "0"}));
    }
    MemoryTable rows({"f"});
    const std::string bytes = salary(columns, {.Rs = rows});
    std::string cells = between(bytes, "border='1'", "<td width");
    cells = cells.substr(cells.find("\r\n") + 2);
    replaceAll(cells, "</b></td>\r\n", "|");
    return cells;
  };
  using Captions = std::vector<std::string>;
  expectEach(
      band,
      Row{Captions{"", "", "A", "A", "B"},
          std::string("<td  colspan='4' class=aG4><b>A|<td  class=aG5><b>B|</tr>")},
      Row{Captions{"A", "", "B"}, std::string("<td  class=aG1><b>A|<td  class=aG3><b>B|</tr>")},
      Row{Captions{"A", "hidden", "A"}, std::string("<td  colspan='2' class=aG3><b>A|</tr>")},
      Row{Captions{"<a>", "b"}, std::string("<td  class=aG1><b>a&gt;|<td  class=aG2><b>b|</tr>")},
      Row{Captions{">"}, std::string("<td  colspan='2' class=aG1><b>|</tr>")},
      Row{Captions{"", ""}, std::string()});
}

TEST_F(SalaryExportTest, TitlesByTheirMarks) {
  const auto title = [this](const std::string& text, std::uint8_t align, std::int16_t references) {
    MemoryTable rows({"f"});
    return between(
        salary(
            {column({"f", "H", "4", "T", "L", "0", "N", "N"}, {})},
            {.Rs = rows, .Tital3 = text, .CenterHeder1Right2 = align, .Unicode_RPT = references}),
        "<td>\r\n",
        "</td>\r\n");
  };
  const auto expected = [](const std::string& place, const std::string& text) {
    return "<p align='" + place + "'><Q class=at3><b>" + text + "</b></Q></p>\r\n";
  };
  const std::uint8_t left = 0, center = 1, right = 2;
  const std::int16_t plain = 0, references = 1;
  expectEach(title,
             Row{std::string("T"), left, plain, expected("left", "T")},
             Row{std::string("T"), center, plain, expected("center", "T")},
             Row{std::string("T"), right, plain, expected("right", "T")},
             Row{std::string("T^"), right, plain, expected("center", "T")},
             Row{std::string("T<"), right, plain, expected("left", "T")},
             Row{std::string("T>>"), left, plain, expected("right", "T>")},
             Row{std::string("^"), left, plain, std::string()},
             Row{std::string("a\xE2\x82\xB9"), left, references, expected("left", "&#97;&#8377;")});
}

/// What stands in the cells of the running numbers, and "|" where a page begins.
std::string numbersOf(const std::string& bytes) {
  std::string numbers;
  for (std::size_t at = 0; at < bytes.size(); ++at) {
    const std::string_view rest = std::string_view(bytes).substr(at);
    constexpr std::string_view kCell = "<Q class=srno> ";
    if (rest.starts_with("page-break-after")) numbers += '|';
    if (rest.starts_with(kCell))
      numbers += rest.substr(kCell.size(), rest.find("</td>") - kCell.size());
  }
  return numbers;
}

TEST_F(SalaryExportTest, NumbersRestartAndPagesBreakAtGroups) {
  const auto numbers = [this](std::int32_t first, int breaks, const char* outer) {
    machine_.pageSetup.kept = PageSetup();
    MemoryTable rows({"o", "i"});
    for (const char* row : {"Aa", "Aa", "Ab", "Bb", "bb", "Bc"}) {
      rows.addRow({std::string(row, 1), std::string(row + 1, 1)});
    }
    return numbersOf(salary({column({"o", "O", "4", "T", "L", "0", "N", "N", "i", outer}, {})},
                            {.Rs = rows,
                             .Srno = first,
                             .PageBrack_When_GroupChange = static_cast<std::uint8_t>(breaks)}));
  };
  expectEach(numbers,
             Row{9, 0, "", std::string(" 1 2 1 2 3 1")},
             Row{9, 1, "", std::string(" 1 2| 1 2 3| 1")},
             Row{9, 1, "o", std::string(" 1 2| 1 2 3 4")},
             Row{5, 1, "o", std::string(" 5 6 7 8 9 10")},
             Row{5, 2, "o", std::string(" 5 6 7| 8 9 10")},
             Row{9, 2, "", std::string(" 1 2 1 2 3 1")},
             Row{0, 2, "o", std::string("|")});
}

TEST_F(SalaryExportTest, TheGrandTotalTakesTwoLinesByTurns) {
  const auto total = [this](const std::string& types, std::int32_t first) {
    Columns columns;
    for (const char type : types) {
      columns.push_back(column({"f",
                                "H",
                                type == '0' ? "0" : "4",
                                type == 'X' ? "X" : "N",
                                type == 'L' ? "L" : "R",
                                "0",
                                type == '-' ? "N" : "Y",
                                "N"},
                               {}));
    }
    MemoryTable rows({"f"}, {{1}});
    std::string bytes = salary(
        columns, {.Rs = rows, .Srno = first, .Space_Numeric = ".", .DoubleLine_LastTotal = 7});
    bytes = bytes.substr(bytes.rfind("<tr>", bytes.rfind("<tr>") - 1));
    for (const auto& [from, to] : {std::pair<const char*, const char*>{"\r\n", ""},
                                   {"<td></td>", "_"},
                                   {"<tr>", ""},
                                   {"</font>", ""},
                                   {"</tr>", "/"},
                                   {"<td colspan='2'  class=a", "["},
                                   {"</td>", "]"}}) {
      replaceAll(bytes, from, to);
    }
    return bytes;
  };
  expectEach(total,
             Row{"-RL", 1, std::string("_[2> &nbsp;1 ]/__[1><b> 1.</b>]/")},
             Row{"--RR", 1, std::string("__[3><b> 1.</b>]/___[2><b> 1.</b>]/")},
             Row{"-RR", 0, std::string("[2><b> 1.</b>]/[1><b> 1.</b>]/")},
             Row{"--", 1, std::string("__/___/")},
             Row{"RX0", 1, std::string("_/_[0><b> 1.</b>]/")});
}

TEST_F(SalaryExportTest, HiddenColumnsFeedTheirGroupsWithTheNumberBefore) {
  MemoryTable rows({"n", "h", "g"}, {{2, 50, "A"}, {3, 50, "A"}});
  const std::string bytes =
      salary({column({"n", "N", "4", "N", "R", "0", "Y", "N"}, {}),
              column({"h", "H", "0", "N", "R", "0", "Y", "N", "g"}, {}),
              column({"g", "G", "4", "T", "L", "0", "N", "N", "Count+g"}, {})},
             {.Rs = rows});
  EXPECT_EQ(bytes.find("50"), bytes.npos);
  EXPECT_NE(bytes.find("<tr>\r\n<td></td>\r\n<td class=a2><b>2</b></td>\r\n\r\n</tr>"), bytes.npos);
  EXPECT_NE(bytes.find("colspan =  4 class=a2>"), bytes.npos);
}

TEST_F(SalaryExportTest, TheSheetOutlastsOneExportAndMarksAreTakenOnce) {
  MemoryTable rows({"f"}, {{"v"}});
  const Columns columns = {column({"f", "H", "4", "T", "L", "0", "N", "N"}, {"9", "<C", "G", "8"})};
  EXPECT_NE(salary(columns, {.Rs = rows}).find("font-family:G ; Text-Align:Left; }"),
            std::string::npos);
  class1_.HTML_Export_Salary({.Rs = rows, .HTML_FileName = html_});
  EXPECT_NE(bytesOf(html_).find(".aG1 { font-size: 8pt; font-family: ; Text-Align:center; }"),
            std::string::npos);
}

TEST_F(SalaryExportTest, HeightsByTextSizeOrAsFixed) {
  const auto firstPage = [this](int textSize, int row, int fixedHead, int fixedRow, int top) {
    machine_.pageSetup.kept = {5, 4, 0, 0, static_cast<std::uint8_t>(textSize), "", ""};
    MemoryTable rows({"f"});
    for (int i = 0; i < 40; ++i) rows.addRow({"<"});
    const std::string bytes = salary({column({"f", "H", "4", "T", "L", "0", "N", "N"}, {})},
                                     {.Rs = rows,
                                      .Tital1 = "T",
                                      .Row_Height = static_cast<std::int16_t>(row),
                                      .Top_margin = static_cast<std::uint8_t>(top),
                                      .FixHeder_Row_Height = static_cast<std::int16_t>(fixedHead),
                                      .FixRow_Height = static_cast<std::int16_t>(fixedRow)});
    return count(bytes.substr(0, bytes.find("page-break-after")), "&lt;");
  };
  expectEach(firstPage,  // of 3518 twips
             Row{0, 0, 0, 0, 0, 13U},
             Row{1, 0, 0, 0, 0, 11U},
             Row{3, 0, 0, 0, 0, 9U},
             Row{5, 0, 0, 0, 0, 40U},
             Row{2, 400, 0, 0, 0, 6U},
             Row{2, 400, 0, 20, 0, 8U},
             Row{2, 0, 100, 0, 0, 7U},
             Row{2, 0, 0, 0, 4, 8U});
}

TEST_F(SalaryExportTest, SetsThePrinterAndComesBackWithWhatIsLeftToTheWindow) {
  const Columns columns = {column({"f", "H", "4", "T", "L", "0", "N", "N"}, {})};
  MemoryTable rows({"f"});
  machine_.printers.currentPrinter = "Laser";
  salary(columns, {.Rs = rows, .PortraitLansscape = "L", .Page_Size = 1});
  EXPECT_EQ(orientation_, "P");  // the printer is across already
  EXPECT_EQ(machine_.printers.kept["Laser"], (PageSettings{2, 1}));
  machine_.printers.currentPrinter = "Dot Matrix";  // keeps no settings
  salary(columns, {.Rs = rows, .PortraitLansscape = "L"});
  EXPECT_EQ(orientation_, "L");
  EXPECT_TRUE(machine_.messageBox.shown.empty());
}

}  // namespace
}  // namespace paperway
