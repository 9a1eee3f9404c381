#pragma once

#include "backends/desktop/qt/control_view.h"

/// The makers of makeView, by what the kinds have in common.
namespace paperway::qt {

std::unique_ptr<ControlView> makeButtonView(FormWindow& window, Control& control, QWidget* parent);
std::unique_ptr<ControlView> makeBoxView(FormWindow& window, Control& control, QWidget* parent);
std::unique_ptr<ControlView> makeLabelView(FormWindow& window, Control& control, QWidget* parent);
std::unique_ptr<ControlView> makeFrameView(FormWindow& window, Control& control, QWidget* parent);
std::unique_ptr<ControlView> makeReportView(FormWindow& window, Control& control, QWidget* parent);
std::unique_ptr<ControlView> makeBrowserView(FormWindow& window, Control& control, QWidget* parent);
std::unique_ptr<ControlView> makeSheetView(FormWindow& window, Control& control, QWidget* parent);

}  // namespace paperway::qt
