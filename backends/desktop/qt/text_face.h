#pragma once

#include <QColor>
#include <QGlyphRun>
#include <QRawFont>
#include <QString>
#include <array>
#include <map>
#include <memory>
#include <string_view>
#include <tuple>

class QPainter;

namespace paperway::qt {

/// A font of one size as report text uses it: each byte has a glyph and takes one cell, so that
/// columns stand under one another whatever the font's own widths are.
class TextFace {
 public:
  TextFace(const QString& family, double points, bool bold);

  double cell() const { return cell_; }
  double ascent() const { return ascent_; }
  int lineHeight() const { return lineHeight_; }

  /// Draws bytes of windows-1252 in cells from `x` on.
  void draw(QPainter& painter, double x, double baseline, std::string_view bytes,
            const QColor& color) const;
  void drawUnderline(QPainter& painter, double x, double baseline, double width,
                     const QColor& color) const;

 private:
  QFont font_;
  QRawFont raw_;
  std::array<quint32, 256> glyphs_{};  // 0: not in this font
  double cell_;
  double ascent_;
  int lineHeight_;
};

/// The faces in use, each made once.
class TextFaces {
 public:
  const TextFace& face(const QString& family, double points, bool bold);

 private:
  std::map<std::tuple<QString, double, bool>, std::unique_ptr<TextFace>> faces_;
};

}  // namespace paperway::qt
