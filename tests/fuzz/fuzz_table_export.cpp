#include <filesystem>

#include "fuzz/choices.h"
#include "fuzz/fuzz.h"
#include "html/html_export.h"
#include "html/salary_export.h"
#include "paperway/headless.h"
#include "support/column_table.h"
#include "support/files.h"
#include "support/test_folder.h"

using namespace paperway;

std::vector<std::string> fuzz::seeds() {
  std::vector<std::string> seeds(12);
  for (std::size_t i = 0; i < seeds.size(); ++i) {
    for (std::size_t byte = 0; byte < 400; ++byte) {
      seeds[i] += static_cast<char>((byte * 131 + i * 77) ^ (byte * byte >> 3));
    }
  }
  return seeds;
}

namespace {

using fuzz::Choices;

std::vector<std::string> anyColumn(Choices& choices) {
  const auto group = [&] {
    return choices.oneOf<std::string>({"", "", "f0", "F1", "Count+f0", "Count+f1"});
  };
  const auto yes = [&] { return choices.oneOf<std::string>({"", "Y", "N"}); };
  return {
      "f" + std::to_string(choices.below(3)),
      choices.oneOf<std::string>({"Head", "<b>", "\xE2\x82\xB9"}),
      choices.oneOf<std::string>({"5", "0", "60", "1", "32767"}),
      choices.oneOf<std::string>({"T", "N", "D", "X", "x", "t"}),
      choices.oneOf<std::string>({"L", "R"}),
      "0",
      choices.oneOf<std::string>({"Y", "N"}),
      yes(),
      group(),
      group(),
      choices.oneOf<std::string>({"", "0", "#,##0.00", "dd/mm/yyyy", ">", "0.0E+0", "[", "%;-"}),
      "",
      "",
      yes(),
      choices.oneOf<std::string>({"", "f0", "F1"}),
      choices.oneOf<std::string>({"Arial", "unicode", "'>"}),
      choices.oneOf<std::string>({"0", "9", "0.5"}),
      choices.oneOf<std::string>({"", "<", ">A", "A", "<>\""}),
      choices.text(),
      choices.oneOf<std::string>({"0", "8.5"})};
}

MemoryTable anyColumns(Choices& choices) {
  Columns columns;
  for (unsigned i = 1 + choices.below(5); i > 0; --i) columns.push_back(anyColumn(choices));
  return columnTable(columns, {"FontSize", "GroupHeader", "G_H_FontNm", "G_H_FontSize"});
}

std::string anyTitle(Choices& choices) {
  return choices.oneOf<std::string>({"", "Title", "T^", "<", ">", "\xE2\x82\xB9>"});
}

/// What both exports take.
template <class Arguments>
void choose(Arguments& arguments, Choices& choices) {
  arguments.Tital1 = anyTitle(choices);
  arguments.Tital5 = anyTitle(choices);
  arguments.Srno = choices.oneOf<std::int32_t>({0, 1, 9, -5, 2147483646});
  arguments.CenterHeder1Right2 = static_cast<std::uint8_t>(choices.below(4));
  arguments.ChrWidth = choices.oneOf<float>({0, 6.3F, 1E30F, -1});
  arguments.PortraitLansscape = choices.oneOf<std::string>({"", "L", "P"});
}

void chooseSalary(HtmlExportSalaryArguments& arguments, Choices& choices) {
  const auto height = [&] { return choices.oneOf<std::int16_t>({0, 20, 400, 32767, -7}); };
  arguments.Space_Numeric = choices.oneOf<std::string>({"", "&nbsp;", "\xE2\x82\xB9"});
  arguments.Row_Height = height();
  arguments.PageBrack_When_GroupChange = static_cast<std::uint8_t>(choices.below(3));
  arguments.Top_margin = static_cast<std::uint8_t>(choices.below(3) * 120);
  arguments.Left_margin = static_cast<std::uint8_t>(choices.below(3));
  arguments.DoubleLine_LastTotal = static_cast<std::int16_t>(choices.below(2));
  arguments.Unicode_RPT = static_cast<std::int16_t>(choices.below(2));
  arguments.FixHeder_Row_Height = height();
  arguments.FixRow_Height = height();
}

/// The document ends with its grand total, and stands in one byte a character.
void checkDocument(const std::string& bytes) {
  fuzz::require(bytes.ends_with("</tr>\r\n</font>\r\n"), "a document ends with the grand total");
  fuzz::require(bytes.find("\xE2\x82\xB9") == bytes.npos,
                "what the code page lacks is a reference");
}

}  // namespace

void fuzz::check(std::string_view input) {
  static const TestFolder folder;
  Choices choices(input);
  headless::Headless machine(folder.path);
  machine.pageSetup.kept.marginTop = choices.below(12);
  machine.pageSetup.kept.textSize = static_cast<std::uint8_t>(choices.below(6));
  machine.printers.currentPrinter = "Laser";
  machine.printers.kept["Laser"].Orientation = static_cast<std::int16_t>(1 + choices.below(2));
  MemoryTable columns = anyColumns(choices);
  std::shared_ptr<ReportFormatTable> table;
  readReportFormat(columns, table);
  MemoryTable rows({"f0", "f1", "f2"});
  const auto file = folder.path / "table.html";
  std::filesystem::remove(file);
  ReportProgress progress;
  const auto run = [&](auto arguments, const auto& write) {
    arguments.HTML_FileName = file.string();
    arguments.onProgress = [&](const ReportProgress& done) { progress = done; };
    write(arguments);
    fuzz::require(progress.rows == rows.RecordCount(), "each row is read once");
    checkDocument(readFile(file));
  };
  HtmlExportArguments plain{.Rs = rows};
  HtmlExportSalaryArguments salary{.Rs = rows};
  choose(plain, choices);
  choose(salary, choices);
  chooseSalary(salary, choices);
  while (!choices.done()) {
    rows.addRow(std::vector<Value>{choices.value(), choices.value(), choices.value()});
  }
  try {
    run(plain, [&](auto& arguments) { writeHtmlExport(arguments, table, machine.platform()); });
    rows.MoveFirst();
    run(salary, [&](auto& arguments) { writeSalaryExport(arguments, table, machine.platform()); });
  } catch (const AutomationError& error) {
    fuzz::require(!std::string_view(error.description()).empty(), "an error says what it is");
  }
}
