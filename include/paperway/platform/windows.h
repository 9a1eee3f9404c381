#pragma once

#include <memory>

#include "paperway/export.h"

namespace paperway {

class Form;

struct ScreenSize {  // twips
  int Width = 0;
  int Height = 0;
};

/// Puts forms on the screen. Windows are modeless: show() returns while the window stays open.
class PAPERWAY_API Windows {
 public:
  virtual ~Windows() = default;

  /// Shows a loaded form and keeps it until it is unloaded. A form that is already on show comes to
  /// the front.
  virtual void show(std::shared_ptr<Form> form) = 0;

  /// The part of the screen that windows can take.
  virtual ScreenSize screen() = 0;

  /// Lets waiting events of all windows run, then returns. Handlers may run within this call, and a
  /// form may be unloaded by them.
  virtual void doEvents() = 0;

  /// Brings what the windows show up to date before a long piece of work. What the user does
  /// meanwhile waits.
  virtual void repaint() = 0;
};

}  // namespace paperway
