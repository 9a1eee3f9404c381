#include "report/report_run.h"

#include <sstream>

#include "support/expect_each.h"
#include "support/report_fixture.h"
#include "util/value_text.h"

namespace paperway {
namespace {

/// What a run tells, one word each: "+o:A" a group begins ("+i!A" by
/// itself), "-i:3" one ends with its sum ("-i!3" by
/// itself, "-i.3" with the report), "5" a number cell, "_" a blank one, "x" none, "|" a page's end.
class Log {
 public:
  Log(const ReportPlan& plan, Recordset& rows, std::vector<ColumnSums>& sums, double page)
      : run(plan, rows, sums, {plan.rules.page, page}) {}

  void endInnerGroup(GroupEnd end) { addEnd("-i", end, run.sums()[0].inner); }
  void endOuterGroup(GroupEnd end) { addEnd("-o", end, run.sums()[0].outer); }
  void beginOuterGroup(const std::string& name) { add("+o:" + name); }
  void beginInnerGroup(const std::string& name, GroupBegin begin) {
    add((begin == GroupBegin::alone ? "+i!" : "+i:") + name);
  }
  void beginRow(bool) {}
  void blankCell(const ColumnPlan&) { add("_"); }
  void noCell(const ColumnPlan&) { add("x"); }
  void textCell(const ColumnPlan&, const ValueView& value) { add(defaultText(value)); }
  void dateCell(const ColumnPlan&, const ValueView&) { add("date"); }
  void numberCell(const ColumnPlan&, const ValueView&, double number) { add(defaultText(number)); }
  void endRow() {
    run.page.add(1);
    run.endPageIfFull(*this);
  }
  void endPage() {
    add("|");
    run.page.restart(0);
  }

  ReportRun run;
  std::string text;

 private:
  void add(const std::string& word) { text += (text.empty() ? "" : " ") + word; }
  void addEnd(const std::string& level, GroupEnd end, double sum) {
    add(level +
        (end == GroupEnd::alone      ? "!"
         : end == GroupEnd::ofReport ? "."
                                     : ":") +
        defaultText(sum));
  }
};

Value cell(const std::string& text) {
  return text == "-" ? Value() : Value(text == "''" ? "" : text);
}

/// Of rows "outer/inner/number"; "-" is null, '' an empty text.
std::string told(const ReportRules& rules, const char* width, const char* type,
                 const std::string& rows, double page = 1000) {
  MemoryTable columns = columnTable({{"number",
                                      "N",
                                      width,
                                      type,
                                      "R",
                                      "1",
                                      "Y",
                                      "",
                                      "inner",
                                      "outer",
                                      "",
                                      "",
                                      "",
                                      "Y",
                                      "number"}});
  std::shared_ptr<ReportFormatTable> table;
  readReportFormat(columns, table);
  MemoryTable data({"outer", "inner", "number"});
  std::istringstream words(rows);
  for (std::string outer, inner, number; std::getline(words >> std::ws, outer, '/') &&
                                         std::getline(words, inner, '/') && words >> number;) {
    data.addRow(std::vector<Value>{cell(outer), cell(inner), cell(number)});
  }
  ReportPlan plan = planReport(table.get(), rules, "test");
  bindFields(plan, data);
  Log log(plan, data, table->sums, page);
  log.run.walk(log);
  return log.text;
}

TEST(ReportRun, TellsWhatHappensInOrder) {
  const auto text = [](const char* rows) { return told(kTextRules, "4", "N", rows); };
  expectEach(text,
             Row{"A/a/1 A/a/2 A/b/3", "+o:A +i:a 1 2 -i!3 +i!b 3 -i.3 -o.6"},
             Row{"A/a/1 B/a/2 B/A/3 b/a/4", "+o:A +i:a 1 -i:1 -o:1 +o:B +i:a 2 3 4 -i.9 -o.9"},
             Row{"A/a/1 -/-/2 -/-/3", "+o:A +i:a 1 -i:1 -o:1 +o:  +i:  2 3 -i.5 -o.5"},
             Row{"b/a/1 c/ab/2", "+o:b +i:a 1 -i:1 -o:1 +o:c +i:ab 2 -i.2 -o.2"},
             Row{"''/''/1 ''/a/2 B/a/3", "1 +i!a 2 +o:B +i:a 3 -i.6 -o.6"},
             Row{"A/a/5 A/a/5 A/a/-", "+o:A +i:a 5 _ 0 -i.5 -o.5"},
             Row{"", "-i.0"});
}

TEST(ReportRun, WritersDifferInTheirRulesAlone) {
  // A null, or another case, of the outer group; an inner group whose text is the key before; no
  // row at all.
  const char* const rows[] = {"A/a/1 -/a/2 -/a/3", "A/a/1 a/a/2", "b/a/1 c/ab/2", ""};
  const auto html = [&](int i) { return told(kHtmlRules, "4", "N", rows[i]); };
  expectEach(html,
             Row{0, "+o:A +i:a 1 +i:a 2 +i:a 3 -i.6 -o.6"},
             Row{1, "+o:A +i:a 1 2 -i.3 -o.3"},
             Row{2, "+o:b +i:a 1 -o:1 +o:c +i:ab 2 -i.3 -o.2"},
             Row{3, ""});
  EXPECT_EQ(told(kHtmlRules, "4", "N", "A/-/1 A/b/2"), "+o:A +i: 1 -i!1 +i!b 2 -i.2 -o.3");
  const auto salary = [&](int i) { return told(kSalaryHtmlRules, "4", "N", rows[i]); };
  expectEach(salary, Row{0, html(0)}, Row{1, "+o:A +i:a 1 +i:a 2 -i.3 -o.3"}, Row{2, html(2)});
  EXPECT_EQ(told(kWorkbookRules, "4", "N", "A/a/5 B/b/5"), "5 5");

  const auto hidden = [&](const ReportRules& rules) { return told(rules, "0", "N", "A/a/5"); };
  EXPECT_EQ(hidden(kHtmlRules), "+o:A +i:a 5 -i.5 -o.5");
  EXPECT_EQ(hidden(kSalaryHtmlRules), "+o:A +i:a x -i.0 -o.0");
}

TEST(ReportRun, LinesOfAPageAreCountedInEightBitsAndTwipsAreNot) {
  EXPECT_EQ(told(kHtmlRules, "4", "X", "A/a/1 A/a/2 A/a/3", 1), "+o:A +i:a x x | x -i.0 -o.0");
  const auto full = [](PageUnit unit, int height, double limit) {
    PageBudget page(unit, limit);
    page.add(height);
    return page.isFull();
  };
  expectEach(full,
             Row{PageUnit::lines, 252, 251, true},
             Row{PageUnit::lines, 251, 251, false},
             Row{PageUnit::lines, 256, 251, false},
             Row{PageUnit::twips, 256, 251.5, true});
}

}  // namespace
}  // namespace paperway
