#include <functional>
#include <sstream>

#include "support/expect_each.h"
#include "support/report_fixture.h"
#include "util/code_page.h"

namespace paperway {
namespace {

const Columns kPlain = {{"item", "Item", "10", "T", "L", "1", "N"},
                        {"amount", "Amount", "8", "N", "R", "0", "Y", "N", "", "", "0.00"}};

MemoryTable numbered(int rows) {
  MemoryTable table({"item", "amount"});
  for (int i = 1; i <= rows; ++i) table.addRow({"row", i});
  return table;
}

int count(const std::string& text, const std::string& part) {
  int found = 0;
  for (std::size_t at = 0; (at = text.find(part, at)) != std::string::npos; ++at) ++found;
  return found;
}

using TextReport = ReportTest;

TEST_F(TextReport, PlainRowsMatchTheWorkedPage) {
  MemoryTable rows({"Item", "AMOUNT"}, {{"Apple", 12.5}, {"Café", "1000.25"}});
  const std::string bytes = report(kPlain,
                                   {.Rs = rows,
                                    .Tital1 = "Sales",
                                    .Tital5 = "2026",
                                    .MPLine = 60,
                                    .Srno = 1,
                                    .C_80_96_136 = 80});
  EXPECT_EQ(readable(bytes), CodePage::windows1252().encode(golden("plain_80.txt")));
  EXPECT_EQ(nextSerial_, 3);
  EXPECT_TRUE(rows.Eof());
}

TEST_F(TextReport, GroupsDuplicatesAndCarriedTotalsMatchTheGoldenLedger) {
  const Columns columns = {
      {"voucher", "No", "6", "T", "L", "1", "N", "", "", "", "", "", "Y", "Y", "voucher"},
      {"item", "Item", "8", "T", "L", "1", "N", "", "Count+customer", "", "0"},
      {"qty", "Qty", "5", "N", "R", "1", "Y", "", "customer", "region", "0"},
      {"amount", "Amount", "9", "N", "R", "0", "Y", "Y", "customer", "region", "#,##0.00"}};
  MemoryTable rows({"region", "customer", "voucher", "item", "qty", "amount"},
                   {{"North", "Asha", "V1", "Pen", std::int64_t{2}, 10.0},
                    {"NORTH", "asha", "V1", "Ink", std::int64_t{1}, 1250.5},
                    {"North", "Bela", "V2", "Pad", std::int64_t{3}, 30.0},
                    {"South", "Bela", "V3", "Pen", std::int64_t{4}, 20.0}});
  const std::string bytes =
      report(columns, {.Rs = rows, .Tital1 = "Ledger", .MPLine = 15, .C_80_96_136 = 136});
  EXPECT_EQ(readable(bytes), golden("ledger_136.txt"));
}

TEST_F(TextReport, RowsOfAPageFollowFromItsLineBudget) {
  // Four head lines and no page totals: a page of 60 ends when its count reaches 57. The count is
  // of eight bits: with 255 lines it wraps before it reaches 252 only if the head alone is larger.
  const auto pages = [&](int rowCount, std::uint8_t lines) {
    MemoryTable rows = numbered(rowCount);
    const std::string bytes = report(kPlain, {.Rs = rows, .MPLine = lines});
    EXPECT_EQ(count(bytes, "row "), rowCount);
    EXPECT_EQ(count(bytes, "Page No # "), count(bytes, "\f"));
    return count(bytes, "\f");
  };
  expectEach(pages,
             Row{52, 60, 1},
             Row{53, 60, 2},
             Row{106, 60, 3},
             Row{3, 5, 4},
             Row{3, 0, 4},
             Row{247, 255, 1},
             Row{248, 255, 2},
             Row{0, 60, 1});
}

TEST_F(TextReport, TheLineCountWrapsAt256) {
  // Each row is a group of its own, five lines long: the count is 251 after row 50 and 256, that is
  // 0, after row 51, so that the page never ends.
  MemoryTable rows({"item"});
  for (int i = 0; i < 100; ++i) rows.addRow({std::to_string(i)});
  const Columns columns = {{"item", "Item", "4", "T", "L", "1", "N", "", "item"}};
  EXPECT_EQ(count(report(columns, {.Rs = rows, .MPLine = 255}), "\x0C"), 1);
}

TEST_F(TextReport, PitchCodesStandWhereTheyBelong) {
  // Behind the first line's blanks, and in the lines with a form feed.
  const auto codes = [&](std::uint8_t pitch) {
    MemoryTable rows = numbered(60);
    std::istringstream text(
        readable(report(kPlain, {.Rs = rows, .MPLine = 60, .C_80_96_136 = pitch})));
    std::string line;
    std::getline(text, line);
    std::string found = line.substr(17);
    while (std::getline(text, line)) {
      if (line.find("<FF>") != std::string::npos) found += " " + line;
    }
    return found;
  };
  expectEach(codes,
             Row{136, "<Con> <Coff><FF><Con> <Coff><FF>"},
             Row{96, "<C96> <FF> <FF>"},
             Row{80, "<C80> <FF> <FF>"},
             Row{100, " <FF> <FF>"},
             Row{0, " <FF> <FF>"});
}

TEST_F(TextReport, CellsFollowTheirTypeAndSide) {
  const auto cell =
      [&](const char* type, const char* side, const char* pattern, const Value& value) {
        MemoryTable rows({"f"}, {{value}});
        const std::string bytes =
            report({{"f", "F", "8", type, side, "1", "N", "", "", "", pattern}},
                   {.Rs = rows, .MPLine = 60});
        const std::string rule = std::string(9, '-') + "\r\n";
        const std::size_t begin = bytes.find(rule, bytes.find(rule) + 1) + rule.size();
        return bytes.substr(begin, bytes.find("\r\n", begin) - begin);
      };
  const Date date{2026, 3, 5};
  expectEach(cell,
             Row{"T", "L", "", "  too long for it ", "too long "},
             Row{"T", "R", "", "too long for it", "g for it "},
             Row{"T", "L", "", Value(), "         "},
             Row{"T", "R", "0.00", 2.5, "     2.5 "},
             Row{"N", "R", "0.00", Value(), "    0.00 "},
             Row{"N", "R", "#,##0.00", 123456789.0, "6,789.00 "},
             Row{"N", "L", "0", "12 pieces", "12       "},
             Row{"N", "R", "0.00", "1,234.50", "    1.00 "},
             Row{"N", "R", "0", "about 12", "       0 "},
             Row{"N", "R", "0.00", 2.345, "    2.35 "},
             Row{"D", "L", "dd-mm-yy", date, "05-03-26 "},
             Row{"D", "L", "", date, "3/5/2026 "},
             Row{"D", "L", "dd-mm-yy", Value(), "         "},
             Row{"X", "L", "", "lost", ""});
}

TEST_F(TextReport, TitlesAndPageNumberShareTheHead) {
  const auto pageLine = [&](const char* title5) {
    MemoryTable rows = numbered(1);
    Columns columns = kPlain;
    columns[0][2] = "9";
    const std::string text =
        readable(report(columns, {.Rs = rows, .Tital3 = "Sub", .Tital5 = title5, .MPLine = 60}));
    const std::size_t begin = text.find("<Bon>Sub<Boff>\n") + 15;
    return text.substr(begin, text.find('\n', begin) - begin);
  };
  expectEach(pageLine,
             Row{"", "<Bon><Boff>    Page No # 0001"},
             Row{"2026", "<Bon>2026<Boff>Page No # 0001"},
             Row{"2026-27 half", "<Bon>2026-27 half<Boff># 0001"},
             Row{"eighteen letters..", "<Bon>eighteen letters..<Boff>"},
             Row{"more than eighteen letters", "<Bon>more than eighteen letters<Boff>"});
}

TEST_F(TextReport, TotalsOutliveARunUntilTheTableIsReadAnew) {
  MemoryTable rows = numbered(2);
  report(kPlain, {.Rs = rows, .MPLine = 60});
  class1_.Text_Rpt({.Rs = rows, .TextFileName = path("again.txt"), .MPLine = 60});
  EXPECT_NE(bytesOf(path("again.txt")).find("    6.00\r\n"), std::string::npos);
}

TEST_F(TextReport, TotalsAreDecimalsOfFifteenDigits) {
  const auto total = [&](const char* side,
                         std::size_t width,
                         const char* pattern,
                         const std::vector<double>& values) {
    MemoryTable rows({"n"});
    for (const double value : values) rows.addRow({value});
    const std::string bytes =
        report({{"n", "N", std::to_string(width), "N", side, "0", "Y", "", "", "", pattern}},
               {.Rs = rows, .MPLine = 60});
    return bytes.substr(bytes.rfind(std::string(width, '-')) - width - 2, width);
  };
  const std::vector<double> large = {6e14, 6e14}, small = {0.1, 0.2, -0.3};
  expectEach(total,
             Row{"R", 17, "", large, " 1200000000000000"},
             Row{"L", 8, "", small, "0.000000"},
             Row{"R", 17, "General Number", large, " 1200000000000000"},
             Row{"R", 5, "0.00", small, " 0.00"},
             Row{"R", 18, ">@", large, "  1200000000000000"},
             Row{"R", 9, "0E+00", large, "    1E+15"},
             Row{"R", 3, "", std::vector<double>{1e-29}, "  0"},
             Row{"R", 17, "", std::vector<double>{-1e15, 0.5}, "-1000000000000000"});
}

/// Rows on which something is done at each move to the next one.
struct BusyRows : Recordset {
  MemoryTable rows;
  std::function<void()> work;

  BusyRows(MemoryTable table, std::function<void()> task) : rows(std::move(table)), work(task) {}
  void MoveFirst() override { rows.MoveFirst(); }
  void MoveLast() override { rows.MoveLast(); }
  void MoveNext() override { work(), rows.MoveNext(); }
  bool Eof() const override { return rows.Eof(); }
  std::int64_t RecordCount() const override { return rows.RecordCount(); }
  std::size_t fieldCount() const override { return rows.fieldCount(); }
  std::string_view fieldName(std::size_t ordinal) const override { return rows.fieldName(ordinal); }
  ValueView value(std::size_t ordinal) const override { return rows.value(ordinal); }
};

TEST_F(TextReport, OneIsWrittenWithinAnother) {
  MemoryTable inner = numbered(3);
  const Columns innerColumns = {{"amount", "A", "8", "N", "R", "0", "Y", "Y"}};
  const std::string innerAlone = report(innerColumns, {.Rs = inner, .MPLine = 7});
  MemoryTable alone = numbered(60);
  const std::string outerAlone = report(kPlain, {.Rs = alone, .MPLine = 60, .Srno = 1});
  int written = 0;
  BusyRows outer(numbered(60), [&] {
    setColumns(innerColumns);
    class1_.Text_Rpt({.Rs = inner, .TextFileName = path("inner.txt"), .MPLine = 7});
    written += bytesOf(path("inner.txt")) == innerAlone;
  });
  EXPECT_EQ(report(kPlain, {.Rs = outer, .MPLine = 60, .Srno = 1}), outerAlone);
  EXPECT_EQ(written, 60);
}

TEST_F(TextReport, TellsItsProgressAndStopsWhenTold) {
  MemoryTable rows = numbered(600);
  std::vector<std::pair<std::int64_t, std::int64_t>> told;
  const auto listen = [&](const ReportProgress& done) { told.emplace_back(done.rows, done.pages); };
  report(kPlain, {.Rs = rows, .MPLine = 60, .onProgress = listen});
  EXPECT_EQ(told, (decltype(told){{256, 4}, {512, 9}, {600, 12}}));

  replaceFile(file_, "earlier", "test");
  const auto stop = [](const ReportProgress&) { throw std::runtime_error("stop"); };
  EXPECT_THROW(report(kPlain, {.Rs = rows, .MPLine = 60, .onProgress = stop}), std::runtime_error);
  EXPECT_EQ(bytesOf(file_), "earlier");
  rows = numbered(2);
  class1_.Text_Rpt({.Rs = rows, .TextFileName = file_, .MPLine = 60});  // the sums so far stay
  EXPECT_NE(bytesOf(file_).find("32899.00\r\n"), std::string::npos);
}

TEST_F(TextReport, OpensInThePreviewWhenAsked) {
  MemoryTable rows = numbered(1);
  report(kPlain, {.Rs = rows, .MPLine = 60});
  EXPECT_TRUE(machine_.windows.forms.empty());
  report(kPlain, {.Rs = rows, .MPLine = 60, .Preview1 = 2});
  EXPECT_EQ(machine_.windows.forms.size(), 1u);
  EXPECT_EQ(runState().ModPath1, file_);
  EXPECT_EQ(runState().ModRCont + runState().ModRPrint, 2);
}

TEST_F(TextReport, SerialNumbersKeepTheirLastFourDigits) {
  MemoryTable rows = numbered(2);
  const std::string bytes = report(kPlain, {.Rs = rows, .MPLine = 60, .Srno = 9999});
  EXPECT_NE(bytes.find("\r\n9999 row"), std::string::npos);
  EXPECT_NE(bytes.find("\r\n0000 row"), std::string::npos);
  EXPECT_EQ(nextSerial_, 10001);
}

TEST_F(TextReport, AGroupFieldThatTheDataLacksIsToldBeforeAnythingIsTouched) {
  MemoryTable rows = numbered(1);
  Columns columns = kPlain;
  columns[0] = {"item", "Item", "10", "T", "L", "1", "N", "", "", "region"};
  replaceFile(file_, "earlier", "test");
  EXPECT_EQ(report(columns, {.Rs = rows, .MPLine = 60, .Srno = 7}), "earlier");
  EXPECT_EQ(nextSerial_, 7);
  EXPECT_EQ(machine_.messageBox.shown.at(0).text,
            " Please Check for RecordSet \r\nregion\r\n Not found ");
  EXPECT_EQ(class1_.lastFailure()->number(), AutomationError::kItemNotFound);
}

TEST_F(TextReport, FailuresNameTheThingAndLeaveTheEarlierReport) {
  replaceFile(file_, "earlier", "test");
  const auto failure = [&](const char* item, const std::string& target) {
    MemoryTable rows({"item", "amount"}, {{item, 1.0}});
    setColumns(kPlain);
    TextRptArguments arguments{.Rs = rows, .TextFileName = target, .MPLine = 60};
    return errorOf([&] { class1_.Text_Rpt(arguments); });
  };
  const std::string coded = failure("caf\xE9", file_);
  EXPECT_NE(coded.find("\"item\" of row 1 of the data is not UTF-8"), coded.npos) << coded;
  const std::string unnamed = failure("a", "");
  EXPECT_NE(unnamed.find("without a name"), unnamed.npos) << unnamed;
  EXPECT_EQ(bytesOf(file_), "earlier");
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder_.path), {}), 2);
  MemoryTable rows = numbered(1);
  Class1 fresh(machine_.platform());
  EXPECT_THROW(fresh.Text_Rpt({.Rs = rows, .TextFileName = path("x")}), AutomationError);
}

}  // namespace
}  // namespace paperway
