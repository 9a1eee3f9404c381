#pragma once

#include <QCoreApplication>

#include "backends/desktop/qt/windows.h"
#include "paperway/headless.h"
#include "qt_user.h"
#include "support/test_folder.h"

namespace paperway {

/// A desk of real windows; what is asked of the user otherwise comes from a script.
struct QtDesk {
  TestFolder folder;
  headless::Headless machine{folder.path};
  qt::Windows windows;

  ~QtDesk() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

  Platform platform() { return machine.platform().with(windows); }
  QtUser user(Form& form) { return QtUser(*windows.window(form)); }

  /// What a test changed behind the window's back is copied first.
  void expectAgreement(const Form& form) {
    qt::FormWindow* window = windows.window(form);
    if (window == nullptr) return;  // closed
    window->sync();
    paperway::expectAgreement(*window);
  }
};

}  // namespace paperway
