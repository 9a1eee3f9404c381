#pragma once

#include <functional>

#include "session/settings_store.h"

namespace paperway {

class CommonDialog;
class FrmReportControls;

/// The colours of the report window in Frame6, and the user's choice of them, which is kept.
class ColorPanel {
 public:
  ColorPanel(FrmReportControls& window, CommonDialog& dialog,
             std::function<ReportViewSettings()> settings)
      : window_(window), dialog_(dialog), settings_(std::move(settings)) {}

  /// Shows what is kept.
  void read();
  /// Asks the user for the colour of a box of TXt, and keeps them all.
  void choose(int index);

 private:
  void keep() const;

  FrmReportControls& window_;
  CommonDialog& dialog_;
  std::function<ReportViewSettings()> settings_;
};

}  // namespace paperway
