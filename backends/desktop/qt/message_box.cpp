#include "backends/desktop/qt/message_box.h"

#include <QApplication>
#include <QMessageBox>

#include "backends/desktop/qt/convert.h"

namespace paperway::qt {
namespace {

QMessageBox::Icon qtIcon(MessageBoxes::Icon icon) {
  switch (icon) {
    case MessageBoxes::Icon::critical:
      return QMessageBox::Critical;
    case MessageBoxes::Icon::information:
      return QMessageBox::Information;
    case MessageBoxes::Icon::none:
      break;
  }
  return QMessageBox::NoIcon;
}

}  // namespace

MessageBoxes::Answer MessageBoxes::show(std::string_view text, std::string_view title,
                                        Buttons buttons, Icon icon) {
  QMessageBox box(QApplication::activeWindow());
  box.setTextFormat(Qt::PlainText);
  box.setText(qt::text(text));
  // Qt puts the program's name in place of an empty title, but not of a blank.
  box.setWindowTitle(title.empty() ? QStringLiteral(" ") : qt::text(title));
  box.setIcon(qtIcon(icon));
  if (buttons == Buttons::ok) {
    box.setStandardButtons(QMessageBox::Ok);
    box.exec();
    return Answer::ok;
  }
  box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
  box.setEscapeButton(QMessageBox::No);
  return box.exec() == QMessageBox::Yes ? Answer::yes : Answer::no;
}

}  // namespace paperway::qt
