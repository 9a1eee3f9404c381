#include <array>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "apps/paperway/commands.h"
#include "apps/paperway/source.h"
#include "apps/paperway/starter_table.h"
#include "apps/paperway/stop_signals.h"
#include "apps/paperway/visible.h"
#include "report/layout.h"
#include "report/report_format.h"
#include "report/report_plan.h"
#include "util/format_pattern.h"

namespace paperway::command {
namespace {

constexpr std::size_t kSerialColumn = 5;

struct Pitch {
  const char* name;
  double charactersPerInch;
};
constexpr std::array<Pitch, 3> kPitches{{{"80", 10}, {"96", 12}, {"136", 17}}};

struct ColumnsOptions {
  Source source;
  std::string columns;
  std::string data;
  std::string from;
  double paper = 8;
};

std::string letter(char32_t character) {
  std::string text;
  appendCharacter(text, character);
  return text;
}

const char* typeName(const ColumnFormat& column) {
  switch (column.Dtyp) {
    case U'T':
      return "text";
    case U'D':
      return "date";
    case U'N':
      return "number";
    default:
      return "none";
  }
}

/// What the column does beyond its cells, in a few words.
std::string duties(const ColumnFormat& column) {
  std::vector<std::string> words;
  const auto group = [&](const std::string& field, std::uint8_t counts) {
    if (!field.empty()) words.push_back((counts == 1 ? "count by " : "total by ") + field);
  };
  group(column.GTot1, column.Group1Count);
  group(column.GTot2, column.Group2Count);
  if (column.Lt == U'Y') words.push_back("grand total");
  if (column.AllPageTot == U'Y') words.push_back("carried from page to page");
  if (column.DupPrintYN == "Y") words.push_back("blank on duplicates");
  std::string text;
  for (const std::string& word : words) text += (text.empty() ? "" : ", ") + word;
  return text;
}

void printColumns(const ReportFormatTable& table) {
  const auto line = [](std::string_view number, std::string_view field, std::string_view heading,
                       std::string_view width, std::string_view type, std::string_view side,
                       std::string_view pattern, std::string_view duty) {
    std::string text = TxtR(number, 3) + "  " + TxtL(visible(field), 16) + " " +
                       TxtL(visible(heading), 16) + " " + TxtR(width, 7) + "  " + TxtL(type, 7) +
                       TxtL(side, 6) + TxtL(visible(pattern), 16) + " " + visible(duty);
    text.erase(text.find_last_not_of(' ') + 1);
    std::cout << text << "\n";
  };
  line("#", "Field", "Heading", "Width", "Type", "Side", "Pattern", "Beside its cells");
  for (std::size_t i = 0; i < table.columnCount(); ++i) {
    const ColumnFormat& column = table.records[i];
    line(std::to_string(i + 1), column.fNM, column.fHeder,
         std::to_string(column.Sz) + "+" + std::to_string(column.Spc), typeName(column),
         column.Ali == U'L' ? "left" : "right", column.Frmt, duties(column));
  }
}

std::size_t lineWidth(const ReportFormatTable& table) {
  std::size_t width = 0;
  for (std::size_t i = 0; i < table.columnCount(); ++i) {
    width += static_cast<std::size_t>(table.records[i].Sz) + table.records[i].Spc;
  }
  return width;
}

std::string inches(double length) {
  return FormatPattern("0.0")(length);
}

void printWidths(std::size_t width, double paper) {
  std::cout << "\nA line has " << width << " characters, " << width + kSerialColumn
            << " with serial numbers.\n";
  bool fitsAnywhere = false;
  for (const Pitch& pitch : kPitches) {
    const double plain = static_cast<double>(width) / pitch.charactersPerInch;
    const double numbered = static_cast<double>(width + kSerialColumn) / pitch.charactersPerInch;
    std::cout << "  --pitch " << TxtL(pitch.name, 4) << inches(plain) << " inches, "
              << inches(numbered) << " with serial numbers";
    if (plain > paper) {
      std::cout << ": wider than the paper";
    } else if (numbered > paper) {
      std::cout << ": wider than the paper with serial numbers";
    }
    fitsAnywhere = fitsAnywhere || plain <= paper;
    std::cout << "\n";
  }
  if (!fitsAnywhere) {
    std::cerr << "Warning: at no pitch does a line fit a paper that is " << inches(paper)
              << " inches wide.\n";
  }
}

void warn(std::size_t number, const ColumnFormat& column, const std::string& what) {
  std::cerr << "Warning: column " << number << " (" << visible(column.fNM) << ") " << visible(what)
            << ".\n";
}

/// Things that are allowed and hardly meant.
void printWarnings(const ReportFormatTable& table) {
  std::string group1;
  std::string group2;
  for (std::size_t i = 0; i < table.columnCount(); ++i) {
    if (!table.records[i].GTot1.empty()) group1 = table.records[i].GTot1;
    if (!table.records[i].GTot2.empty()) group2 = table.records[i].GTot2;
  }
  for (std::size_t i = 0; i < table.columnCount(); ++i) {
    const ColumnFormat& column = table.records[i];
    const std::size_t number = i + 1;
    if (std::u32string_view(U"TDN").find(column.Dtyp) == std::u32string_view::npos) {
      warn(number, column,
           "has the type \"" + letter(column.Dtyp) + "\", none of T, D, N: it has no cells");
    }
    if (column.AllPageTot == U'Y' && column.Lt != U'Y') {
      warn(number, column, "carries a page total that nothing adds to: Lt is not Y");
    }
    if (column.Lt == U'Y' && column.Dtyp != U'N') {
      warn(number, column, "has a grand total that nothing adds to: it is no number column");
    }
    if (!column.GTot1.empty() && !equalIgnoringCase(column.GTot1, group1)) {
      warn(number, column, "names the group \"" + column.GTot1 + "\", the report uses " + group1);
    }
    if (!column.GTot2.empty() && !equalIgnoringCase(column.GTot2, group2)) {
      warn(number, column, "names the group \"" + column.GTot2 + "\", the report uses " + group2);
    }
  }
}

/// Every field that the table names, looked for in the data.
void checkFields(const ReportFormatTable& table, const Recordset& rows) {
  for (std::size_t i = 0; i < table.columnCount(); ++i) {
    const ColumnFormat& column = table.records[i];
    if (std::string_view(typeName(column)) != "none") rows.fieldOrdinal(column.fNM);
    if (!column.GTot1.empty()) rows.fieldOrdinal(column.GTot1);
    if (!column.GTot2.empty()) rows.fieldOrdinal(column.GTot2);
  }
  const std::string& duplicate = table.records.front().DupPrintField;
  if (!duplicate.empty()) rows.fieldOrdinal(duplicate);
}

void printReport(const ColumnsOptions& options) {
  std::shared_ptr<ReportFormatTable> table;
  readReportFormat(*options.source.columns(options.columns), table);
  planReport(table.get(), kTextRules, "columns");  // refuses what no report could be made of
  printColumns(*table);
  printWidths(lineWidth(*table), options.paper);
  printWarnings(*table);
  if (!options.data.empty()) checkFields(*table, *options.source.rows(options.data));
}

void writeStarter(const ColumnsOptions& options) {
  const StopSignals stopSignals;
  std::cout << starterTable(*options.source.rows(options.from));
}

}  // namespace

void addColumns(CLI::App& app) {
  CLI::App* columns =
      app.add_subcommand("columns", "Check a column table and show what each column will be");
  const auto options = std::make_shared<ColumnsOptions>();
  options->source.addOptions(*columns);
  CLI::Option* table =
      columns
          ->add_option("table", options->columns,
                       "Column table: a file of comma-separated values, or a query")
          ->type_name("FILE.csv|SELECT");
  CLI::Option* data =
      columns
          ->add_option("--data", options->data, "Query whose fields the table is checked against")
          ->type_name("SELECT");
  columns->add_option("--paper", options->paper, "Width of the paper that is printed on, in inches")
      ->type_name("INCHES")
      ->check(CLI::PositiveNumber)
      ->capture_default_str();
  columns
      ->add_option("--from", options->from,
                   "Instead of checking one, write a column table to begin with for this query: "
                   "names, headings, types and widths as its rows have them")
      ->type_name("SELECT")
      ->excludes(table, data);
  columns->footer(
      "Examples:\n"
      "  paperway columns --from \"SELECT * FROM sales\" --db ledger.db >columns.csv\n"
      "  paperway columns columns.csv --db ledger.db --data \"SELECT * FROM sales\"");
  columns->callback([options] {
    if (!options->from.empty()) return writeStarter(*options);
    if (options->columns.empty()) throw CLI::RequiredError("table or --from");
    forFile("read", options->columns, [&] { printReport(*options); });
  });
}

}  // namespace paperway::command
