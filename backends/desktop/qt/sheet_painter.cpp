#include "backends/desktop/qt/sheet_painter.h"

#include <QFontMetricsF>
#include <QPainter>

#include "backends/desktop/qt/paper_font.h"

namespace paperway::qt {
namespace {

constexpr double kStrip = 0.5;       // inches
constexpr double kHolePitch = 0.5;   // the first is half of it below the perforation
constexpr double kHole = 0.078;      // its radius
constexpr double kBaseline = 0.11;   // below the top of a usual character
constexpr double kDot = 1.0 / 72;    // that a pin leaves
constexpr double kMark = 0.06;       // the width of a mark at the edge
constexpr double kUnderline = 0.02;  // below the base line
constexpr double kUsualCpi = 10;
const QColor kPaper(252, 252, 249);
const QColor kPerforation(190, 190, 184);
const QColor kHoleInk(214, 214, 208);
const QColor kCut(206, 32, 41);
const QColor kEnd(30, 96, 190);

double dots(double inches) {
  return inches * SheetPainter::kDotsPerInch;
}

QColor inkOf(std::uint32_t color) {
  return {static_cast<int>(color & 0xFF), static_cast<int>(color >> 8 & 0xFF),
          static_cast<int>(color >> 16 & 0xFF)};
}

}  // namespace

SheetPainter::SheetPainter() : font_(paperFont()) {
  constexpr int kReference = 1000;  // pixels
  font_.setPixelSize(kReference);
  const double advance = QFontMetricsF(font_).horizontalAdvance(QLatin1Char('0'));
  font_.setPixelSize(qRound(dots(1 / kUsualCpi) * kReference / advance));
}

void SheetPainter::paint(QPainter& painter, const Sheet& sheet, double unitsPerInch) {
  painter.save();
  painter.scale(unitsPerInch / kDotsPerInch, unitsPerInch / kDotsPerInch);
  painter.setClipRect(QRectF(0, 0, dots(sheet.width), dots(sheet.height)));
  paintPaper(painter, sheet);
  for (const SheetImage& image : sheet.images) paintImage(painter, image);
  for (const SheetText& text : sheet.texts) paintText(painter, text);
  paintMarks(painter, sheet);
  painter.restore();
}

void SheetPainter::paintPaper(QPainter& painter, const Sheet& sheet) {
  const QRectF paper(0, 0, dots(sheet.width), dots(sheet.height));
  painter.fillRect(paper, kPaper);
  painter.setBrush(kHoleInk);
  painter.setPen(Qt::NoPen);
  for (const double x : {kStrip / 2, sheet.width - kStrip / 2}) {
    for (double y = kHolePitch / 2; y < sheet.height; y += kHolePitch) {
      painter.drawEllipse(QPointF(dots(x), dots(y)), dots(kHole), dots(kHole));
    }
  }
  QPen perforation(kPerforation, dots(0.01), Qt::DashLine);
  painter.setPen(perforation);
  for (const double x : {kStrip, sheet.width - kStrip}) {
    painter.drawLine(QPointF(dots(x), 0), QPointF(dots(x), paper.height()));
  }
  painter.drawLine(paper.topLeft(), paper.topRight());
  painter.drawLine(paper.bottomLeft(), paper.bottomRight());
}

/// Printers of pins make characters of one height, however wide.
void SheetPainter::paintText(QPainter& painter, const SheetText& text) {
  painter.save();
  painter.translate(dots(text.left), dots(text.top + kBaseline * text.height));
  painter.scale(kUsualCpi / text.cpi, text.height);
  painter.setPen(inkOf(text.color));
  font_.setBold(text.bold);
  font_.setItalic(text.italic);
  painter.setFont(font_);
  const QString letters = QString::fromStdString(text.text);
  painter.drawText(QPointF(0, 0), letters);
  if (text.underline) {
    const double width = dots(static_cast<double>(letters.size()) / kUsualCpi);
    painter.fillRect(QRectF(0, dots(kUnderline), width, dots(kUnderline / 2)), inkOf(text.color));
  }
  painter.restore();
}

void SheetPainter::paintImage(QPainter& painter, const SheetImage& image) {
  painter.setBrush(inkOf(image.color));
  painter.setPen(Qt::NoPen);
  const double radius = dots(kDot) / 2;
  for (std::size_t i = 0; i < image.dots.size(); ++i) {
    if (!image.dots[i]) continue;
    const double x = image.left + static_cast<double>(i / image.rows) / image.columnsPerInch;
    const double y = image.top + static_cast<double>(i % image.rows) / image.rowsPerInch;
    painter.drawEllipse(QPointF(dots(x) + radius, dots(y) + radius), radius, radius);
  }
}

void SheetPainter::paintMarks(QPainter& painter, const Sheet& sheet) {
  for (const double top : sheet.cuts) {
    painter.fillRect(QRectF(dots(sheet.printableRight), dots(top), dots(kMark), dots(1.0 / 6)),
                     kCut);
  }
  if (!sheet.end) return;
  painter.setPen(QPen(kEnd, dots(0.012), Qt::DashDotLine));
  const double y = dots(*sheet.end);
  painter.drawLine(QPointF(0, y), QPointF(dots(sheet.width), y));
}

}  // namespace paperway::qt
