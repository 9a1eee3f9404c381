#include "apps/paperway/starter_table.h"

#include <algorithm>
#include <cctype>
#include <iostream>
#include <optional>
#include <vector>

#include "apps/paperway/visible.h"
#include "util/format_pattern.h"
#include "util/text.h"
#include "util/value_text.h"

namespace paperway::command {
namespace {

constexpr std::size_t kWidest = 60;
constexpr std::size_t kMostDecimals = 4;

/// What the values of one field have in common.
struct FieldSample {
  std::string name;
  bool texts = false;
  bool numbers = false;
  bool dates = false;
  bool reals = false;
  bool times = false;
  std::size_t decimals = 2;
  std::size_t textWidth = 0;  // of the default text forms
  double least = 0;
  double most = 0;

  void add(ValueView value);
  char type() const;
  std::string pattern() const;
  std::size_t width() const;

 private:
  void addNumber(double number, std::string_view text);
};

void FieldSample::add(ValueView value) {
  if (value.isNull()) return;
  const std::string text = defaultText(value);
  textWidth = std::max(textWidth, characterCount(text));
  switch (value.kind()) {
    case ValueView::Kind::real:
      reals = true;
      return addNumber(value.real(), text);
    case ValueView::Kind::integer:
      return addNumber(static_cast<double>(value.integer()), text);
    case ValueView::Kind::date:
      dates = true;
      times = times || value.date().hasTime();
      return;
    default:
      texts = true;
  }
}

void FieldSample::addNumber(double number, std::string_view text) {
  numbers = true;
  least = std::min(least, number);
  most = std::max(most, number);
  const std::size_t point = text.find('.');
  if (point == std::string_view::npos) return;
  decimals = std::clamp(text.size() - point - 1, decimals, kMostDecimals);
}

char FieldSample::type() const {
  if (texts || numbers == dates) return 'T';
  return numbers ? 'N' : 'D';
}

std::string FieldSample::pattern() const {
  switch (type()) {
    case 'D':
      return times ? "dd-mmm-yyyy hh:nn" : "dd-mmm-yyyy";
    case 'N':
      return reals ? "#,##0." + std::string(decimals, '0') : "";  // a year has no thousands
    default:
      return "";
  }
}

std::size_t FieldSample::width() const {
  const FormatPattern format(pattern());
  switch (type()) {
    case 'D':
      return characterCount(format(Date{}));
    case 'N':
      return reals ? std::max(format(least).size(), format(most).size()) : textWidth;
    default:
      return std::min(textWidth, kWidest);
  }
}

/// "unit_price" is "Unit price".
std::string headingOf(const std::string& field) {
  std::string heading = field;
  for (char& c : heading) {
    if (c == '_' || std::iscntrl(static_cast<unsigned char>(c)) != 0) c = ' ';
  }
  std::size_t behindFirst = 0;
  std::string result;
  if (!heading.empty()) appendCharacter(result, upperCase(nextCharacter(heading, behindFirst)));
  return result + heading.substr(behindFirst);
}

std::string lineOf(const FieldSample& field) {
  const std::string heading = headingOf(field.name);
  const std::size_t width = std::max({field.width(), characterCount(heading), std::size_t{1}});
  const std::string type(1, field.type());
  std::string line;
  appendCsvCell(line, field.name);
  appendCsvCell(line += ',', heading);
  line += "," + std::to_string(width) + ",1," + type + (type == "N" ? ",R," : ",L,");
  appendCsvCell(line, field.pattern());
  return line + ",N\n";
}

void warnOfWidth(const FieldSample& field) {
  if (field.type() != 'T' || field.textWidth <= kWidest) return;
  std::cerr << "Warning: " << visible(field.name) << " holds texts of up to " << field.textWidth
            << " characters; its column is " << kWidest << " wide.\n";
}

}  // namespace

std::string starterTable(Recordset& rows) {
  std::vector<FieldSample> fields(rows.fieldCount());
  for (std::size_t i = 0; i < fields.size(); ++i) fields[i].name = rows.fieldName(i);
  if (rows.Eof()) std::cerr << "Warning: there are no rows to take types and widths from.\n";
  for (; !rows.Eof(); rows.MoveNext()) {
    for (std::size_t i = 0; i < fields.size(); ++i) fields[i].add(rows.value(i));
  }
  std::string table = "fNM,fHeder,Sz,Spc,Dtyp,Ali,Frmt,Lt\n";
  for (const FieldSample& field : fields) {
    table += lineOf(field);
    warnOfWidth(field);
  }
  return table;
}

}  // namespace paperway::command
