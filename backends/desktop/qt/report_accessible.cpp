#include "backends/desktop/qt/report_accessible.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <algorithm>

#include "backends/desktop/qt/convert.h"
#include "backends/desktop/qt/report_view.h"
#include "util/code_page.h"

namespace paperway::qt {
namespace {

struct Stretch {
  std::size_t begin;
  std::size_t end;
};

/// The text of a view as screen readers ask for it. A byte of the report is a character, so that
/// their offsets are those of the text. Words and sentences come as whole lines: a text may be very
/// long, and its cells are words to nobody.
class ReportAccessible : public QAccessibleWidget, public QAccessibleTextInterface {
 public:
  explicit ReportAccessible(ReportView& view)
      : QAccessibleWidget(&view, QAccessible::EditableText), view_(view), box_(view.box()) {}

  void* interface_cast(QAccessible::InterfaceType type) override {
    if (type == QAccessible::TextInterface) return static_cast<QAccessibleTextInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
  }

  QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    state.multiLine = true;
    state.selectableText = true;
    state.readOnly = box_.Locked;
    state.editable = !box_.Locked;
    return state;
  }

  QString text(QAccessible::Text kind) const override { return QAccessibleWidget::text(kind); }

  int characterCount() const override { return static_cast<int>(box_.buffer().size()); }
  QString text(int begin, int end) const override { return text(Stretch{at(begin), at(end)}); }

  QString textAtOffset(int offset, QAccessible::TextBoundaryType boundary, int* begin,
                       int* end) const override {
    return told(around(at(offset), boundary), begin, end);
  }
  QString textBeforeOffset(int offset, QAccessible::TextBoundaryType boundary, int* begin,
                           int* end) const override {
    const std::size_t before = around(at(offset), boundary).begin;
    return told(before == 0 ? Stretch{0, 0} : around(before - 1, boundary), begin, end);
  }
  QString textAfterOffset(int offset, QAccessible::TextBoundaryType boundary, int* begin,
                          int* end) const override {
    return told(around(around(at(offset), boundary).end, boundary), begin, end);
  }

  int cursorPosition() const override { return static_cast<int>(box_.caret()); }
  void setCursorPosition(int position) override { view_.select(at(position), at(position)); }
  int selectionCount() const override { return box_.hasSelection() ? 1 : 0; }
  void selection(int, int* begin, int* end) const override {
    const auto [first, last] = std::minmax({box_.caret(), box_.anchor()});
    *begin = static_cast<int>(first);
    *end = static_cast<int>(last);
  }
  void addSelection(int begin, int end) override { view_.select(at(begin), at(end)); }
  void removeSelection(int) override { setCursorPosition(cursorPosition()); }
  void setSelection(int, int begin, int end) override { addSelection(begin, end); }

  QRect characterRect(int offset) const override {
    const QPoint place = view_.viewport()->mapToGlobal(view_.pointOf(at(offset)));
    const QPoint next = view_.viewport()->mapToGlobal(view_.pointOf(at(offset + 1)));
    return {place, QSize(std::max(1, next.x() - place.x()), view_.fontMetrics().height())};
  }
  int offsetAtPoint(const QPoint& point) const override {
    return static_cast<int>(view_.offsetAt(view_.viewport()->mapFromGlobal(point)));
  }
  void scrollToSubstring(int begin, int) override { setCursorPosition(begin); }
  QString attributes(int offset, int* begin, int* end) const override {
    tell(around(at(offset), QAccessible::LineBoundary), begin, end);
    return {};
  }

 private:
  std::size_t at(int offset) const {
    return std::min(static_cast<std::size_t>(std::max(offset, 0)), box_.buffer().size());
  }

  Stretch around(std::size_t offset, QAccessible::TextBoundaryType boundary) const {
    const std::size_t size = box_.buffer().size();
    if (boundary == QAccessible::CharBoundary) return {offset, std::min(offset + 1, size)};
    const std::uint64_t line = box_.lineFromChar(offset);
    return {box_.lineIndex(line), box_.lineIndex(line + 1)};
  }

  QString text(const Stretch& stretch) const {
    std::string copy;
    const std::size_t end = std::max(stretch.begin, stretch.end);
    return qt::text(CodePage::windows1252().decode(box_.buffer().view(stretch.begin, end, copy)));
  }
  static void tell(const Stretch& stretch, int* begin, int* end) {
    *begin = static_cast<int>(stretch.begin);
    *end = static_cast<int>(stretch.end);
  }
  QString told(const Stretch& stretch, int* begin, int* end) const {
    tell(stretch, begin, end);
    return text(stretch);
  }

  ReportView& view_;
  const RichTextBox& box_;
};

QAccessibleInterface* reportAccessible(const QString& /*key*/, QObject* object) {
  auto* const view = dynamic_cast<ReportView*>(object);
  return view == nullptr ? nullptr : new ReportAccessible(*view);
}

}  // namespace

void makeReportsReadable() {
  static const bool once = [] {
    QAccessible::installFactory(reportAccessible);
    return true;
  }();
  static_cast<void>(once);
}

}  // namespace paperway::qt
