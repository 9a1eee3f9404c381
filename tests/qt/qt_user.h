#pragma once

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractScrollArea>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QScrollBar>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <functional>
#include <gtest/gtest.h>
#include <map>

#include "backends/desktop/qt/control_view.h"
#include "backends/desktop/qt/convert.h"
#include "backends/desktop/qt/form_window.h"
#include "controls/boxes.h"
#include "controls/buttons.h"

namespace paperway {

/// Answers the dialog that comes up next.
template <typename Dialog>
void answer(std::function<void(Dialog&)> how) {
  QTimer::singleShot(0, [how = std::move(how)] {
    auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
    ASSERT_NE(dialog, nullptr);
    how(*dialog);
  });
}

inline Qt::KeyboardModifiers modifiers(int shift) {
  Qt::KeyboardModifiers all;
  if ((shift & smShift) != 0) all |= Qt::ShiftModifier;
  if ((shift & smCtrl) != 0) all |= Qt::ControlModifier;
  return all;
}

inline Qt::Key qtKey(int keyCode) {
  static const std::map<int, Qt::Key> keys = {{keyReturn, Qt::Key_Return},
                                              {keyHome, Qt::Key_Home},
                                              {keyEnd, Qt::Key_End},
                                              {keyDown, Qt::Key_Down}};
  const auto known = keys.find(keyCode);
  return known == keys.end() ? static_cast<Qt::Key>(keyCode) : known->second;
}

/// The acts of headless::User with real keys and a real mouse on the widgets of a window.
class QtUser {
 public:
  explicit QtUser(qt::FormWindow& window) : window_(window), form_(window.form()) {
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
  }

  /// The widget that mouse and keys go to.
  QWidget& widget(std::string_view control) const {
    return window_.view(form_.at(control))->widget;
  }

  void click(std::string_view control, int button = mbLeft, int shift = 0) {
    QWidget& target = mouseTarget(control);
    const QPoint place(std::min(8, target.width() / 2), target.height() / 2);
    const Qt::MouseButton pressed = button == mbRight ? Qt::RightButton : Qt::LeftButton;
    QTest::mouseClick(&target, pressed, modifiers(shift), place);
  }

  void doubleClick(std::string_view control) {
    QTest::mouseDClick(&mouseTarget(control), Qt::LeftButton);
  }

  void focus(std::string_view control) {
    QWidget& target = widget(control);
    target.setFocus(Qt::OtherFocusReason);
    if (auto* line = qobject_cast<QLineEdit*>(&mouseTarget(control))) line->end(false);
  }

  void type(std::string_view control, std::string_view text) {
    focus(control);
    for (const char c : text) QTest::keyClick(window_.focusWidget(), c);
  }

  void press(std::string_view control, int keyCode, int shift = 0) {
    focus(control);
    QTest::keyClick(&widget(control), qtKey(keyCode), modifiers(shift));
  }

  void alt(char character) {
    QWidget* target = window_.focusWidget();
    QTest::keyClick(target == nullptr ? &window_ : target, character, Qt::AltModifier);
  }

  void choose(std::string_view comboBox, std::string_view entry) {
    auto& combo = dynamic_cast<QComboBox&>(widget(comboBox));
    focus(comboBox);
    combo.showPopup();
    const int index = combo.findText(qt::text(entry));
    combo.view()->setCurrentIndex(combo.model()->index(index, 0));
    QTest::keyClick(combo.view(), Qt::Key_Return);
  }

  void scroll(std::string_view scrollBar, int value) {
    auto& bar = form_.get<ScrollBar>(scrollBar);
    QWidget& shown = widget(scrollBar);
    if (auto* thumb = qobject_cast<QScrollBar*>(&shown)) return thumb->setValue(value);
    const QList<QToolButton*> arrows = shown.findChildren<QToolButton*>();
    for (int steps = 0; bar.Value != value && steps < 1000; ++steps) {
      QTest::mouseClick(arrows[bar.Value > value ? 0 : 1], Qt::LeftButton);
    }
  }

  void chooseFromMenu(std::string_view item) {
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr) << "no menu is up";
    const QString wanted = qt::caption(form_.at(item).Caption);
    for (QAction* action : menu->actions()) {
      if (action->text() != wanted) continue;
      QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(action).center());
      return;
    }
    ADD_FAILURE() << item << " is not on the menu";
  }

 private:
  QWidget& mouseTarget(std::string_view control) const {
    QWidget& whole = widget(control);
    if (auto* area = qobject_cast<QAbstractScrollArea*>(&whole)) return *area->viewport();
    if (auto* combo = qobject_cast<QComboBox*>(&whole)) return *combo->lineEdit();
    return whole;
  }

  qt::FormWindow& window_;
  Form& form_;
};

inline void expectValue(const Control& control, const QWidget& widget) {
  if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) {
    if (control.kind != ControlKind::picture) {
      EXPECT_EQ(button->text(), qt::caption(control.Caption));
    }
    const auto* box = dynamic_cast<const CheckBox*>(&control);
    const auto* option = dynamic_cast<const OptionButton*>(&control);
    EXPECT_EQ(button->isChecked(), box ? box->Value != 0 : option && option->Value);
  } else if (const auto* line = dynamic_cast<const TextBox*>(&control)) {
    EXPECT_EQ(qt::utf8(qobject_cast<const QLineEdit*>(&widget)->text()), line->Text.get());
  } else if (const auto* list = dynamic_cast<const ComboBox*>(&control)) {
    const auto& combo = dynamic_cast<const QComboBox&>(widget);
    EXPECT_EQ(qt::utf8(combo.currentText()), list->Text.get());
    EXPECT_EQ(combo.count(), list->ListCount());
  }
}

/// Fails where a widget shows anything but what its model says.
inline void expectAgreement(const qt::FormWindow& window) {
  const Form& form = window.form();
  EXPECT_EQ(qt::utf8(window.windowTitle()), form.Caption);
  for (const Control* control : form.controls()) {
    const qt::ControlView* view = window.view(*control);
    if (view == nullptr) continue;
    SCOPED_TRACE(control->name);
    const QWidget& widget = view->widget;
    EXPECT_EQ(widget.isVisibleTo(&window), control->shown());
    EXPECT_EQ(widget.isEnabledTo(widget.parentWidget()), control->Enabled);
    EXPECT_EQ(widget.geometry(), qt::pixels(*control));
    EXPECT_FALSE(widget.accessibleName().isEmpty());
    expectValue(*control, widget);
  }
  const Control* active = form.activeControl();
  if (active != nullptr && active->reachable()) {
    EXPECT_EQ(window.focusWidget(), &window.view(*active)->widget) << active->name;
  }
}

}  // namespace paperway
