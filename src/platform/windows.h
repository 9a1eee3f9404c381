#pragma once

#include <memory>

namespace paperway {

class Form;

/// Puts forms on the screen. Windows are modeless: show() returns while the window stays open.
class Windows {
 public:
  virtual ~Windows() = default;

  /// Shows a loaded form and keeps it until its window is closed. A form that is already on show
  /// comes to the front.
  virtual void show(std::shared_ptr<Form> form) = 0;
};

}  // namespace paperway
