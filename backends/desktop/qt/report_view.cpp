#include "backends/desktop/qt/report_view.h"

#include <QAccessible>
#include <QClipboard>
#include <QDateTime>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QScrollBar>
#include <QStyleHints>
#include <QToolTip>
#include <QWheelEvent>
#include <algorithm>

#include "backends/desktop/qt/convert.h"
#include "backends/desktop/qt/report_accessible.h"

namespace paperway::qt {
namespace {

constexpr int kBarRange = 1 << 30;
constexpr std::size_t kLinesKept = 1000;
constexpr std::uint64_t kLinesMeasured = 500;
constexpr int kDragInterval = 30;  // milliseconds
constexpr int kWheelLines = 3;

}  // namespace

ReportView::ReportView(RichTextBox& box, Act act, QWidget* parent)
    : QAbstractScrollArea(parent), box_(box), act_(std::move(act)) {
  setHorizontalScrollBarPolicy(box.HorizontalBar ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff);
  setVerticalScrollBarPolicy(box.VerticalBar ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff);
  setFrameShape(QFrame::StyledPanel);
  viewport()->setCursor(Qt::IBeamCursor);
  viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
  setFocusPolicy(Qt::StrongFocus);
  makeReportsReadable();
}

// Following the text

void ReportView::sync() {
  const Seen now{box_.textRevision(), box_.formatRevision(), box_.Font,   box_.BackColor,
                 box_.caret(),        box_.anchor(),         box_.Locked, box_.Guides};
  if (now == seen_) return;
  const Seen before = seen_;
  seen_ = now;
  const bool otherText = now.text != before.text || now.font != before.font;
  const bool moved = now.caret != before.caret || now.anchor != before.anchor;
  if (otherText || now.formats != before.formats) {
    lines_.clear();
    measure();
  }
  setAttribute(Qt::WA_InputMethodEnabled, !box_.Locked);
  // A page that is shown anew begins at its top, but stays where it was sideways: columns are
  // compared from page to page.
  if (otherText || moved) showCaret(!otherText || box_.caret() > 1);
  restartBlinking();
  viewport()->update();
  if (QAccessible::isActive() && (moved || otherText)) {
    QAccessibleTextCursorEvent caretMoved(this, static_cast<int>(box_.caret()));
    QAccessible::updateAccessibility(&caretMoved);
  }
}

void ReportView::refresh() {
  lines_.clear();
  viewport()->update();
}

void ReportView::measure() {
  const QString family = text(box_.Font.Name);
  heights_.measure(box_,
                   [&](double points) { return faces_.face(family, points, false).lineHeight(); });
  measureWidth();
  updateBars();
}

/// The widest line: of a page exactly, of a long text as far as it has been seen.
void ReportView::measureWidth() {
  widest_ = 0;
  const std::uint64_t lines = std::min(heights_.count(), kLinesMeasured);
  for (std::uint64_t number = 0; number < lines; ++number) {
    widest_ = std::max(widest_, line(number).width);
  }
}

const LineLayout& ReportView::line(std::uint64_t number) {
  const auto known = lines_.find(number);
  if (known != lines_.end()) return known->second;
  if (lines_.size() >= kLinesKept) lines_.clear();
  return lines_.emplace(number, layOut(box_, number, faces_)).first->second;
}

// Scrolling

std::uint64_t ReportView::linesPerPage() const {
  const int height = std::max(1, heights_.height(firstLine()));
  return static_cast<std::uint64_t>(std::max(1, viewport()->height() / height - 1));
}

void ReportView::updateBars() {
  const int height = viewport()->height();
  const std::int64_t beyond = std::max<std::int64_t>(0, textHeight() - height);
  barUnit_ = static_cast<int>(beyond / kBarRange) + 1;
  const QSignalBlocker quiet(verticalScrollBar());
  verticalScrollBar()->setRange(0, static_cast<int>(beyond / barUnit_));
  verticalScrollBar()->setPageStep(std::max(1, height / barUnit_));
  verticalScrollBar()->setSingleStep(std::max(1, kWheelLines * heights_.height(0) / barUnit_));
  setTop(top_);

  const int width = kMarginLeft * 2 + static_cast<int>(widest_);
  horizontalScrollBar()->setRange(0, std::max(0, width - viewport()->width()));
  horizontalScrollBar()->setPageStep(viewport()->width());
  horizontalScrollBar()->setSingleStep(20);
}

/// The form feed that closes a page may stand on a line of its own, which takes no room.
std::int64_t ReportView::textHeight() const {
  std::int64_t height = heights_.total();
  const std::size_t size = box_.buffer().size();
  if (heights_.count() > 1 && size > 1 && box_.buffer()[size - 1] == '\f' &&
      box_.buffer()[size - 2] == '\n') {
    height = heights_.top(heights_.count() - 1);
  }
  return height + 2 * kMarginTop;
}

void ReportView::setTop(std::int64_t top) {
  const std::int64_t last = std::max<std::int64_t>(0, textHeight() - viewport()->height());
  top_ = std::clamp<std::int64_t>(top, 0, last);
  const QSignalBlocker quiet(verticalScrollBar());
  verticalScrollBar()->setValue(static_cast<int>(top_ / barUnit_));
  viewport()->update();
}

void ReportView::scrollContentsBy(int /*dx*/, int dy) {
  if (dy != 0) setTop(static_cast<std::int64_t>(verticalScrollBar()->value()) * barUnit_);
  viewport()->update();
}

void ReportView::resizeEvent(QResizeEvent* event) {
  QAbstractScrollArea::resizeEvent(event);
  updateBars();
}

void ReportView::wheelEvent(QWheelEvent* event) {
  if ((event->modifiers() & Qt::ControlModifier) != 0) {
    event->ignore();  // zoom is the form's
    return;
  }
  QPoint pixels = event->pixelDelta();
  if (pixels.isNull()) {
    const int line = std::max(1, heights_.height(firstLine()));
    pixels = event->angleDelta() * kWheelLines * line / 120;
  }
  if ((event->modifiers() & Qt::ShiftModifier) != 0 && pixels.x() == 0)
    pixels = pixels.transposed();
  horizontalScrollBar()->setValue(horizontalScrollBar()->value() - pixels.x());
  if (pixels.y() != 0) setTop(top_ - pixels.y());
  event->accept();
}

void ReportView::showCaret(bool sideways) {
  const std::uint64_t number = box_.lineFromChar(box_.caret());
  const std::int64_t y = heights_.top(number) + kMarginTop;
  const int height = heights_.height(number);
  const int view = viewport()->height();
  // A caret that comes from afar gets some lines of its surroundings into sight too.
  const auto room = [height](std::int64_t outside) { return outside > height ? 3 * height : 0; };
  if (const std::int64_t above = top_ - (y - kMarginTop); above > 0) {
    setTop(y - kMarginTop - room(above));
  } else if (const std::int64_t below = y + height - (top_ + view); below > 0) {
    setTop(y + height - view + room(below));
  }
  if (!sideways) return;
  const LineLayout& layout = line(number);
  if (layout.width > widest_) {
    widest_ = layout.width;
    updateBars();
  }
  const int x = kMarginLeft + static_cast<int>(layout.xOf(box_.caret()));
  QScrollBar* bar = horizontalScrollBar();
  if (x - kMarginLeft < bar->value()) {
    bar->setValue(x - viewport()->width() / 3);
  } else if (x + kMarginLeft > bar->value() + viewport()->width()) {
    bar->setValue(x - viewport()->width() * 2 / 3);
  }
}

// Places

QPoint ReportView::pointOf(std::size_t offset) {
  const std::uint64_t number = box_.lineFromChar(offset);
  const int x =
      kMarginLeft + static_cast<int>(line(number).xOf(offset)) - horizontalScrollBar()->value();
  return {x, static_cast<int>(heights_.top(number) + kMarginTop - top_)};
}

std::size_t ReportView::offsetAt(const QPoint& point) {
  const std::uint64_t number = heights_.lineAt(point.y() + top_ - kMarginTop);
  return line(number).offsetAt(point.x() + horizontalScrollBar()->value() - kMarginLeft);
}

void ReportView::select(std::size_t anchor, std::size_t caret) {
  act([&] {
    box_.moveCaret(anchor);
    box_.moveCaret(caret, true);
  });
}

QPoint ReportView::caretPoint() {
  const QPoint below(0, heights_.height(box_.lineFromChar(box_.caret())));
  const QPoint place = pointOf(box_.caret()) + below;
  const QRect inSight = viewport()->rect();
  return viewport()->mapTo(this, QPoint(std::clamp(place.x(), 0, inSight.right()),
                                        std::clamp(place.y(), 0, inSight.bottom())));
}

// Keyboard

void ReportView::act(const std::function<void()>& handler) {
  act_(handler);
}

bool ReportView::takeKey(QKeyEvent& event) {
  if (clipboardKey(event) || pageKey(event)) return true;
  const int code = keyCode(event.key(), event.modifiers());
  bool taken = false;
  act([&] { taken = box_.handleKey(code, shiftMask(event.modifiers()), linesPerPage()); });
  if (taken) {
    showCaret(true);  // also where it did not move: the view may have been scrolled away
    return true;
  }
  if (isCommand(event)) return false;
  const bool enter = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
  const QString typed = enter ? QStringLiteral("\n") : event.text();
  const bool character = enter || (!typed.isEmpty() && typed[0].isPrint());
  if (character) act([&] { taken = box_.typeText(utf8(typed)); });
  return taken;
}

/// Page Up and Down move the view as far as the caret. A reader for whom there is nothing more to
/// scroll comes to another page.
bool ReportView::pageKey(const QKeyEvent& event) {
  const bool down = event.key() == Qt::Key_PageDown;
  if (!down && event.key() != Qt::Key_PageUp) return false;
  const int shift = shiftMask(event.modifiers());
  const QScrollBar* bar = verticalScrollBar();
  const bool atEnd = bar->value() == (down ? bar->maximum() : bar->minimum());
  if (atEnd && shift == 0 && box_.Locked && box_.onTurnPage) {
    act([&] { box_.onTurnPage(down); });
    return true;
  }
  const auto lines = static_cast<std::int64_t>(linesPerPage());
  const std::int64_t step = lines * heights_.height(firstLine());
  const std::int64_t target = top_ + (down ? step : -step);
  act([&] { box_.handleKey(down ? keyPageDown : keyPageUp, shift, linesPerPage()); });
  setTop(target);
  showCaret(false);
  return true;
}

bool ReportView::clipboardKey(const QKeyEvent& event) {
  QClipboard* clipboard = QGuiApplication::clipboard();
  const bool cut = event.matches(QKeySequence::Cut);
  if (cut || event.matches(QKeySequence::Copy)) {
    const std::string copied = box_.copyText();
    if (!copied.empty()) clipboard->setText(text(copied));
    if (cut && box_.hasSelection()) act([this] { box_.eraseForward(); });
    return true;
  }
  if (!event.matches(QKeySequence::Paste)) return false;
  act([&] { box_.paste(utf8(clipboard->text())); });
  return true;
}

void ReportView::inputMethodEvent(QInputMethodEvent* event) {
  const QString typed = event->commitString();
  act([&] {
    if (const int replaced = event->replacementLength(); replaced > 0 && !box_.Locked) {
      const auto begin = static_cast<std::int64_t>(box_.caret()) + event->replacementStart();
      box_.moveCaret(static_cast<std::size_t>(std::max<std::int64_t>(begin, 0)));
      box_.moveCaret(box_.caret() + static_cast<std::size_t>(replaced), true);
    }
    if (!typed.isEmpty() || event->replacementLength() > 0) box_.typeText(utf8(typed));
  });
  event->accept();
}

QVariant ReportView::inputMethodQuery(Qt::InputMethodQuery query) const {
  if (query == Qt::ImEnabled) return !box_.Locked;
  if (query != Qt::ImCursorRectangle) return QAbstractScrollArea::inputMethodQuery(query);
  return QRect(const_cast<ReportView*>(this)->pointOf(box_.caret()), QSize(1, heights_.height(0)));
}

// Mouse

void ReportView::mousePressEvent(QMouseEvent* event) {
  event->accept();
  const bool zooms = (event->modifiers() & Qt::ControlModifier) != 0;
  if (event->button() != Qt::LeftButton || zooms) return;
  const std::size_t offset = offsetAt(event->pos());
  const QStyleHints& hints = *QGuiApplication::styleHints();
  const bool third =
      QDateTime::currentMSecsSinceEpoch() - lastDoubleClick_ < hints.mouseDoubleClickInterval() &&
      (event->pos() - doubleClickedAt_).manhattanLength() < hints.startDragDistance();
  dragging_ = !third;
  act([&] {
    if (third) {
      box_.selectLine(offset);
    } else {
      box_.moveCaret(offset, (event->modifiers() & Qt::ShiftModifier) != 0);
    }
  });
}

void ReportView::mouseDoubleClickEvent(QMouseEvent* event) {
  event->accept();
  if (event->button() != Qt::LeftButton) return;
  lastDoubleClick_ = QDateTime::currentMSecsSinceEpoch();
  doubleClickedAt_ = event->pos();
  act([&] { box_.selectWord(offsetAt(event->pos())); });
}

void ReportView::mouseMoveEvent(QMouseEvent* event) {
  event->accept();
  if (!dragging_ || (event->buttons() & Qt::LeftButton) == 0) return;
  dragPoint_ = event->pos();
  dragTo(dragPoint_);
  if (viewport()->rect().contains(dragPoint_)) {
    drag_.stop();
  } else if (!drag_.isActive()) {
    drag_.start(kDragInterval, this);
  }
}

void ReportView::dragTo(const QPoint& point) {
  act([&] { box_.moveCaret(offsetAt(point), true); });
}

void ReportView::mouseReleaseEvent(QMouseEvent* event) {
  event->accept();
  dragging_ = false;
  drag_.stop();
}

void ReportView::timerEvent(QTimerEvent* event) {
  if (event->timerId() == blink_.timerId()) {
    caretOn_ = !caretOn_;
    viewport()->update();
  } else if (event->timerId() == drag_.timerId()) {
    dragTo(dragPoint_);
  } else {
    QAbstractScrollArea::timerEvent(event);
  }
}

bool ReportView::viewportEvent(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QAbstractScrollArea::viewportEvent(event);
  const auto& help = static_cast<QHelpEvent&>(*event);
  const std::uint64_t number = heights_.lineAt(help.pos().y() + top_ - kMarginTop);
  const auto under =
      line(number).characterAt(help.pos().x() + horizontalScrollBar()->value() - kMarginLeft);
  const unsigned char byte =
      under ? static_cast<unsigned char>(box_.buffer()[*under]) : static_cast<unsigned char>(' ');
  if (byte < ' ' || byte == 127) {
    QToolTip::showText(help.globalPos(), controlName(static_cast<char>(byte)), viewport());
  } else {
    QToolTip::hideText();
  }
  return true;
}

// The caret's blinking

void ReportView::restartBlinking() {
  caretOn_ = true;
  const int flash = QGuiApplication::styleHints()->cursorFlashTime();
  if (hasFocus() && flash > 1) {
    blink_.start(flash / 2, this);
  } else {
    blink_.stop();
  }
}

void ReportView::focusInEvent(QFocusEvent* event) {
  QAbstractScrollArea::focusInEvent(event);
  restartBlinking();
  viewport()->update();
}

void ReportView::focusOutEvent(QFocusEvent* event) {
  QAbstractScrollArea::focusOutEvent(event);
  restartBlinking();
  viewport()->update();
}

}  // namespace paperway::qt
