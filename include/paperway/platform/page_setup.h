#pragma once

#include <cstdint>
#include <string>

#include "paperway/export.h"

namespace paperway {

/// How a user's pages of HTML are printed. Paper and orientation are the printer's
/// (platform/printers.h).
struct PageSetup {
  // Inches.
  double marginTop = 0.75;
  double marginBottom = 0.75;
  double marginLeft = 0.75;
  double marginRight = 0.75;

  std::uint8_t textSize = 2;  // 0 smallest, 1 smaller, 2 medium, 3 larger, 4 largest

  // At the top and the bottom of every page (UTF-8): "&p" is the page's number, "&P" how many there
  // are, "&w" the document, "&u" its address, "&d" and "&D" the date, "&t" and "&T" the time, "&&"
  // an "&"; "&b" moves what follows to the right, two of them to the middle and to the right.
  std::string header;
  std::string footer = "&b Page &p of &P";

  bool operator==(const PageSetup&) const = default;
};

/// Where the user's page set-up is kept. It outlasts the program.
class PAPERWAY_API PageSetupStore {
 public:
  virtual ~PageSetupStore() = default;

  /// What was written last, and the defaults above for what never was. A set-up that cannot be read
  /// raises an AutomationError that names the entry and the reason.
  virtual PageSetup read() = 0;

  /// A set-up that cannot be kept raises an AutomationError with the reason.
  virtual void write(const PageSetup& setup) = 0;
};

}  // namespace paperway
