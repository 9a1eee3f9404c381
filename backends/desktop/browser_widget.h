#pragma once

#include <functional>

class QWidget;

namespace paperway::desktop {

/// What a page of the browser is to a window, besides being a BrowserPage.
class BrowserWidget {
 public:
  virtual ~BrowserWidget() = default;

  /// The page's widget, which the page deletes unless the widget that it lies on has done so.
  virtual QWidget& widget() = 0;
  /// The part of it that takes the keys, once there is one; another document may have another.
  virtual QWidget* keyTarget() = 0;
  /// Waits until what the page holds is drawn, for a picture of it; not for ever.
  virtual void waitUntilDrawn() = 0;
  /// Tells events only within this, which runs what they lead to.
  virtual void tellWithin(std::function<void(const std::function<void()>&)> act) = 0;
};

}  // namespace paperway::desktop
