#include "backends/desktop/qt/clipboard.h"

#include <QClipboard>
#include <QGuiApplication>

#include "backends/desktop/qt/convert.h"

namespace paperway::qt {

std::string Clipboard::text() {
  return utf8(QGuiApplication::clipboard()->text());
}

void Clipboard::setText(std::string_view text) {
  QGuiApplication::clipboard()->setText(qt::text(text));
}

}  // namespace paperway::qt
