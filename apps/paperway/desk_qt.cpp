#include <optional>
#include <stdexcept>
#include <vector>

#include "apps/paperway/commands.h"
#include "apps/paperway/desk.h"
#include "apps/paperway/memory_limit.h"
#include "apps/paperway/module.h"
#include "apps/paperway/web_module.h"
#include "paperway/desktop.h"
#include "paperway/platform/browser.h"
#include "paperway/platform/windows.h"
#include "paperway/workbook.h"
#include "platform/output_file.h"

namespace paperway::command {
namespace {

/// Remembers the form that was shown last.
class LastForm : public Windows {
 public:
  explicit LastForm(Windows& windows) : windows_(windows) {}

  void show(std::shared_ptr<Form> form) override {
    last = form;
    windows_.show(std::move(form));
  }
  ScreenSize screen() override { return windows_.screen(); }
  void doEvents() override { windows_.doEvents(); }
  void repaint() override { windows_.repaint(); }

  std::weak_ptr<Form> last;

 private:
  Windows& windows_;
};

/// The browser window, whose engine is large: its module is loaded for the first page.
class WebModule : public Browser {
 public:
  explicit WebModule(const Platform& platform) : platform_(platform) {}

  /// Empty when it is not installed.
  static std::filesystem::path file() { return moduleFile("web"); }

  std::unique_ptr<BrowserPage> open(BrowserEvents& events) override {
    if (!engine_) engine_ = load();
    return engine_->open(events);
  }

 private:
  std::unique_ptr<Browser> load() const {
    liftMemoryLimit();  // the engine takes more than it uses
    const auto make = reinterpret_cast<MakeWebBrowser*>(moduleSymbol(file(), kMakeWebBrowser));
    return std::unique_ptr<Browser>(make(platform_));
  }

  const Platform platform_;
  std::unique_ptr<Browser> engine_;
};

class QtDesk : public Desk {
 public:
  explicit QtDesk(const Options& options)
      : desktop_({.dark = options.dark,
                  .screenless = options.screenless,
                  .scale = options.scale,
                  .program = kProgram}) {
    if (!WebModule::file().empty()) browser_.emplace(desktop_.platform());
  }

  Platform platform() override {
    Platform all = desktop_.platform().with(windows_);
    if (browser_) all.browser = &*browser_;
    all.workbooks = &workbooks_;
    return all;
  }
  Form& form() override { return *windows_.last.lock(); }
  void run() override { desktop_.run(); }
  void resize(int width, int height) override { desktop_.resize(width, height); }

  void draw(const std::filesystem::path& picture, const std::filesystem::path& report) override {
    replaceFile(desktop_.platform().storage, picture, desktop_.picture(), "preview",
                {.inputs = {report}});
  }

 private:
  std::optional<WebModule> browser_;  // goes when the windows have gone
  Desktop desktop_;
  LastForm windows_{desktop_.platform().windows};
  WorkbookFiles workbooks_{desktop_.platform().storage};
};

}  // namespace

std::unique_ptr<Desk> Desk::open(const Options& options) {
  return std::make_unique<QtDesk>(options);
}

}  // namespace paperway::command
