#include <memory>
#include <string>
#include <vector>

#include "apps/paperway/acts.h"
#include "apps/paperway/commands.h"
#include "apps/paperway/desk.h"
#include "apps/paperway/machine.h"
#include "apps/paperway/window_options.h"
#include "controls/web_browser.h"
#include "html/frm_browser.h"
#include "paperway/class1.h"
#include "paperway/platform/windows.h"
#include "util/path_text.h"

namespace paperway::command {
namespace {

struct BrowseOptions : WindowOptions {
  std::string file;
  bool lookOnly = false;
  bool landscape = false;
  std::string pdf;

  /// Nobody is there to answer a dialog.
  bool scripted() const { return desk.screenless; }
};

/// Nobody looks at the page.
struct NoEvents : BrowserEvents {
  void BeforeNavigate2() override {}
  void DocumentComplete() override {}
};

void writePdf(const Platform& platform, const BrowseOptions& options) {
  NoEvents events;
  const auto page = requireBrowser(platform.browser).open(events);
  page->Navigate(pathOf(options.file));
  if (options.landscape) page->setLandscape(true);
  page->savePdf(pathOf(options.pdf));
}

void waitForDocument(const Form& form, Windows& windows) {
  while (form.MousePointer == mpHourglass && form.loaded()) windows.repaint();
}

void drawWindow(Desk& desk, const BrowseOptions& options) {
  auto& form = dynamic_cast<frmBrowser&>(desk.form());
  if (options.landscape) form.brwWebBrowser.page().setLandscape(true);
  if (!options.size.empty()) desk.resize(options.size[0], options.size[1]);
  waitForDocument(form, desk.platform().windows);
  for (const std::string& act : options.acts) perform(form, act);
  desk.draw(options.picture, options.file);
}

void browse(const BrowseOptions& options) {
  const std::unique_ptr<Desk> desk = Desk::open(options.desk);
  if (!options.pdf.empty()) writePdf(desk->platform(), options);
  if (options.scripted() && options.picture.empty()) return;
  Class1 report(desk->platform());
  const bool asksForLandscape = options.landscape && !options.scripted();
  report.PreviewReportWindows({.Path1 = options.file,
                               .PL1 = asksForLandscape ? "L" : "",
                               .RPrint = options.lookOnly ? std::uint8_t{0} : std::uint8_t{1}});
  options.picture.empty() ? desk->run() : drawWindow(*desk, options);
}

std::string browserControls() {
  headless::Headless machine{std::filesystem::path()};
  return controlsToActOn(frmBrowser(machine.platform(), RunContext()));
}

}  // namespace

void addBrowse(CLI::App& app) {
  CLI::App* command =
      app.add_subcommand("browse", "Open an HTML report in a window to read and print it");
  const auto options = std::make_shared<BrowseOptions>();
  command->add_option("FILE.html", options->file, "HTML file")->required();
  CLI::Option* lookOnly = command->add_flag(
      "--look-only", options->lookOnly,
      "Offer no printing; adds to the file's end what takes the menu away in other browsers");
  command->add_flag("--landscape", options->landscape, "The report is for landscape paper");
  addPictureSize(*command, *options, addWindowOptions(*command, *options), {600, 400});
  command
      ->add_option("--pdf", options->pdf,
                   "Write the printed pages as PDF instead of opening a window; needs no display")
      ->type_name("OUT.pdf")
      ->excludes(lookOnly);
  command->footer([] {
    return "Examples:\n"
           "  paperway browse ledger.html\n"
           "  paperway browse ledger.html --landscape --pdf ledger.pdf\n"
           "Controls for --do:\n" +
           browserControls();
  });
  command->callback([options] {
    options->desk.screenless = !options->picture.empty() || !options->pdf.empty();
    forFile("show", options->file, [&] { browse(*options); });
  });
}

}  // namespace paperway::command
