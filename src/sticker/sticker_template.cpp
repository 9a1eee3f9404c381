#include "sticker/sticker_template.h"

#include "paperway/automation_error.h"
#include "report/report_plan.h"
#include "util/text.h"

namespace paperway {
namespace {

constexpr char kSource[] = "StickerPrint";

}  // namespace

StickerTemplate::StickerTemplate(std::string_view line, const Recordset& rows) {
  parts_.emplace_back();
  for (std::size_t i = 0; i < line.size(); ++i) {
    if (line[i] != '{') {
      parts_.back().text += line[i];
      continue;
    }
    if (line.substr(i).starts_with("{{")) {
      parts_.back().text += line[++i];
      continue;
    }
    const std::size_t end = line.find('}', i);
    if (end == line.npos) {
      throw AutomationError(AutomationError::kInvalidCall, kSource,
                            "The line \"" + std::string(line) +
                                "\" has a \"{\" that no \"}\" closes; a brace itself is \"{{\".");
    }
    addField(line.substr(i + 1, end - i - 1), rows);
    i = end;
  }
}

void StickerTemplate::addField(std::string_view place, const Recordset& rows) {
  const std::size_t colon = place.find(':');
  Part& part = parts_.back();
  part.field = rows.fieldOrdinal(place.substr(0, colon));
  if (colon != place.npos) part.pattern = FormatPattern(place.substr(colon + 1));
  parts_.emplace_back();
}

void StickerTemplate::append(std::string& out, const Recordset& rows, std::int64_t row) const {
  for (const Part& part : parts_) {
    out += part.text;
    if (part.field == kNoField) continue;
    const ValueView value = rows.value(part.field);
    if (value.kind() == ValueView::Kind::text &&
        validUtf8Length(value.text()) != value.text().size()) {
      raiseNotUtf8(value.text(),
                   "Field \"" + std::string(rows.fieldName(part.field)) + "\" of row " +
                       std::to_string(row) + " of the data",
                   kSource);
    }
    part.pattern.append(out, value);
  }
}

}  // namespace paperway
