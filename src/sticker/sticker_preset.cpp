#include "sticker/sticker_preset.h"

#include <cmath>
#include <limits>
#include <optional>
#include <vector>

#include "paperway/automation_error.h"
#include "paperway/platform/user_store.h"
#include "util/numbers.h"

namespace paperway {
namespace {

constexpr std::string_view kSection = "Sticker";
constexpr int kStyles = 2;

int numberWithin(const std::string& text, int least, int most, int fallback) {
  const std::optional<double> number = parseNumber(text);
  if (!number) return fallback;
  const std::int64_t whole = wholeNumber(*number);
  return whole < least || whole > most ? fallback : static_cast<int>(whole);
}

[[noreturn]] void refuse(const char* box, const std::string& text, int least, int most) {
  throw AutomationError(AutomationError::kInvalidCall, "StickerPrint",
                        "\"" + std::string(box) + "\" takes a whole number from " +
                            std::to_string(least) + " to " + std::to_string(most) + ", not \"" +
                            text + "\".");
}

template <typename Number>
Number within(double number, const char* box, const std::string& text, int least) {
  constexpr int kMost = std::numeric_limits<Number>::max();
  if (!(number >= least && number <= kMost)) refuse(box, text, least, kMost);
  return static_cast<Number>(number);
}

/// Of a box whose whole text is a number.
template <typename Number>
Number whole(const std::string& text, const char* box, int least) {
  const double number = parseNumber(text).value_or(std::numeric_limits<double>::quiet_NaN());
  return within<Number>(std::nearbyint(number), box, text, least);
}

}  // namespace

StickerPreset StickerPreset::load(UserStore& store, std::string_view application, int number) {
  const auto get = [&](const std::string& name, std::string_view fallback) {
    return store.get(application, kSection, std::to_string(number) + " " + name, fallback);
  };
  StickerPreset preset;
  preset.space = get("Space", preset.space);
  preset.columns = get("Col", preset.columns);
  preset.rows = get("Row", preset.rows);
  preset.blankLines = get("Blankline", preset.blankLines);
  preset.length = get("MaxFL", preset.length);
  preset.style = numberWithin(get("PrintStyle", ""), 0, kStyles - 1, preset.style);
  preset.fields = numberWithin(get("maxf", ""), 1, kStickerLines, preset.fields);
  for (std::size_t i = 0; i < preset.lines.size(); ++i) {
    preset.lines[i] = get(std::to_string(i + 1), preset.lines[i]);
  }
  return preset;
}

void StickerPreset::save(UserStore& store, std::string_view application, int number) const {
  std::vector<UserStore::Text> texts{{"Space", space},
                                     {"Col", columns},
                                     {"Row", rows},
                                     {"Blankline", blankLines},
                                     {"MaxFL", length},
                                     {"MaxF", std::to_string(fields)},
                                     {"PrintStyle", std::to_string(style)}};
  for (std::size_t i = 0; i < lines.size(); ++i) texts.push_back({std::to_string(i + 1), lines[i]});
  for (UserStore::Text& text : texts) text.key = std::to_string(number) + " " + text.key;
  store.saveAll(application, kSection, texts);
}

StickerShape StickerPreset::shape() const {
  StickerShape shape;
  // A text without a number is 0; the lines are counted, so that half a one is none.
  shape.length =
      within<std::uint8_t>(std::nearbyint(leadingNumber(length)), "Max Feild Lenth", length, 0);
  shape.blankLines =
      within<std::int16_t>(std::floor(leadingNumber(blankLines)), "Blank Line", blankLines, 0);
  shape.gap = whole<std::int16_t>(space, "SPace Between Col", 0);
  shape.columns = whole<std::uint8_t>(columns, "Col", 0);
  shape.rows = whole<std::int16_t>(rows, "Row", std::numeric_limits<std::int16_t>::min());
  shape.fields = static_cast<std::uint8_t>(fields);
  shape.condensed = style != 0;
  return shape;
}

}  // namespace paperway
