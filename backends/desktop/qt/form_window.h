#pragma once

#include <QHash>
#include <QPointer>
#include <QScrollArea>
#include <memory>
#include <vector>

#include "controls/form.h"

class QTimer;

namespace paperway::qt {

class ControlView;
class Windows;

/// A form on the screen. What the user does goes to the form and its controls; after each act what
/// changed there is copied to the widgets. It knows kinds of controls, and no form in particular.
/// Where the screen is smaller than the form, the window scrolls.
class FormWindow : public QScrollArea {
 public:
  FormWindow(std::shared_ptr<Form> form, Windows& owner);
  ~FormWindow() override;

  Form& form() const { return *form_; }
  /// Shows the window for the first time.
  void begin();

  /// The widget of a control; null for kinds without one.
  ControlView* view(const Control& control) const { return byControl_.value(&control); }

  /// Runs what an act of the user leads to. An error that leaves it is told to the user.
  template <typename Handler>
  void act(Handler&& handler);

  /// Copies what changed to the widgets.
  void sync();

  /// Lets a control answer for a widget.
  void watch(QWidget& widget, ControlView& view);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  bool focusNextPrevChild(bool next) override;
  bool event(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void changeEvent(QEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  void build();
  QSize room() const;
  void fitScreen();
  void followSize();
  void bringIntoSight(const ControlView& view);
  void buildTimer(Timer& timer);
  void tell(const std::exception& error);
  void finish();
  void syncOnce();
  void syncTimers();
  void syncFocus();
  void keepFocusInReach();
  void focusNewPanel();
  void popUp();
  Control* page() const;
  Control* neighbour(bool forward) const;
  bool pressAccessKey(const QKeyEvent& event);
  bool filterKeyPress(ControlView& view, QKeyEvent& event);
  bool opensMenu(ControlView& view, const QKeyEvent& event);
  bool goesToText(ControlView& view, QKeyEvent& event);
  bool pressesDefault(const ControlView& view, const QKeyEvent& event);
  bool selectsByArrow(Control& option, int code);
  bool filterMouse(ControlView& view, QWidget& widget, QMouseEvent& event);
  bool focusArrives(ControlView& view, Qt::FocusReason reason);

  const std::shared_ptr<Form> form_;
  Windows& owner_;
  QWidget& surface_;                                 // the form's own
  std::vector<std::unique_ptr<ControlView>> views_;  // in the order of the controls
  QHash<const QObject*, ControlView*> watched_;
  QHash<const Control*, ControlView*> byControl_;
  std::vector<std::pair<Timer*, QTimer*>> timers_;
  std::vector<const Control*> openPanels_;
  std::vector<Control*> focusTrail_;      // where the focus was before a panel took it
  const ControlView* refused_ = nullptr;  // a click on it was not let through
  bool ending_ = false;
  bool syncing_ = false;
  bool syncAgain_ = false;
};

template <typename Handler>
void FormWindow::act(Handler&& handler) {
  const QPointer<FormWindow> alive(this);
  const std::shared_ptr<Form> kept = form_;
  try {
    handler();
  } catch (const std::exception& error) {
    if (alive) tell(error);
  }
  if (alive) finish();
}

}  // namespace paperway::qt
