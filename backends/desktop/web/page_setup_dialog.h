#pragma once

#include <string>

#include "paperway/platform/page_setup.h"

class QWidget;

namespace paperway::web {

struct PageChoices {
  PageSetup setup;
  bool landscape = false;
};

/// Lets the user change the page set-up; false when that was cancelled. `paper` tells the paper
/// ("A4, from Laser"); a sheet fed for portrait is that many inches wide and high.
bool askPageSetup(QWidget* parent, PageChoices& choices, const std::string& paper, double width,
                  double height);

}  // namespace paperway::web
