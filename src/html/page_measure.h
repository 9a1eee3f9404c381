#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "paperway/platform/page_setup.h"
#include "paperway/platform/printers.h"

namespace paperway {

/// The user's page set-up, in which the footer of the exports is left: the number of each page, and
/// how many there are.
PageSetup preparePageSetup(PageSetupStore& store);

/// The paper of the current printer as it lies in it, in twips; without a printer A4, upright.
struct Sheet {
  double width;
  double height;
  bool landscape;
};

Sheet sheetOf(Printers& printers);

inline constexpr std::size_t kTextSizes = 5;

/// What two exports measure differently.
struct MeasureRules {
  std::array<std::int16_t, kTextSizes> rowHeights;  // twips, by the text size
  std::array<double, kTextSizes> widening;          // of a character
  double keptBack;                                  // inches of each page
};

/// How much of the rows' table a printed page holds.
struct PageMeasure {
  std::int16_t rowHeight;  // twips; 0 for an unknown text size: no page ever ends
  double characterWidth;   // in the table's units of width
  float pageHeight;        // twips
  bool turned;             // landscape on the paper of an upright printer
};

/// `characterWidth` up to 0 stands for 6.
PageMeasure measurePage(const MeasureRules& rules, const PageSetup& setup, const Sheet& sheet,
                        float characterWidth, bool wantsLandscape);

}  // namespace paperway
