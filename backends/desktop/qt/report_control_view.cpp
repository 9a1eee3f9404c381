#include <QKeyEvent>

#include "backends/desktop/qt/form_window.h"
#include "backends/desktop/qt/report_view.h"
#include "backends/desktop/qt/views.h"

namespace paperway::qt {
namespace {

class ReportControlView : public ControlView {
 public:
  ReportControlView(FormWindow& itsWindow, RichTextBox& box, QWidget* parent)
      : ControlView(
            itsWindow, box,
            new ReportView(
                box, [&itsWindow](const auto& handler) { itsWindow.act(handler); }, parent)),
        report_(static_cast<ReportView&>(widget)) {
    window.watch(*report_.viewport(), *this);
  }

  bool takeKey(QKeyEvent& event, char32_t before, char32_t after) override {
    return after == before && report_.takeKey(event);
  }
  std::optional<QPoint> menuPoint() override { return report_.caretPoint(); }

 protected:
  QWidget& pointed() override { return *report_.viewport(); }
  Qt::CursorShape usualPointer() const override { return Qt::IBeamCursor; }
  void syncContent() override { report_.sync(); }
  void syncColors() override { report_.refresh(); }

 private:
  ReportView& report_;
};

}  // namespace

std::unique_ptr<ControlView> makeReportView(FormWindow& window, Control& control, QWidget* parent) {
  return std::make_unique<ReportControlView>(window, static_cast<RichTextBox&>(control), parent);
}

}  // namespace paperway::qt
