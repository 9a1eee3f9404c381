#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QToolButton>

#include "backends/desktop/qt/convert.h"
#include "backends/desktop/qt/form_window.h"
#include "backends/desktop/qt/views.h"
#include "controls/boxes.h"
#include "util/text.h"

namespace paperway::qt {
namespace {

/// A control with a line of text that the user edits in `edit`.
class EditView : public ControlView {
 public:
  EditView(FormWindow& itsWindow, Control& itsControl, QWidget* itsWidget, QLineEdit& itsEdit,
           Property<std::string>& itsText)
      : ControlView(itsWindow, itsControl, itsWidget), edit_(itsEdit), text_(itsText) {
    QObject::connect(&edit_, &QLineEdit::textEdited, &edit_,
                     [this](const QString& now) { edited(utf8(now)); });
  }

  virtual bool keepsPageKeys() const { return false; }

  bool takeKey(QKeyEvent& event, char32_t before, char32_t after) override {
    if (after != before && after < ' ') return true;
    if (isAltCharacter(event)) return true;  // an access key of no caption
    if (isTextEndKey(event)) return false;
    if (!keepsPageKeys() && (event.key() == Qt::Key_PageUp || event.key() == Qt::Key_PageDown)) {
      return false;
    }
    keyAllowed_ = before != 0;  // its character has been asked about
    if (after == before) {
      deliver(event);
    } else {
      QKeyEvent other(QEvent::KeyPress, 0, Qt::NoModifier, QString::fromUcs4(&after, 1));
      deliver(other);
    }
    keyAllowed_ = false;
    return true;
  }

 protected:
  void syncContent() override {
    const QString now = text(text_.get());
    if (edit_.text() == now) return;
    const int cursor = edit_.cursorPosition();
    edit_.setText(now);
    if (edit_.hasFocus()) edit_.setCursorPosition(std::min(cursor, static_cast<int>(now.size())));
  }

  /// The theme's colours for a line that is typed into, whatever the form says of white or grey;
  /// a locked one shows a colour as its content.
  void syncColors() override {
    QPalette palette;
    const bool swatch = edit_.isReadOnly() && !isSystemColor(control.BackColor);
    if (swatch) {
      for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        palette.setColor(group, QPalette::Base, surface());
      }
    }
    if (swatch || !isSystemColor(control.ForeColor)) {
      palette.setColor(QPalette::Text,
                       readable(color(control.ForeColor, palette), palette.color(QPalette::Base)));
    }
    widget.setPalette(palette);
  }

 private:
  void deliver(QKeyEvent& event) {
    static_cast<QObject&>(widget).event(&event);
    event.accept();
  }

  /// Text that came by another way than a key, as by pasting, passes the filter of the keys too.
  std::string filtered(const std::string& now) {
    const std::string& old = text_.get();
    const std::size_t shorter = std::min(old.size(), now.size());
    std::size_t head = 0;
    while (head < shorter && old[head] == now[head]) ++head;
    std::size_t tail = 0;
    while (tail < shorter - head && old[old.size() - 1 - tail] == now[now.size() - 1 - tail]) {
      ++tail;
    }
    std::string out = now.substr(0, head);
    const std::string_view inserted = std::string_view(now).substr(head, now.size() - head - tail);
    for (std::size_t i = 0; i < inserted.size();) {
      int key = static_cast<int>(nextCharacter(inserted, i));
      if (key < ' ') continue;  // an end of line that came along is no Enter
      control.keyPress(key);
      if (key >= ' ') appendCharacter(out, static_cast<char32_t>(key));
    }
    return out + now.substr(now.size() - tail);
  }

  void edited(const std::string& now) {
    window.act([&] { text_ = keyAllowed_ || !control.onKeyPress ? now : filtered(now); });
  }

  QLineEdit& edit_;
  Property<std::string>& text_;
  bool keyAllowed_ = false;
};

class TextBoxView : public EditView {
 public:
  TextBoxView(FormWindow& itsWindow, TextBox& itsBox, QWidget* parent)
      : TextBoxView(itsWindow, itsBox, new QLineEdit(parent)) {}

  bool takeKey(QKeyEvent& event, char32_t before, char32_t after) override {
    // What the mouse does by a double click, the keyboard does by Enter or the space bar.
    if (box_.Locked && control.onDblClick && (after == ' ' || after == keyReturn)) {
      window.act([this] { control.doubleClick(); });
      return true;
    }
    return EditView::takeKey(event, before, after);
  }

 protected:
  void syncContent() override {
    if (line_.isReadOnly() != box_.Locked) {
      line_.setReadOnly(box_.Locked);
      syncColors();
    }
    const int longest = box_.MaxLength > 0 ? box_.MaxLength : 32767;
    if (line_.maxLength() != longest) line_.setMaxLength(longest);
    static constexpr Qt::AlignmentFlag kSides[] = {Qt::AlignLeft, Qt::AlignRight, Qt::AlignHCenter};
    const Qt::Alignment side = kSides[static_cast<int>(box_.TextAlignment)] | Qt::AlignVCenter;
    if (line_.alignment() != side) line_.setAlignment(side);
    EditView::syncContent();
    if (box_.takeSelectAll()) line_.selectAll();
  }

 private:
  TextBoxView(FormWindow& itsWindow, TextBox& itsBox, QLineEdit* line)
      : EditView(itsWindow, itsBox, line, *line, itsBox.Text), box_(itsBox), line_(*line) {}

  TextBox& box_;
  QLineEdit& line_;
};

class ComboView : public EditView {
 public:
  ComboView(FormWindow& itsWindow, ComboBox& itsBox, QWidget* parent)
      : ComboView(itsWindow, itsBox, editable(new QComboBox(parent))) {}

  bool keepsPageKeys() const override { return true; }

 protected:
  void syncContent() override {
    if (list_ != box_.List() || combo_.currentIndex() != box_.ListIndex) syncList();
    EditView::syncContent();
  }

 private:
  /// Qt writes the entry into the line, which takes the cursor and the selection away.
  void syncList() {
    const QSignalBlocker quiet(combo_);
    const int cursor = combo_.lineEdit()->cursorPosition();
    if (list_ != box_.List()) {
      list_ = box_.List();
      combo_.clear();
      for (const std::string& entry : list_) combo_.addItem(text(entry));
    }
    combo_.setCurrentIndex(box_.ListIndex);
    EditView::syncContent();
    combo_.lineEdit()->setCursorPosition(cursor);
  }

  static QComboBox* editable(QComboBox* combo) {
    combo->setEditable(true);
    combo->setInsertPolicy(QComboBox::NoInsert);
    combo->setCompleter(nullptr);
    return combo;
  }

  ComboView(FormWindow& itsWindow, ComboBox& itsBox, QComboBox* combo)
      : EditView(itsWindow, itsBox, combo, *combo->lineEdit(), itsBox.Text),
        box_(itsBox),
        combo_(*combo) {
    itsWindow.watch(*combo->lineEdit(), *this);
    QObject::connect(combo, &QComboBox::activated, combo,
                     [this](int index) { window.act([&] { box_.ListIndex = index; }); });
  }

  ComboBox& box_;
  QComboBox& combo_;
  std::vector<std::string> list_;
};

class ScrollBarView : public ControlView {
 public:
  ScrollBarView(FormWindow& itsWindow, ScrollBar& itsBar, QWidget* parent)
      : ControlView(itsWindow, itsBar, new QScrollBar(parent)),
        bar_(itsBar),
        shown_(static_cast<QScrollBar&>(widget)) {
    QObject::connect(&shown_, &QScrollBar::valueChanged, &shown_,
                     [this](int value) { window.act([&] { bar_.scrollTo(value); }); });
  }

 protected:
  void syncContent() override {
    const QSignalBlocker quiet(shown_);
    shown_.setOrientation(bar_.Vertical ? Qt::Vertical : Qt::Horizontal);
    shown_.setRange(std::min(bar_.Min, bar_.Max), std::max(bar_.Min, bar_.Max));
    shown_.setSingleStep(bar_.SmallChange);
    shown_.setPageStep(bar_.LargeChange);
    shown_.setInvertedAppearance(bar_.Min > bar_.Max);
    if (shown_.value() != bar_.Value) shown_.setValue(bar_.Value);
  }

 private:
  ScrollBar& bar_;
  QScrollBar& shown_;
};

/// One of two arrows, which show the focus of what they lie on.
class Arrow : public QToolButton {
 public:
  using QToolButton::QToolButton;

 protected:
  void paintEvent(QPaintEvent* event) override {
    QToolButton::paintEvent(event);
    if (!parentWidget()->hasFocus()) return;
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Highlight));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
  }
};

/// A scroll bar too short for a thumb: two arrows beside a number.
class ArrowsView : public ControlView {
 public:
  ArrowsView(FormWindow& itsWindow, ScrollBar& itsBar, QWidget* parent)
      : ControlView(itsWindow, itsBar, new QWidget(parent)),
        bar_(itsBar),
        less_(arrow(Qt::UpArrow, Qt::LeftArrow, -1)),
        more_(arrow(Qt::DownArrow, Qt::RightArrow, 1)) {}

  static bool fits(const ScrollBar& bar) {
    return bar.Vertical ? bar.Height < 4 * bar.Width : bar.Width < 4 * bar.Height;
  }

  bool takeKey(QKeyEvent& event, char32_t, char32_t) override {
    const bool less = event.key() == Qt::Key_Up || event.key() == Qt::Key_Left;
    const bool more = event.key() == Qt::Key_Down || event.key() == Qt::Key_Right;
    if (!less && !more) return false;
    step(less ? -1 : 1);
    return true;
  }

 protected:
  void place(const QRect& rect) override {
    ControlView::place(rect);
    const QSize half = bar_.Vertical ? QSize(rect.width(), rect.height() / 2)
                                     : QSize(rect.width() / 2, rect.height());
    less_->setGeometry(QRect(QPoint(0, 0), half));
    more_->setGeometry(
        QRect(QPoint(rect.width() - half.width(), rect.height() - half.height()), half));
  }

 private:
  QToolButton* arrow(Qt::ArrowType upright, Qt::ArrowType lying, int sign) {
    auto* button = new Arrow(&widget);
    button->setArrowType(bar_.Vertical ? upright : lying);
    button->setAutoRepeat(true);
    button->setFocusPolicy(Qt::NoFocus);
    QObject::connect(button, &QToolButton::clicked, &widget, [this, sign] { step(sign); });
    return button;
  }

  void step(int sign) {
    window.act([&] {
      const int direction = bar_.Min > bar_.Max ? -sign : sign;
      bar_.scrollTo(bar_.Value + direction * bar_.SmallChange);
    });
  }

  ScrollBar& bar_;
  QToolButton* less_;
  QToolButton* more_;
};

}  // namespace

std::unique_ptr<ControlView> makeBoxView(FormWindow& window, Control& control, QWidget* parent) {
  if (control.kind == ControlKind::textBox) {
    return std::make_unique<TextBoxView>(window, static_cast<TextBox&>(control), parent);
  }
  if (control.kind == ControlKind::comboBox) {
    return std::make_unique<ComboView>(window, static_cast<ComboBox&>(control), parent);
  }
  auto& bar = static_cast<ScrollBar&>(control);
  if (ArrowsView::fits(bar)) return std::make_unique<ArrowsView>(window, bar, parent);
  return std::make_unique<ScrollBarView>(window, bar, parent);
}

}  // namespace paperway::qt
