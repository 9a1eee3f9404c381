#include <vector>

#include "apps/paperway/commands.h"
#include "apps/paperway/desk.h"
#include "paperway/desktop.h"
#include "paperway/platform/windows.h"
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

class QtDesk : public Desk {
 public:
  explicit QtDesk(const Options& options)
      : desktop_({.dark = options.dark,
                  .screenless = options.screenless,
                  .scale = options.scale,
                  .program = kProgram}) {}

  Platform platform() override { return desktop_.platform().with(windows_); }
  Form& form() override { return *windows_.last.lock(); }
  void run() override { desktop_.run(); }
  void resize(int width, int height) override { desktop_.resize(width, height); }

  void draw(const std::filesystem::path& picture, const std::filesystem::path& report) override {
    replaceFile(desktop_.platform().storage, picture, desktop_.picture(), "preview",
                {.inputs = {report}});
  }

 private:
  Desktop desktop_;
  LastForm windows_{desktop_.platform().windows};
};

}  // namespace

std::unique_ptr<Desk> Desk::open(const Options& options) {
  return std::make_unique<QtDesk>(options);
}

}  // namespace paperway::command
