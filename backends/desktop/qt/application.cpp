#include "backends/desktop/qt/application.h"

#include <QPalette>
#include <clocale>

namespace paperway::qt {

std::unique_ptr<QApplication> makeApplication(int& argc, char** argv) {
  auto application = std::make_unique<QApplication>(argc, argv);
  keepNumberFormat();
  QApplication::setQuitOnLastWindowClosed(false);
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
