#pragma once

#include <chrono>
#include <memory>
#include <vector>

#include "paperway/platform/windows.h"

class QEventLoop;

namespace paperway::qt {

class FormWindow;

/// Windows of the desktop. A host with an event loop of its own need not call run().
class Windows : public paperway::Windows {
 public:
  Windows();
  ~Windows() override;

  void show(std::shared_ptr<Form> form) override;
  ScreenSize screen() override;
  void doEvents() override;
  void repaint() override;

  /// Lets the user work until the last window is closed.
  void run();

  /// The window of a form; null when it is not on show.
  FormWindow* window(const Form& form) const;
  const std::vector<FormWindow*>& windows() const { return windows_; }

  // From the windows themselves.
  void forget(FormWindow& window);
  void cameToFront(FormWindow& window);

 private:
  std::vector<FormWindow*> windows_;
  FormWindow* front_ = nullptr;
  QEventLoop* loop_ = nullptr;
  std::chrono::steady_clock::time_point lastSync_;
};

}  // namespace paperway::qt
