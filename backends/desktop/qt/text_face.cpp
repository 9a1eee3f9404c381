#include "backends/desktop/qt/text_face.h"

#include <QFont>
#include <QList>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "util/code_page.h"

namespace paperway::qt {
namespace {

QFont reportFont(const QString& family, double points, bool bold) {
  QFont font(family);
  font.setStyleHint(QFont::TypeWriter);
  font.setPointSizeF(std::max(points, 1.0));
  font.setBold(bold);
  // Cells have fractions of a pixel: letters must be drawn where they stand, not beside it.
  font.setHintingPreference(QFont::PreferVerticalHinting);
  return font;
}

}  // namespace

TextFace::TextFace(const QString& family, double points, bool bold)
    : font_(reportFont(family, points, bold)), raw_(QRawFont::fromFont(font_)) {
  for (int code = 0; code < 256; ++code) {
    const char32_t character = CodePage::windows1252().decode(static_cast<char>(code));
    const QList<quint32> glyphs = raw_.glyphIndexesForString(QString::fromUcs4(&character, 1));
    glyphs_[static_cast<std::size_t>(code)] = glyphs.isEmpty() ? 0 : glyphs[0];
  }
  const QList<QPointF> advances = raw_.advancesForGlyphIndexes({glyphs_['0']});
  cell_ = advances.isEmpty() ? raw_.pixelSize() * 0.6 : advances[0].x();
  ascent_ = std::ceil(raw_.ascent());
  lineHeight_ = static_cast<int>(ascent_ + std::ceil(raw_.descent()));
}

void TextFace::draw(QPainter& painter, double x, double baseline, std::string_view bytes,
                    const QColor& color) const {
  painter.setPen(color);
  QList<quint32> indexes;
  QList<QPointF> places;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    if (bytes[i] == ' ') continue;
    const quint32 glyph = glyphs_[static_cast<unsigned char>(bytes[i])];
    const QPointF place(x + static_cast<double>(i) * cell_, baseline);
    if (glyph != 0) {
      indexes << glyph;
      places << place;
    } else {
      const char32_t character = CodePage::windows1252().decode(bytes[i]);
      painter.setFont(font_);
      painter.drawText(place, QString::fromUcs4(&character, 1));
    }
  }
  if (indexes.isEmpty()) return;
  QGlyphRun run;
  run.setRawFont(raw_);
  run.setGlyphIndexes(indexes);
  run.setPositions(places);
  painter.drawGlyphRun({}, run);
}

void TextFace::drawUnderline(QPainter& painter, double x, double baseline, double width,
                             const QColor& color) const {
  const double thickness = std::max(1.0, raw_.lineThickness());
  painter.fillRect(QRectF(x, baseline + std::max(1.0, raw_.underlinePosition()), width, thickness),
                   color);
}

const TextFace& TextFaces::face(const QString& family, double points, bool bold) {
  auto& face = faces_[{family, points, bold}];
  if (face == nullptr) face = std::make_unique<TextFace>(family, points, bold);
  return *face;
}

}  // namespace paperway::qt
