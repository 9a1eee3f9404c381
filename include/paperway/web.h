#pragma once

#include <memory>

#include "paperway/export.h"
#include "paperway/platform.h"
#include "paperway/platform/browser.h"

namespace paperway {

/// The browser window's engine, Qt WebEngine: a host hands it to Class1 with its desktop.
///
///   Desktop desktop;
///   Web web(desktop.platform());
///   Class1 report(desktop.platform().with(web));
///
/// Outlives the windows, which go before the QApplication does. Processes of the engine start with
/// the first page. They are shut in, unless the user is root, whom the engine cannot shut in.
class PAPERWAY_API Web : public Browser {
 public:
  /// Prints on that platform's printers, and keeps the user's page set-up there.
  explicit Web(const Platform& platform);
  ~Web() override;

  std::unique_ptr<BrowserPage> open(BrowserEvents& events) override;

 private:
  const Platform platform_;
};

}  // namespace paperway
