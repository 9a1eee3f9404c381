#pragma once

#include <QAbstractScrollArea>
#include <QBasicTimer>
#include <functional>
#include <unordered_map>

#include "backends/desktop/qt/line_heights.h"
#include "backends/desktop/qt/line_layout.h"
#include "backends/desktop/qt/text_face.h"
#include "controls/rich_text.h"

namespace paperway::qt {

/// Draws the lines of a rich text that are in sight, straight from its bytes, and turns keys and
/// mouse into moves of its caret and edits. The text may be of any length.
class ReportView : public QAbstractScrollArea {
 public:
  /// Runs an act of the user and calls sync() behind it.
  using Act = std::function<void(const std::function<void()>&)>;

  ReportView(RichTextBox& box, Act act, QWidget* parent);

  // Pixels of paper beside and above the text.
  static constexpr int kMarginLeft = 10;
  static constexpr int kMarginTop = 6;

  /// Follows what changed in the text, its formats, selection and look.
  void sync();
  /// Colours of the desktop changed.
  void refresh();

  /// A key that the form's handlers let through; false when it means nothing here.
  bool takeKey(QKeyEvent& event);
  /// The place below the caret, or the nearest one in sight, for a menu asked for by key.
  QPoint caretPoint();

  // For those who drive the view.
  const RichTextBox& box() const { return box_; }
  void select(std::size_t anchor, std::size_t caret);
  QPoint pointOf(std::size_t offset);
  std::size_t offsetAt(const QPoint& point);
  std::uint64_t firstLine() const { return heights_.lineAt(top_); }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void timerEvent(QTimerEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override;
  QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;
  bool viewportEvent(QEvent* event) override;

 private:
  struct Seen {
    std::uint64_t text = ~0ULL;
    std::uint64_t formats = ~0ULL;
    FontSpec font;
    Color backColor = 0;
    std::size_t caret = 0;
    std::size_t anchor = 0;
    bool locked = false;
    std::vector<std::int16_t> guides{};

    bool operator==(const Seen&) const = default;
  };

  const LineLayout& line(std::uint64_t number);
  void measure();
  void measureWidth();
  void updateBars();
  std::int64_t textHeight() const;
  void setTop(std::int64_t top);
  void showCaret(bool sideways);
  void act(const std::function<void()>& handler);
  bool pageKey(const QKeyEvent& event);
  bool clipboardKey(const QKeyEvent& event);
  std::uint64_t linesPerPage() const;
  void dragTo(const QPoint& point);
  void restartBlinking();

  void paintLine(QPainter& painter, std::uint64_t number, int y);
  void paintSelection(QPainter& painter, const LineLayout& layout, double left, int y, int height);
  void paintGuides(QPainter& painter, const LineLayout& layout, bool numbered, double left, int y,
                   int height);
  void paintPiece(QPainter& painter, const LinePiece& piece, double x, double baseline,
                  const QColor& back);
  void paintBytes(QPainter& painter, const LinePiece& piece, std::size_t begin, std::size_t end,
                  double x, double baseline, const QColor& ink);
  void paintSymbol(QPainter& painter, char byte, const TextFace& face, double x, double baseline,
                   const QColor& ink);
  void paintCaret(QPainter& painter);
  QColor paper() const;
  bool selectionShown() const;

  RichTextBox& box_;
  Act act_;
  TextFaces faces_;
  LineHeights heights_;
  std::unordered_map<std::uint64_t, LineLayout> lines_;  // those seen last
  Seen seen_;
  std::int64_t top_ = 0;  // pixels from the text's top to the view's
  int barUnit_ = 1;       // pixels that a step of the vertical bar stands for
  double widest_ = 0;
  QBasicTimer blink_;
  QBasicTimer drag_;  // runs while the mouse is held beside the text
  QPoint dragPoint_;
  bool dragging_ = false;
  bool caretOn_ = true;
  qint64 lastDoubleClick_ = 0;
  QPoint doubleClickedAt_;
};

}  // namespace paperway::qt
