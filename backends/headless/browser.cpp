#include "paperway/headless.h"

namespace paperway::headless {

class Browser::Page : public BrowserPage {
 public:
  explicit Page(Browser& browser) : browser_(browser) {}
  ~Page() override { browser_.events_ = nullptr; }

  void Navigate(const std::filesystem::path& file) override {
    browser_.note("Navigate", file.string());
    if (!std::filesystem::is_regular_file(file)) {
      throw AutomationError(AutomationError::kFileNotFound, "Navigate",
                            "There is no file \"" + file.string() + "\".");
    }
    browser_.events_->BeforeNavigate2();
    if (!browser_.holds) browser_.complete();
  }
  void pageSetup(bool suggestLandscape) override {
    browser_.note("pageSetup", suggestLandscape ? "L" : "");
  }
  void printPreview() override { browser_.note("printPreview"); }
  void print() override { browser_.note("print"); }
  void savePdf(const std::filesystem::path& file) override {
    browser_.note("savePdf", file.string());
  }
  void setLandscape(bool landscape) override { browser_.landscape = landscape; }
  int zoom() override { return browser_.zoom; }
  void setZoom(int level) override {
    browser_.note("setZoom", std::to_string(level));
    browser_.zoom = level;
  }
  void offerContextMenu(bool offered) override { browser_.contextMenu = offered; }

 private:
  Browser& browser_;
};

std::unique_ptr<BrowserPage> Browser::open(BrowserEvents& events) {
  note("open");
  events_ = &events;
  return std::make_unique<Page>(*this);
}

void Browser::complete() {
  if (events_ != nullptr) events_->DocumentComplete();
}

void Browser::note(const std::string& operation, const std::string& argument) {
  calls.push_back(argument.empty() ? operation : operation + " " + argument);
  if (operation != failing) return;
  throw AutomationError(AutomationError::kApplicationDefined, operation, operation + " fails");
}

}  // namespace paperway::headless
