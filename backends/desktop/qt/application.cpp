#include "backends/desktop/qt/application.h"

#include <QPainter>
#include <QPalette>
#include <QProxyStyle>
#include <QStyleOption>
#include <clocale>

#include "backends/desktop/qt/convert.h"

namespace paperway::qt {
namespace {

/// The desktop's style, with edges around boxes that a dark palette would let sink into the
/// surface.
class EdgedStyle : public QProxyStyle {
 public:
  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override {
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    if (element == PE_FrameLineEdit || element == PE_IndicatorCheckBox) {
      edge(*option, *painter, 2);
    } else if (element == PE_IndicatorRadioButton) {
      edge(*option, *painter, option->rect.width() / 2.0);
    }
  }

  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                          QPainter* painter, const QWidget* widget) const override {
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    if (control == CC_ComboBox) edge(*option, *painter, 2);
  }

 private:
  static void edge(const QStyleOption& option, QPainter& painter, double radius) {
    const QPalette& palette = option.palette;
    const QColor surface = palette.color(QPalette::Window);
    const bool marked = (option.state & State_HasFocus) != 0;
    if (surface.lightness() > 127 || marked) return;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(blend(palette.color(QPalette::WindowText), surface, 0.4));
    painter.drawRoundedRect(QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
    painter.restore();
  }
};

}  // namespace

std::unique_ptr<QApplication> makeApplication(int& argc, char** argv) {
  // For a browser window, whose engine may be loaded later.
  QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
  auto application = std::make_unique<QApplication>(argc, argv);
  keepNumberFormat();
  QApplication::setQuitOnLastWindowClosed(false);
  auto* const style = new EdgedStyle;
  style->setParent(application.get());
  QApplication::setStyle(style);
  return application;
}

void keepNumberFormat() {
  std::setlocale(LC_NUMERIC, "C");
}

void useDarkColors() {
  QPalette palette;
  const QColor window(51, 53, 57);
  const QColor base(30, 31, 34);
  const QColor bright(223, 225, 229);
  const QColor faint(128, 131, 137);
  palette.setColor(QPalette::Window, window);
  palette.setColor(QPalette::Base, base);
  palette.setColor(QPalette::AlternateBase, window);
  palette.setColor(QPalette::ToolTipBase, window);
  palette.setColor(QPalette::Button, QColor(68, 71, 76));
  palette.setColor(QPalette::Light, QColor(90, 94, 99));
  palette.setColor(QPalette::Midlight, QColor(78, 81, 86));
  palette.setColor(QPalette::Mid, QColor(40, 42, 45));
  palette.setColor(QPalette::Dark, QColor(26, 27, 29));
  palette.setColor(QPalette::Shadow, Qt::black);
  palette.setColor(QPalette::Highlight, QColor(61, 120, 195));
  palette.setColor(QPalette::HighlightedText, Qt::white);
  palette.setColor(QPalette::Link, QColor(107, 170, 245));
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText,
                          QPalette::ToolTipText, QPalette::BrightText}) {
    palette.setColor(role, bright);
    palette.setColor(QPalette::Disabled, role, faint);
  }
  palette.setColor(QPalette::PlaceholderText, faint);
  QApplication::setPalette(palette);
}

}  // namespace paperway::qt
