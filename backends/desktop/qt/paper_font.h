#pragma once

#include <QFont>

namespace paperway::qt {

/// Of text on paper: each character as wide as every other, at any size.
inline QFont paperFont() {
  QFont font(QStringLiteral("Courier New"));
  font.setStyleHint(QFont::TypeWriter);
  font.setFixedPitch(true);
  font.setHintingPreference(QFont::PreferNoHinting);
  font.setKerning(false);
  return font;
}

}  // namespace paperway::qt
