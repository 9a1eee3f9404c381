#include "html/page_measure.h"

#include <cmath>

#include "util/paper.h"

namespace paperway {
namespace {

constexpr double kTwipsPerInch = 1440;
constexpr double kUsualCharacterWidth = 6;

double twips(int hundredthsOfMillimetre) {
  return std::round(hundredthsOfMillimetre * kTwipsPerInch / 2540);
}

}  // namespace

PageSetup preparePageSetup(PageSetupStore& store) {
  PageSetup setup = store.read();
  setup.footer = "&b Page &p of &P";
  store.write(setup);
  return setup;
}

Sheet sheetOf(Printers& printers) {
  const std::string printer = printers.current();
  const auto kept = printer.empty() ? std::nullopt : printers.settings(printer);
  const PageSettings settings = kept.value_or(PageSettings{});
  const Paper* paper = paperByNumber(settings.PaperSize);
  if (paper == nullptr) paper = paperByNumber(PageSettings{}.PaperSize);
  const double width = twips(paper->width);
  const double height = twips(paper->height);
  if (settings.Orientation == 2) return {height, width, true};
  return {width, height, false};
}

PageMeasure measurePage(const MeasureRules& rules, const PageSetup& setup, const Sheet& sheet,
                        float characterWidth, bool wantsLandscape) {
  const std::size_t size = setup.textSize;
  const bool known = size < kTextSizes;
  const bool turned = wantsLandscape && !sheet.landscape;
  const double length = turned ? sheet.width : sheet.height;
  const double first = turned ? setup.marginLeft : setup.marginTop;
  const double last = turned ? setup.marginRight : setup.marginBottom;
  const double height = length - first * kTwipsPerInch - (last + rules.keptBack) * kTwipsPerInch;
  const double width = characterWidth > 0 ? double{characterWidth} : kUsualCharacterWidth;
  return {.rowHeight = known ? rules.rowHeights[size] : std::int16_t{0},
          .characterWidth = width + (known ? rules.widening[size] : 0),
          .pageHeight = static_cast<float>(height),
          .turned = turned};
}

}  // namespace paperway
