#include "printing/set_orientation.h"

#include "paperway/platform/printers.h"

namespace paperway {
namespace {

void keep(Printers& printers, const std::string& name, const PageSettings& wanted) {
  try {
    printers.keep(name, wanted);
  } catch (const AutomationError&) {
    // A printer that refuses is no failure.
  }
}

}  // namespace

void Set_Orientation(std::string_view PL, std::int16_t Page_Sz, Printers& printers) {
  const std::string name = printers.current();
  if (name.empty()) return;
  const auto kept = printers.settings(name);
  PageSettings wanted = kept.value_or(PageSettings{});
  const PageSettings inForce = wanted;
  wanted.Orientation = PL == "L" ? 2 : 1;
  if (Page_Sz > 0) wanted.PaperSize = Page_Sz;
  if (wanted.Orientation == inForce.Orientation && (Page_Sz == 0 || Page_Sz == inForce.PaperSize)) {
    return;
  }
  if (!kept) throw NoPrinterSettings();
  keep(printers, name, wanted);
  printers.setCurrent(name);
}

}  // namespace paperway
