#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>

#include "backends/desktop/qt/convert.h"
#include "backends/desktop/qt/report_view.h"

namespace paperway::qt {
QColor ReportView::paper() const {
  return color(box_.BackColor, palette());
}

/// Without the focus the selection is kept but not shown, as in any line that is typed into.
bool ReportView::selectionShown() const {
  if (!box_.hasSelection()) return false;
  return hasFocus() || window()->focusWidget() == this;
}

void ReportView::paintEvent(QPaintEvent* event) {
  QPainter painter(viewport());
  painter.fillRect(event->rect(), paper());
  const std::int64_t first = event->rect().top() + top_ - kMarginTop;
  for (std::uint64_t number = heights_.lineAt(first); number < heights_.count(); ++number) {
    const auto y = static_cast<int>(heights_.top(number) + kMarginTop - top_);
    if (y > event->rect().bottom()) break;
    paintLine(painter, number, y);
  }
  paintCaret(painter);
  const double before = widest_;
  for (const auto& entry : lines_) widest_ = std::max(widest_, entry.second.width);
  if (widest_ > before) updateBars();
}

void ReportView::paintLine(QPainter& painter, std::uint64_t number, int y) {
  const LineLayout& layout = line(number);
  const double left = kMarginLeft - horizontalScrollBar()->value();
  const int height = heights_.height(number);
  if (selectionShown()) paintSelection(painter, layout, left, y, height);
  const QColor back = paper();
  for (const LinePiece& piece : layout.pieces) {
    const double x = left + piece.x;
    if (piece.cell <= 0 || x > viewport()->width() || x + piece.width() < 0) continue;
    paintPiece(painter, piece, x, y + layout.ascent, back);
  }
  paintGuides(painter, layout, number == firstLine(), left, y, height);
  if (layout.pageBreak) {
    painter.setPen(QPen(blend(readable(back, back), back), 1, Qt::DashLine));
    const int rule = layout.pieces.front().begin == *layout.pageBreak ? y : y + height - 1;
    painter.drawLine(0, rule, viewport()->width(), rule);
  }
}

/// Line by line: characters that are not drawn shift a line.
void ReportView::paintGuides(QPainter& painter, const LineLayout& layout, bool numbered,
                             double left, int y, int height) {
  if (box_.Guides.empty()) return;
  const double cell = layout.pieces.empty() || layout.pieces.back().cell <= 0
                          ? faces_.face(text(box_.Font.Name), box_.Font.Size, false).cell()
                          : layout.pieces.back().cell;
  const QColor ink = palette().color(QPalette::Highlight);
  for (std::size_t i = 0; i < box_.Guides.size(); ++i) {
    const auto column = static_cast<std::size_t>(std::max<std::int16_t>(box_.Guides[i], 0));
    const std::size_t inside = std::min(column, layout.end - layout.begin);
    const double x =
        left + layout.xOf(layout.begin + inside) + cell * static_cast<double>(column - inside);
    painter.fillRect(QRectF(x, y, 1, height), ink);
    if (!numbered) continue;
    const QString number = QString::number(i + 1);
    const QRectF box(x, y, painter.fontMetrics().horizontalAdvance(number) + 4, height);
    painter.fillRect(box, ink);
    painter.setPen(palette().color(QPalette::HighlightedText));
    painter.drawText(box, Qt::AlignCenter, number);
  }
}

void ReportView::paintSelection(QPainter& painter, const LineLayout& layout, double left, int y,
                                int height) {
  const auto [begin, end] = std::minmax({box_.caret(), box_.anchor()});
  if (end <= layout.begin || begin >= layout.next) return;
  const double from = layout.xOf(std::max(begin, layout.begin));
  double to = layout.xOf(std::min(end, layout.end));
  if (end > layout.end && layout.next > layout.end) {
    to =
        layout.width + faces_.face(text(box_.Font.Name), box_.Font.Size, box_.Font.Bold).cell() / 2;
  }
  painter.fillRect(QRectF(left + from, y, to - from, height), palette().color(QPalette::Highlight));
}

void ReportView::paintPiece(QPainter& painter, const LinePiece& piece, double x, double baseline,
                            const QColor& back) {
  const QColor ink = piece.color ? color(*piece.color, palette())
                                 : readable(color(box_.ForeColor, palette()), back);
  std::size_t begin = piece.end();
  std::size_t end = piece.end();
  if (selectionShown()) {
    const auto [from, to] = std::minmax({box_.caret(), box_.anchor()});
    begin = std::clamp(from, piece.begin, piece.end());
    end = std::clamp(to, begin, piece.end());
  }
  paintBytes(painter, piece, piece.begin, begin, x, baseline, ink);
  paintBytes(painter, piece, begin, end, x, baseline, palette().color(QPalette::HighlightedText));
  paintBytes(painter, piece, end, piece.end(), x, baseline, ink);
}

/// The part [begin, end) of a piece whose first character stands at `x`, as far as it is in sight.
void ReportView::paintBytes(QPainter& painter, const LinePiece& piece, std::size_t begin,
                            std::size_t end, double x, double baseline, const QColor& ink) {
  const auto cells = [&](double width) {
    return piece.begin + static_cast<std::size_t>(std::max(0.0, width / piece.cell));
  };
  begin = std::max(begin, cells(-x) - std::min<std::size_t>(cells(-x) - piece.begin, 1));
  end = std::min(end, cells(viewport()->width() - x) + 1);
  if (begin >= end) return;
  const double left = x + piece.cell * static_cast<double>(begin - piece.begin);
  const std::string_view bytes =
      std::string_view(piece.bytes).substr(begin - piece.begin, end - begin);
  if (piece.kind == LinePiece::Kind::symbol) {
    for (std::size_t i = 0; i < bytes.size(); ++i) {
      paintSymbol(painter, bytes[i], *piece.face, left + piece.cell * static_cast<double>(i),
                  baseline, ink);
    }
  } else if (piece.kind == LinePiece::Kind::text) {
    piece.face->draw(painter, left, baseline, bytes, ink);
  }
  if (piece.underline) {
    piece.face->drawUnderline(painter, left, baseline,
                              piece.cell * static_cast<double>(bytes.size()), ink);
  }
}

/// A control character: its letter in a filled box, which no text looks like.
void ReportView::paintSymbol(QPainter& painter, char byte, const TextFace& face, double x,
                             double baseline, const QColor& ink) {
  const QRectF box(x + 0.5, baseline - face.ascent() * 0.86, face.cell() - 1, face.ascent() * 1.06);
  painter.setRenderHint(QPainter::Antialiasing, true);
  painter.setPen(Qt::NoPen);
  painter.setBrush(blend(ink, paper(), 0.7));
  painter.drawRoundedRect(box, 2, 2);
  painter.setRenderHint(QPainter::Antialiasing, false);
  const char letter = controlLetter(byte);
  face.draw(painter, x, baseline, {&letter, 1}, readable(paper(), ink));
}

void ReportView::paintCaret(QPainter& painter) {
  if (!hasFocus() || !caretOn_) return;
  const std::uint64_t number = box_.lineFromChar(box_.caret());
  const QPoint place = pointOf(box_.caret());
  const int height = heights_.height(number);
  if (place.y() + height < 0 || place.y() > viewport()->height()) return;
  painter.fillRect(QRect(place, QSize(box_.Locked ? 1 : 2, height)),
                   readable(palette().color(QPalette::Text), paper()));
}

}  // namespace paperway::qt
