#include "util/format_number.h"

#include <cmath>

#include "util/numbers.h"
#include "util/value_text.h"

namespace paperway {

NumberFormat::NumberFormat(Symbols pattern) {
  const auto sections = splitSections(pattern);
  std::optional<NumberSection>* const members[] = {&positive_, &negative_, &zero_, &null_};
  for (std::size_t i = 0; i < std::min(sections.size(), std::size(members)); ++i) {
    if (!sections[i].empty()) members[i]->emplace(sections[i]);
  }
}

void NumberFormat::append(std::string& out, const ValueView& value) const {
  switch (value.kind()) {
    case ValueView::Kind::real:
      appendNumber(out, value.real());
      break;
    case ValueView::Kind::integer:
      appendNumber(out, value.integer());
      break;
    case ValueView::Kind::date:
      appendNumber(out, dateToSerial(value.date()));
      break;
    case ValueView::Kind::text:
      appendText(out, value.text());
      break;
    case ValueView::Kind::null:
      if (null_) null_->appendLiterals(out);
      break;
  }
}

void NumberFormat::appendDecimal(std::string& out, double number) const {
  if (number == 0 || sectionOf(number)) {
    appendNumber(out, number);
  } else {
    appendDecimalText(out, number);
  }
}

const std::optional<NumberSection>& NumberFormat::sectionOf(double number) const {
  return number < 0 && negative_ ? negative_ : positive_;
}

/// A number that rounds to zero is shown as zero is.
template <class Number>
void NumberFormat::appendNumber(std::string& out, Number number) const {
  if (number == 0) {
    appendZero(out);
    return;
  }
  const bool ownSign = number < 0 && negative_;
  const auto& section = sectionOf(static_cast<double>(number));
  if (!section || !std::isfinite(static_cast<double>(number))) {
    appendDefaultText(out, number);
  } else if (!section->append(out, number, !ownSign)) {
    appendZero(out);
  }
}

void NumberFormat::appendZero(std::string& out) const {
  const auto& section = zero_ ? zero_ : positive_;
  if (section) {
    section->append(out, std::int64_t{0}, false);
  } else {
    out += '0';
  }
}

void NumberFormat::appendText(std::string& out, std::string_view text) const {
  if (const auto number = parseNumber(text)) {
    appendNumber(out, *number);
  } else if (const auto date = parseIsoDate(text)) {
    appendNumber(out, dateToSerial(*date));
  } else {
    out += text;
  }
}

}  // namespace paperway
