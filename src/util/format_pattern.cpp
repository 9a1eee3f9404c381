#include "util/format_pattern.h"

#include "util/text.h"
#include "util/value_text.h"

namespace paperway {

namespace {

enum class Kind { number, date, text };

struct NamedFormat {
  std::string_view name;
  std::string_view pattern;
};

constexpr NamedFormat kNamedFormats[] = {
    {"General Number", ";"},  // a section that says nothing is the default text
    {"Currency", "$#,##0.00;($#,##0.00)"},
    {"Fixed", "0.00"},
    {"Standard", "#,##0.00"},
    {"Percent", "0.00%"},
    {"Scientific", "0.00E+00"},
    {"Yes/No", "\"Yes\";\"Yes\";\"No\""},
    {"True/False", "\"True\";\"True\";\"False\""},
    {"On/Off", "\"On\";\"On\";\"Off\""},
    {"General Date", "c"},
    {"Long Date", "dddddd"},
    {"Medium Date", "dd-mmm-yy"},
    {"Short Date", "ddddd"},
    {"Long Time", "ttttt"},
    {"Medium Time", "hh:nn AM/PM"},
    {"Short Time", "hh:nn"},
};

/// The first place of a number or a text decides; so "0 days" is a number pattern. Where there is
/// none, the first date letter or text mark does.
Kind kindOf(Symbols symbols) {
  for (const Symbol& symbol : symbols) {
    if (symbol.isPlace()) return Kind::number;
    if (symbol.is('@') || symbol.is('&')) return Kind::text;
  }
  for (; !symbols.empty(); symbols = symbols.subspan(1)) {
    if (beginsDateSymbol(symbols)) return Kind::date;
    if (symbols[0].is('<') || symbols[0].is('>') || symbols[0].is('!')) return Kind::text;
  }
  return Kind::number;
}

}  // namespace

std::string_view namedPattern(std::string_view name) {
  for (const NamedFormat& each : kNamedFormats) {
    if (equalIgnoringCase(each.name, name)) return each.pattern;
  }
  return name;
}

FormatPattern::FormatPattern(std::string_view pattern) {
  if (pattern.empty()) return;
  const auto symbols = readSymbols(namedPattern(pattern));
  switch (kindOf(symbols)) {
    case Kind::number:
      format_ = NumberFormat(symbols);
      break;
    case Kind::date:
      format_ = DateFormat(symbols);
      break;
    case Kind::text:
      format_ = TextFormat(symbols);
      break;
  }
}

void FormatPattern::append(std::string& out, const ValueView& value) const {
  switch (format_.index()) {
    case 1:
      std::get<1>(format_).append(out, value);
      break;
    case 2:
      std::get<2>(format_).append(out, value);
      break;
    case 3:
      std::get<3>(format_).append(out, value);
      break;
    default:
      appendDefaultText(out, value);
  }
}

void FormatPattern::append(std::string& out, double number) const {
  if (const auto* const numbers = std::get_if<NumberFormat>(&format_)) {
    numbers->append(out, number);
  } else {
    append(out, ValueView(number));
  }
}

void FormatPattern::appendDecimal(std::string& out, double number) const {
  std::string text;
  switch (format_.index()) {
    case 1:
      std::get<1>(format_).appendDecimal(out, number);
      break;
    case 2:
      std::get<2>(format_).append(out, number);
      break;
    case 3:
      appendDecimalText(text, number);
      std::get<3>(format_).append(out, text);
      break;
    default:
      appendDecimalText(out, number);
  }
}

std::string FormatPattern::operator()(ValueView value) const {
  std::string text;
  append(text, value);
  return text;
}

}  // namespace paperway
