#include "util/format_text.h"

#include <algorithm>

#include "util/text.h"
#include "util/value_text.h"

namespace paperway {

namespace {

void moveCharacters(std::string& out, std::string_view& text, std::size_t count) {
  const std::string_view taken = leftCharacters(text, count);
  out += taken;
  text.remove_prefix(taken.size());
}

}  // namespace

TextFormat::Section::Section(Symbols symbols) {
  std::optional<std::size_t> firstMark;
  for (const Symbol& symbol : symbols) {
    if (symbol.is('@') || symbol.is('&')) {
      steps.push_back({symbol.character == '@' ? Step::place : Step::optionalPlace});
      ++places;
    } else if (symbol.is('<') || symbol.is('>') || symbol.is('!')) {
      readMark(symbol.character);
      if (!firstMark) firstMark = steps.size();
    } else {
      steps.push_back({Step::literal, symbol.character});
    }
  }
  if (places == 0 && firstMark) {
    steps.insert(steps.begin() + static_cast<std::ptrdiff_t>(*firstMark), {Step::wholeText});
  }
}

void TextFormat::Section::readMark(char mark) {
  if (mark == '!') {
    fromLeft = true;
  } else {
    letters = mark == '<' ? lower : upper;
  }
}

void TextFormat::Section::append(std::string& out, std::string_view text) const {
  switch (letters) {
    case asItIs:
      fill(out, text);
      break;
    case lower:
      fill(out, lowerCase(text));
      break;
    case upper:
      fill(out, upperCase(text));
      break;
  }
}

/// Places that the text does not reach stand at the end where filling ends; characters for which
/// there is no place join the place at that end.
void TextFormat::Section::fill(std::string& out, std::string_view text) const {
  const std::size_t count = characterCount(text);
  const std::size_t missing = places - std::min(places, count);
  const std::size_t extra = count - std::min(places, count);
  const std::size_t firstFilled = fromLeft ? 0 : missing;
  const std::size_t endFilled = fromLeft ? places - missing : places;
  const std::size_t widePlace = fromLeft ? places - 1 : 0;
  std::size_t at = 0;
  for (const Step& step : steps) {
    if (step.kind == Step::literal) {
      out += step.character;
    } else if (step.kind == Step::wholeText) {
      out += text;
    } else {
      if (at >= firstFilled && at < endFilled) {
        moveCharacters(out, text, at == widePlace ? 1 + extra : 1);
      } else if (step.kind == Step::place) {
        out += ' ';
      }
      ++at;
    }
  }
}

TextFormat::TextFormat(Symbols pattern) : texts_(splitSections(pattern)[0]) {
  const auto sections = splitSections(pattern);
  if (sections.size() > 1) empty_.emplace(sections[1]);
}

void TextFormat::append(std::string& out, const ValueView& value) const {
  if (value.kind() == ValueView::Kind::text) {
    const Section& section = value.text().empty() && empty_ ? *empty_ : texts_;
    section.append(out, value.text());
  } else if (!value.isNull()) {
    texts_.append(out, defaultText(value));
  } else if (empty_) {
    empty_->append(out, {});
  }
}

}  // namespace paperway
