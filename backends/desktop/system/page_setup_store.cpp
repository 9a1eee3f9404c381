#include "backends/desktop/system/page_setup_store.h"

#include <string>
#include <vector>

#include "paperway/automation_error.h"
#include "util/numbers.h"
#include "util/value_text.h"

namespace paperway::desktop {
namespace {

constexpr char kSource[] = "PageSetup";
constexpr char kApplication[] = "Paperway";
constexpr char kSection[] = "PageSetup";
constexpr double kMostInches = 100;
constexpr double kMostTextSize = 255;

struct Margin {
  const char* key;
  double PageSetup::*inches;
};
constexpr Margin kMargins[] = {{"margin_top", &PageSetup::marginTop},
                               {"margin_bottom", &PageSetup::marginBottom},
                               {"margin_left", &PageSetup::marginLeft},
                               {"margin_right", &PageSetup::marginRight}};

struct Line {
  const char* key;
  std::string PageSetup::*text;
};
constexpr Line kLines[] = {{"header", &PageSetup::header}, {"footer", &PageSetup::footer}};

constexpr char kTextSize[] = "text_size";

double numberIn(UserStore& texts, const char* key, double fallback, double most) {
  const std::string text = texts.get(kApplication, kSection, key, defaultText(fallback));
  const auto number = parseNumber(text);
  if (number && *number >= 0 && *number <= most) return *number;
  throw AutomationError(AutomationError::kTypeMismatch, kSource,
                        std::string("The page set-up holds \"") + text + "\" for " + key +
                            ", which is no number from 0 to " + defaultText(most) + ".");
}

}  // namespace

PageSetup PageSetupStore::read() {
  PageSetup setup;
  for (const auto& [key, inches] : kMargins) {
    setup.*inches = numberIn(texts_, key, setup.*inches, kMostInches);
  }
  setup.textSize =
      static_cast<std::uint8_t>(numberIn(texts_, kTextSize, setup.textSize, kMostTextSize));
  for (const auto& [key, text] : kLines) {
    setup.*text = texts_.get(kApplication, kSection, key, setup.*text);
  }
  return setup;
}

void PageSetupStore::write(const PageSetup& setup) {
  std::vector<UserStore::Text> texts{{kTextSize, std::to_string(setup.textSize)}};
  for (const auto& [key, inches] : kMargins) texts.push_back({key, defaultText(setup.*inches)});
  for (const auto& [key, text] : kLines) texts.push_back({key, setup.*text});
  texts_.saveAll(kApplication, kSection, texts);
}

}  // namespace paperway::desktop
