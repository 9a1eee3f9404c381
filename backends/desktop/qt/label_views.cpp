#include <QFontMetrics>
#include <QLabel>
#include <QPainter>
#include <QStyle>
#include <QStyleOption>
#include <QToolButton>

#include "backends/desktop/qt/convert.h"
#include "backends/desktop/qt/form_window.h"
#include "backends/desktop/qt/views.h"
#include "controls/boxes.h"
#include "controls/sp_lebal.h"

namespace paperway::qt {
namespace {

/// Shows the "&" of an access key as an underline without taking the key: that is the form's.
class CaptionLabel : public QLabel {
 public:
  using QLabel::QLabel;

  QString marked;

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    const bool wraps = height() >= 2 * fontMetrics().lineSpacing();
    style()->drawItemText(
        &painter, rect(),
        static_cast<int>(alignment()) | Qt::TextShowMnemonic | (wraps ? Qt::TextWordWrap : 0),
        palette(), isEnabled(), marked, QPalette::WindowText);
  }
};

class LabelView : public ControlView {
 public:
  LabelView(FormWindow& itsWindow, Label& itsLabel, QWidget* parent)
      : ControlView(itsWindow, itsLabel, new CaptionLabel(parent)),
        label_(itsLabel),
        shown_(static_cast<CaptionLabel&>(widget)) {
    shown_.setTextFormat(Qt::PlainText);
  }

 protected:
  void syncContent() override {
    const QString now = caption(label_.Caption);
    if (shown_.marked != now) {
      shown_.marked = now;
      shown_.setText(caption(captionText(label_.Caption)));
    }
    static constexpr Qt::AlignmentFlag kSides[] = {Qt::AlignLeft, Qt::AlignRight, Qt::AlignHCenter};
    const Qt::Alignment wanted = kSides[static_cast<int>(label_.TextAlignment)] | Qt::AlignVCenter;
    if (shown_.alignment() != wanted) shown_.setAlignment(wanted);
  }

 private:
  Label& label_;
  CaptionLabel& shown_;
};

/// A label that is a command: a flat button, so that keyboard and screen readers know it.
class CommandLabelView : public ControlView {
 public:
  CommandLabelView(FormWindow& itsWindow, Label& label, QWidget* parent)
      : ControlView(itsWindow, label, new QToolButton(parent)),
        button_(static_cast<QToolButton&>(widget)) {
    button_.setAutoRaise(true);
    button_.setToolButtonStyle(Qt::ToolButtonTextOnly);
    QObject::connect(&button_, &QToolButton::clicked, &button_,
                     [this] { window.act([this] { control.click(); }); });
  }

  bool clickIsRelease(int) const override { return false; }
  bool clickIsEnter() const override { return true; }

 protected:
  void syncColors() override {
    QPalette palette;
    const QColor link = blend(palette.color(QPalette::Link), palette.color(QPalette::WindowText));
    for (const auto group : {QPalette::Active, QPalette::Inactive}) {
      palette.setColor(group, QPalette::ButtonText, readable(link, surface()));
    }
    button_.setPalette(palette);
  }
  void syncContent() override {
    const QString now = caption(control.Caption);
    if (button_.text() == now) return;
    button_.setText(now);
    button_.setShortcut({});
  }

 private:
  QToolButton& button_;
};

class SpLebalWidget : public QWidget, private TextMeasure {
 public:
  SpLebalWidget(SpLebal& label, QWidget* parent) : QWidget(parent), label_(label) {}

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    const SpLebalPaint plan = label_.paint(twips(width()), twips(height()), *this);
    painter.fillRect(rect(), color(plan.background, palette()));
    for (const SpLebalPaint::Line& line : plan.lines) {
      painter.setPen(color(line.color, palette()));
      painter.drawLine(line.x1 / kTwipsPerPixel, line.y1 / kTwipsPerPixel, line.x2 / kTwipsPerPixel,
                       line.y2 / kTwipsPerPixel);
    }
    const QColor ink = color(plan.textColor, palette());
    painter.setPen(isEnabled() ? ink : palette().color(QPalette::Disabled, QPalette::WindowText));
    for (const SpLebalPaint::Text& text : plan.texts) drawText(painter, text);
    if (hasFocus()) drawFocus(painter);
  }

 private:
  void drawText(QPainter& painter, const SpLebalPaint::Text& piece) const {
    using Text = SpLebalPaint::Text;
    int flags = Qt::TextShowMnemonic;
    if (piece.wrapped) flags |= Qt::TextWordWrap;
    flags |= piece.horizontal == Text::Horizontal::left    ? Qt::AlignLeft
             : piece.horizontal == Text::Horizontal::right ? Qt::AlignRight
                                                           : Qt::AlignHCenter;
    flags |= piece.vertical == Text::Vertical::top      ? Qt::AlignTop
             : piece.vertical == Text::Vertical::bottom ? Qt::AlignBottom
                                                        : Qt::AlignVCenter;
    const QRect place(QPoint(piece.left, piece.top), QPoint(piece.right - 1, piece.bottom - 1));
    painter.setClipRect(piece.left, 0, piece.right - piece.left, height());
    painter.drawText(place, flags | Qt::TextDontClip, text(piece.text));
    painter.setClipping(false);
  }

  void drawFocus(QPainter& painter) {
    QStyleOptionFocusRect option;
    option.initFrom(this);
    option.rect = rect().adjusted(2, 2, -2, -2);
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
  }

  int wrappedHeight(std::string_view caption, const FontSpec& wanted, int width) const override {
    const QFontMetrics metrics(qt::font(wanted, font()));
    return metrics
        .boundingRect(0, 0, width, 0, Qt::TextShowMnemonic | Qt::TextWordWrap, text(caption))
        .height();
  }

  SpLebal& label_;
};

class SpLebalView : public ControlView {
 public:
  SpLebalView(FormWindow& itsWindow, SpLebal& label, QWidget* parent)
      : ControlView(itsWindow, label, new SpLebalWidget(label, parent)), label_(label) {}

  bool clickIsRelease(int) const override { return true; }
  bool clickIsEnter() const override { return true; }

 protected:
  void syncContent() override {
    SpLebal::Record now = label_.write();
    if (now == shown_) return;
    shown_ = std::move(now);
    widget.update();
  }
  void syncColors() override { widget.update(); }

 private:
  SpLebal& label_;
  SpLebal::Record shown_;
};

}  // namespace

std::unique_ptr<ControlView> makeLabelView(FormWindow& window, Control& control, QWidget* parent) {
  if (control.kind == ControlKind::spLebal) {
    return std::make_unique<SpLebalView>(window, static_cast<SpLebal&>(control), parent);
  }
  auto& label = static_cast<Label&>(control);
  if (label.onClick) return std::make_unique<CommandLabelView>(window, label, parent);
  return std::make_unique<LabelView>(window, label, parent);
}

}  // namespace paperway::qt
