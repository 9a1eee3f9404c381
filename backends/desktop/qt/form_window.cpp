#include "backends/desktop/qt/form_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QScreen>
#include <QStyle>
#include <QTimer>
#include <QWheelEvent>
#include <QWindow>
#include <algorithm>
#include <utility>

#include "backends/desktop/qt/control_view.h"
#include "backends/desktop/qt/convert.h"
#include "backends/desktop/qt/message_box.h"
#include "backends/desktop/qt/windows.h"
#include "controls/buttons.h"

namespace paperway::qt {
namespace {

/// The character of a key press, 0 for none.
char32_t characterOf(const QKeyEvent& event) {
  if (isCommand(event) || (event.modifiers() & Qt::MetaModifier) != 0) return 0;
  if (event.key() == Qt::Key_Delete) return 0;
  if (event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter) return keyReturn;
  if (event.key() == Qt::Key_Backspace) return keyBack;
  const QList<uint> characters = event.text().toUcs4();
  return characters.size() == 1 && characters[0] != '\t' ? characters[0] : 0;
}

}  // namespace

FormWindow::FormWindow(std::shared_ptr<Form> form, Windows& owner)
    : form_(std::move(form)), owner_(owner), surface_(*new QWidget) {
  setObjectName(text(form_->name));
  setFrameShape(QFrame::NoFrame);
  setFocusPolicy(Qt::NoFocus);
  setAttribute(Qt::WA_DeleteOnClose, false);
  setWidgetResizable(true);
  setWidget(&surface_);
  for (QWidget* part : {static_cast<QWidget*>(this), viewport(), &surface_}) {
    part->setMouseTracking(true);
  }
  surface_.installEventFilter(this);
  fitScreen();
  resize(QSize(pixels(form_->Width), pixels(form_->Height)).boundedTo(room()));
  build();
}

/// Widgets that go have much to tell, which nobody is there to hear any more.
FormWindow::~FormWindow() {
  ending_ = true;
  delete takeWidget();
}

/// What the screen leaves for the window within its frame.
QSize FormWindow::room() const {
  const int title = style()->pixelMetric(QStyle::PM_TitleBarHeight);
  const QSize frame = frameGeometry().size() - size();
  return screen()->availableSize() - frame.expandedTo({0, title});
}

void FormWindow::fitScreen() {
  const bool sizable = form_->Sizable;
  const QSize least(pixels(sizable ? form_->MinWidth : form_->Width),
                    pixels(sizable ? form_->MinHeight : form_->Height));
  surface_.setMinimumSize(least);
  setMinimumSize(least.boundedTo(room()));
  if (!sizable) setMaximumSize(minimumSize());
}

/// A form that the user cannot resize resizes itself.
void FormWindow::followSize() {
  const QSize wanted(pixels(form_->Width), pixels(form_->Height));
  if (form_->Sizable || surface_.minimumSize() == wanted) return;
  setMinimumSize(0, 0);
  setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
  fitScreen();
  resize(minimumSize());
}

void FormWindow::bringIntoSight(const ControlView& view) {
  const QSize sight = viewport()->size();
  if (view.widget.size().boundedTo(sight) == view.widget.size()) ensureWidgetVisible(&view.widget);
}

void FormWindow::build() {
  for (Control* control : form_->controls()) {
    if (control->kind == ControlKind::timer) {
      buildTimer(static_cast<Timer&>(*control));
      continue;
    }
    const ControlView* outer = control->container == nullptr ? nullptr : view(*control->container);
    auto made = makeView(*this, *control, outer == nullptr ? &surface_ : &outer->widget);
    if (made == nullptr) continue;
    byControl_.insert(control, made.get());
    views_.push_back(std::move(made));
  }
}

void FormWindow::begin() {
  sync();
  show();
  connect(windowHandle(), &QWindow::screenChanged, this, &FormWindow::fitScreen);
  if (form_->activeControl() != nullptr) return;
  const std::vector<Control*> order = form_->tabOrder();
  Control* first = page() != nullptr || order.empty() ? page() : order.front();
  act([this, first] { form_->moveFocus(first); });
}

/// The text, or the web page, that the window is for; null when there is none.
Control* FormWindow::page() const {
  const std::vector<Control*> order = form_->tabOrder();
  const auto found = std::find_if(order.begin(), order.end(), [](const Control* control) {
    return control->kind == ControlKind::richText || control->kind == ControlKind::webBrowser ||
           control->kind == ControlKind::sheet;
  });
  return found == order.end() ? nullptr : *found;
}

void FormWindow::buildTimer(Timer& timer) {
  auto* clock = new QTimer(this);
  connect(clock, &QTimer::timeout, this, [this, &timer] { act([&timer] { timer.tick(); }); });
  timers_.emplace_back(&timer, clock);
}

void FormWindow::watch(QWidget& widget, ControlView& view) {
  watched_.insert(&widget, &view);
  widget.installEventFilter(this);
}

void FormWindow::tell(const std::exception& error) {
  sync();
  MessageBoxes().show(error.what(), form_->Caption, MessageBoxes::Buttons::ok,
                      MessageBoxes::Icon::critical);
}

void FormWindow::finish() {
  if (!form_->loaded()) {
    hide();
    owner_.forget(*this);
    return;
  }
  sync();
  popUp();
}

void FormWindow::sync() {
  syncAgain_ = true;
  if (syncing_) return;  // a widget answered to being set; the loop below goes round once more
  syncing_ = true;
  while (syncAgain_) {
    syncAgain_ = false;
    syncOnce();
  }
  syncing_ = false;
}

void FormWindow::syncOnce() {
  if (windowTitle() != text(form_->Caption)) setWindowTitle(text(form_->Caption));
  if (isEnabled() != form_->Enabled) setEnabled(form_->Enabled);
  followSize();
  if (form_->MousePointer == mpHourglass) {
    setCursor(Qt::WaitCursor);
  } else {
    unsetCursor();
  }
  keepFocusInReach();
  for (const auto& view : views_) view->sync();
  syncTimers();
  focusNewPanel();
  syncFocus();
}

void FormWindow::syncTimers() {
  for (const auto& [timer, clock] : timers_) {
    const bool runs = timer->Enabled && timer->Interval > 0 && form_->loaded();
    if (!runs) {
      clock->stop();
    } else if (!clock->isActive() || clock->interval() != timer->Interval) {
      clock->start(timer->Interval);
    }
  }
}

/// A control that was hidden or disabled gives the focus back to where it came from, or to the
/// text, which is what the window is for.
void FormWindow::keepFocusInReach() {
  const Control* active = form_->activeControl();
  if (active == nullptr || active->reachable()) return;
  while (!focusTrail_.empty()) {
    Control* before = focusTrail_.back();
    focusTrail_.pop_back();
    if (form_->moveFocus(before)) return;
  }
  const std::vector<Control*> order = form_->tabOrder();
  if (page() != nullptr) {
    form_->moveFocus(page());
  } else if (!order.empty()) {
    form_->moveFocus(order.front());
  }
}

void FormWindow::focusNewPanel() {
  for (const auto& view : views_) {
    const Control& control = view->control;
    if (control.kind != ControlKind::frame || !static_cast<const Frame&>(control).Panel) continue;
    const auto known = std::find(openPanels_.begin(), openPanels_.end(), &control);
    if (!control.shown()) {
      if (known != openPanels_.end()) openPanels_.erase(known);
      continue;
    }
    if (known != openPanels_.end()) continue;
    openPanels_.push_back(&control);
    view->widget.raise();
    bringIntoSight(*view);
    const auto inside = [&control](const Control* at) {
      return at != nullptr && control.holds(*at);
    };
    if (inside(form_->activeControl())) continue;
    const std::vector<Control*> order = form_->tabOrder();
    const auto first = std::find_if(order.begin(), order.end(), inside);
    if (first == order.end()) continue;
    if (form_->activeControl() != nullptr) focusTrail_.push_back(form_->activeControl());
    form_->moveFocus(*first);
  }
}

void FormWindow::syncFocus() {
  if (form_->activeControl() == nullptr) return;
  ControlView* active = view(*form_->activeControl());
  if (active != nullptr && focusWidget() != &active->widget) {
    active->widget.setFocus(Qt::ShortcutFocusReason);  // a line of text is selected, to be replaced
  }
}

void FormWindow::popUp() {
  const auto request = form_->takePopup();
  if (!request) return;
  auto* menu = new QMenu(this);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  for (MenuItem* item : request->menu->items) {
    if (!item->Visible) continue;
    if (item->divider()) {
      menu->addSeparator();
      continue;
    }
    QAction* action = menu->addAction(caption(item->Caption));
    action->setEnabled(item->Enabled);
    action->setCheckable(item->Checked);
    action->setChecked(item->Checked);
    connect(action, &QAction::triggered, this, [this, item] { act([item] { item->click(); }); });
  }
  menu->popup(surface_.mapToGlobal(QPoint(pixels(request->x), pixels(request->y))));
}

/// A form that takes no input still hears the key that breaks off its work.
bool FormWindow::event(QEvent* event) {
  if (event->type() != QEvent::KeyPress || isEnabled()) return QScrollArea::event(event);
  const auto& key = static_cast<QKeyEvent&>(*event);
  if (key.key() != Qt::Key_Escape) return QScrollArea::event(event);
  int code = keyEscape;
  event->accept();
  act([&] { form_->Form_KeyDown(code, shiftMask(key.modifiers())); });
  return true;
}

void FormWindow::closeEvent(QCloseEvent* event) {
  event->ignore();  // finish() closes what is no longer loaded
  act([this] { form_->unload(); });
}

void FormWindow::changeEvent(QEvent* event) {
  QScrollArea::changeEvent(event);
  if (ending_) return;
  if (event->type() == QEvent::ActivationChange && isActiveWindow()) {
    owner_.cameToFront(*this);
  } else if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange ||
             event->type() == QEvent::StyleChange) {
    for (const auto& view : views_) view->forgetLook();
    sync();
  }
}

// Keyboard

Control* FormWindow::neighbour(bool forward) const {
  // Of the options of one container the selected one is the stop; arrows go to the others.
  const Control* from = form_->activeControl();
  std::vector<Control*> order = form_->tabOrder();
  const auto passedOver = [&order, from](Control* control) {
    if (control == from || control->kind != ControlKind::optionButton) return false;
    if (static_cast<OptionButton*>(control)->Value) return false;
    return std::any_of(order.begin(), order.end(), [control](const Control* other) {
      return other->kind == ControlKind::optionButton && other->container == control->container &&
             static_cast<const OptionButton*>(other)->Value;
    });
  };
  // In a panel the keyboard stays until the panel is closed.
  if (const Control* panel = from == nullptr ? nullptr : from->panel()) {
    const auto outside = [panel](const Control* control) { return !panel->holds(*control); };
    order.erase(std::remove_if(order.begin(), order.end(), outside), order.end());
  }
  std::vector<Control*> stops;
  std::remove_copy_if(order.begin(), order.end(), std::back_inserter(stops), passedOver);
  if (stops.empty()) return nullptr;
  const auto at = std::find(stops.begin(), stops.end(), from);
  if (at == stops.end()) return forward ? stops.front() : stops.back();
  const auto count = static_cast<std::ptrdiff_t>(stops.size());
  const std::ptrdiff_t next = (at - stops.begin() + (forward ? 1 : count - 1)) % count;
  return stops[static_cast<std::size_t>(next)];
}

bool FormWindow::focusNextPrevChild(bool next) {
  if (syncing_) return false;  // a widget is being hidden or disabled; syncFocus() comes to it
  Control* target = neighbour(next);
  if (target == nullptr) return false;
  act([this, target] { form_->moveFocus(target); });
  if (form_->activeControl() == target && view(*target) != nullptr) {
    view(*target)->widget.setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
  }
  return true;
}

bool FormWindow::pressAccessKey(const QKeyEvent& event) {
  const bool alt = (event.modifiers() & Qt::AltModifier) != 0;
  if (!alt || (event.modifiers() & Qt::ControlModifier) != 0) return false;
  const int key = event.key();
  if (key <= Qt::Key_Space || key >= Qt::Key_Escape) return false;
  bool pressed = false;
  act([&] { pressed = form_->pressAccessKey(static_cast<char32_t>(key)); });
  return pressed;
}

void FormWindow::keyPressEvent(QKeyEvent* event) {
  // Keys come here when no control has the focus.
  if (focusWidget() != nullptr && focusWidget() != this) return event->ignore();
  if (pressAccessKey(*event)) return;
  int code = keyCode(event->key(), event->modifiers());
  act([&] { form_->Form_KeyDown(code, shiftMask(event->modifiers())); });
}

bool FormWindow::filterKeyPress(ControlView& view, QKeyEvent& event) {
  if (pressAccessKey(event)) return true;
  const QPointer<FormWindow> alive(this);
  Control& control = view.control;
  int code = keyCode(event.key(), event.modifiers());
  const char32_t before = characterOf(event);
  int key = static_cast<int>(before);
  act([&] {
    control.keyDown(code, shiftMask(event.modifiers()));
    if (key != 0 && code != 0) control.keyPress(key);
  });
  if (!alive || !form_->loaded()) return true;
  if (code == 0 || (before != 0 && key == 0)) return true;
  if (!control.reachable() || opensMenu(view, event)) return true;
  if (view.clickIsEnter() && key == keyReturn) {
    act([&control] { control.click(); });
    return true;
  }
  if (key == keyReturn && pressesDefault(view, event)) return true;
  if (control.kind == ControlKind::optionButton && selectsByArrow(control, code)) return true;
  if (view.takeKey(event, before, static_cast<char32_t>(key))) return true;
  return goesToText(view, event);
}

/// A key that is still down from opening the panel does not press what is in it.
bool FormWindow::pressesDefault(const ControlView& view, const QKeyEvent& event) {
  if (view.control.kind == ControlKind::richText || event.isAutoRepeat()) return false;
  bool pressed = false;
  act([&] { pressed = form_->pressDefault(); });
  return pressed;
}

/// The menu key is a press of the right mouse button where the typing goes on.
bool FormWindow::opensMenu(ControlView& view, const QKeyEvent& event) {
  const bool shiftF10 = event.key() == Qt::Key_F10 && event.modifiers() == Qt::ShiftModifier;
  const std::optional<QPoint> place = view.menuPoint();
  if (!place || (event.key() != Qt::Key_Menu && !shiftF10)) return false;
  const MouseEvent pressed{mbRight, 0, twips(place->x()), twips(place->y())};
  act([&] {
    view.control.mouseDown(pressed);
    view.control.mouseUp(pressed);
  });
  return true;
}

/// Keys that move through the text, of controls that have no use for them.
bool FormWindow::goesToText(ControlView& view, QKeyEvent& event) {
  const bool turns = event.key() == Qt::Key_PageUp || event.key() == Qt::Key_PageDown;
  if (!turns && !isTextEndKey(event)) return false;
  Control* text = page();
  return text != nullptr && text != &view.control && filterKeyPress(*this->view(*text), event);
}

/// Arrows go from option to option of one container and select.
bool FormWindow::selectsByArrow(Control& option, int code) {
  const bool back = code == keyLeft || code == keyUp;
  if (!back && code != keyRight && code != keyDown) return false;
  std::vector<Control*> options = form_->tabOrder();
  options.erase(std::remove_if(options.begin(), options.end(),
                               [&option](const Control* other) {
                                 return other->kind != option.kind ||
                                        other->container != option.container;
                               }),
                options.end());
  const auto at = std::find(options.begin(), options.end(), &option);
  if (at == options.end() || options.size() < 2) return true;
  const auto count = static_cast<std::ptrdiff_t>(options.size());
  Control* next =
      options[static_cast<std::size_t>((at - options.begin() + (back ? count - 1 : 1)) % count)];
  act([this, next] {
    if (form_->moveFocus(next)) next->click();
  });
  return true;
}

// Mouse and focus

/// Ctrl and the wheel are Ctrl and plus or minus.
void FormWindow::wheelEvent(QWheelEvent* event) {
  const int turned = event->angleDelta().y();
  if ((event->modifiers() & Qt::ControlModifier) == 0) return QScrollArea::wheelEvent(event);
  if (turned == 0) return;
  int code = turned > 0 ? keyAdd : keySubtract;
  act([&] { form_->Form_KeyDown(code, smCtrl); });
}

void FormWindow::mouseMoveEvent(QMouseEvent* event) {
  const QPoint place = surface_.mapFrom(viewport(), event->pos());
  const MouseEvent moved{0, shiftMask(event->modifiers()), twips(place.x()), twips(place.y())};
  act([&] { form_->Form_MouseMove(moved); });
}

bool FormWindow::filterMouse(ControlView& view, QWidget& widget, QMouseEvent& event) {
  Control& control = view.control;
  const QPoint place = widget.mapTo(&view.widget, event.pos());
  const MouseEvent what{mouseButton(event.button()), shiftMask(event.modifiers()), twips(place.x()),
                        twips(place.y())};
  const QPointer<FormWindow> alive(this);
  const auto gone = [&] { return !alive || !form_->loaded(); };
  event.accept();
  switch (event.type()) {
    case QEvent::MouseButtonPress:
      // The focus did not come along: the control that has it keeps it.
      if (std::exchange(refused_, nullptr) == &view) return true;
      if (control.takesFocus() && form_->activeControl() != &control) {
        if (!focusArrives(view, Qt::OtherFocusReason)) return true;
      }
      act([&] { control.mouseDown(what); });
      break;
    case QEvent::MouseButtonDblClick:
      act([&] {
        control.mouseDown(what);
        control.doubleClick();
      });
      break;
    case QEvent::MouseMove:
      if (control.onMouseMove) act([&] { control.mouseMove(what); });
      break;
    default:
      break;
  }
  if (gone()) return true;
  const bool own = &widget == &view.widget;
  if (own) {
    static_cast<QObject&>(widget).event(&event);
    event.accept();
    if (gone()) return true;
  }
  if (event.type() != QEvent::MouseButtonRelease) return own;
  act([&] {
    const bool inside = view.widget.rect().contains(place);
    if (inside && view.clickIsRelease(what.button)) control.click();
    control.mouseUp(what);
  });
  return own;  // a part of a greater widget handles the event by itself
}

bool FormWindow::focusArrives(ControlView& view, Qt::FocusReason reason) {
  if (reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason) return true;
  bool moved = false;
  act([&] { moved = form_->moveFocus(&view.control); });
  refused_ = moved || reason != Qt::MouseFocusReason ? nullptr : &view;
  return moved;
}

bool FormWindow::eventFilter(QObject* watched, QEvent* event) {
  if (ending_) return false;
  if (watched == &surface_ && event->type() == QEvent::Resize) {
    act([this] { form_->resize(twips(surface_.width()), twips(surface_.height())); });
  }
  ControlView* view = watched_.value(watched);
  if (view == nullptr) return QScrollArea::eventFilter(watched, event);
  auto& widget = *static_cast<QWidget*>(watched);
  switch (event->type()) {
    case QEvent::KeyPress:
      return filterKeyPress(*view, *static_cast<QKeyEvent*>(event));
    case QEvent::KeyRelease: {
      const auto& key = *static_cast<QKeyEvent*>(event);
      int code = keyCode(key.key(), key.modifiers());
      if (view->control.onKeyUp) {
        act([&] { view->control.keyUp(code, shiftMask(key.modifiers())); });
      }
      return false;
    }
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
      return filterMouse(*view, widget, *static_cast<QMouseEvent*>(event));
    case QEvent::FocusIn: {
      const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
      const bool byKey = reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
                         reason == Qt::ShortcutFocusReason;
      if (focusArrives(*view, reason) && byKey) bringIntoSight(*view);
      return false;
    }
    case QEvent::Leave:
      // The pointer may jump over the form's own surface.
      if (view->control.onMouseMove) act([this] { form_->Form_MouseMove({}); });
      return false;
    default:
      return false;
  }
}

}  // namespace paperway::qt
