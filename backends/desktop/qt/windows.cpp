#include "backends/desktop/qt/windows.h"

#include <QApplication>
#include <QEventLoop>
#include <QScreen>
#include <QTimer>
#include <algorithm>

#include "backends/desktop/qt/convert.h"
#include "backends/desktop/qt/form_window.h"

namespace paperway::qt {
namespace {

/// A loop that gives way thousands of times a second need not repaint as often.
constexpr std::chrono::milliseconds kBetweenRepaints{15};
constexpr std::chrono::milliseconds kUncovering{50};

}  // namespace

Windows::Windows() = default;

Windows::~Windows() {
  for (FormWindow* window : windows_) delete window;
}

FormWindow* Windows::window(const Form& form) const {
  const auto found = std::find_if(windows_.begin(), windows_.end(),
                                  [&form](const FormWindow* w) { return &w->form() == &form; });
  return found == windows_.end() ? nullptr : *found;
}

void Windows::show(std::shared_ptr<Form> form) {
  FormWindow* shown = window(*form);
  if (shown == nullptr) {
    shown = new FormWindow(std::move(form), *this);
    windows_.push_back(shown);
    shown->begin();
    cameToFront(*shown);
  } else {
    shown->raise();
    shown->activateWindow();
    front_ = nullptr;  // it comes to the front once more, be it there or not
    cameToFront(*shown);
  }
}

ScreenSize Windows::screen() {
  const QSize size = QApplication::primaryScreen()->availableSize();
  return {twips(size.width()), twips(size.height())};
}

void Windows::doEvents() {
  const auto now = std::chrono::steady_clock::now();
  if (now - lastSync_ < kBetweenRepaints) return;
  for (FormWindow* window : std::vector(windows_)) window->sync();
  QApplication::processEvents();
  lastSync_ = std::chrono::steady_clock::now();
}

/// The screen may need a moment to ask for what a dialog has covered.
void Windows::repaint() {
  for (FormWindow* window : std::vector(windows_)) window->sync();
  QEventLoop loop;
  QTimer timer;
  timer.setSingleShot(true);
  QObject::connect(&timer, &QTimer::timeout, &loop, &QEventLoop::quit);
  timer.start(kUncovering);
  loop.exec(QEventLoop::ExcludeUserInputEvents);
}

void Windows::run() {
  if (windows_.empty()) return;
  QEventLoop loop;
  loop_ = &loop;
  loop.exec();
  loop_ = nullptr;
}

void Windows::forget(FormWindow& window) {
  const auto found = std::find(windows_.begin(), windows_.end(), &window);
  if (found == windows_.end()) return;
  windows_.erase(found);
  if (front_ == &window) front_ = nullptr;
  window.deleteLater();
  if (windows_.empty() && loop_ != nullptr) loop_->quit();
}

/// A form is told when it comes to the front of the other forms, not when the user returns to it
/// from a message box or from another program: what was chosen on it stays.
void Windows::cameToFront(FormWindow& window) {
  if (front_ == &window) return;
  front_ = &window;
  window.act([&window] { window.form().activate(); });
}

}  // namespace paperway::qt
