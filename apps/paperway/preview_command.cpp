#include <algorithm>
#include <memory>
#include <stdexcept>
#include <vector>

#include "apps/paperway/acts.h"
#include "apps/paperway/commands.h"
#include "apps/paperway/desk.h"
#include "apps/paperway/machine.h"
#include "apps/paperway/window_options.h"
#include "paperway/class1.h"
#include "preview/frm_report.h"
#include "printing/print_panel.h"

namespace paperway::command {
namespace {

struct PreviewOptions : WindowOptions {
  std::string file;
  PreviewReportArguments arguments;
  int page = 1;
  int paper = kUsualPaper;
  std::string company;
};

void addSwitch(CLI::App& command, const std::string& name, std::uint8_t& feature,
               const std::string& help) {
  command.add_flag_callback(
      name, [&feature] { feature = 0; }, help);
}

void addSwitches(CLI::App& command, PreviewReportArguments& arguments) {
  addSwitch(command, "--no-edit", arguments.REdit, "Leave out the editing of pages");
  addSwitch(command, "--no-search", arguments.RSearch, "Leave out the search");
  addSwitch(command, "--no-import", arguments.RImport, "Leave out the opening of other files");
  addSwitch(command, "--no-export", arguments.RExport, "Leave out the workbook export");
  addSwitch(command, "--no-color", arguments.RColor, "Leave out the settings");
  addSwitch(command, "--no-print", arguments.RPrint, "Leave out printing");
  addSwitch(command, "--no-continuous", arguments.RCont, "Leave out the view of all pages in one");
}

void goTo(FrmReport& form, int page) {
  if (page > form.PageCount()) {
    throw std::runtime_error(form.ReportPath.string() + " has " + std::to_string(form.PageCount()) +
                             " pages, not " + std::to_string(page) + ".");
  }
  form.Text2.Text = std::to_string(page);
  int key = keyReturn;
  form.Text2_KeyPress(key);
  form.Text2.Text = "";
  // The box leaves these to the buttons, which nobody has pressed yet.
  form.LBPage.Caption = std::to_string(page);
  form.CmdBck.Enabled = page > 1;
  form.CmdNxt.Enabled = page < form.PageCount();
}

/// The controls of the report window that --do can act on.
std::string controlsOfWindow() {
  Machine machine;
  FrmReport form(machine.platform(), RunContext());
  PrintPanel::bind(form, machine.platform());
  return controlsToActOn(form);
}

void preview(const PreviewOptions& options) {
  const std::unique_ptr<Desk> desk = Desk::open(options.desk);
  Class1 report(desk->platform());
  report.Guid_comp1(options.company);
  report.Pagelenth = static_cast<std::uint8_t>(options.paper);
  PreviewReportArguments arguments = options.arguments;
  arguments.Path1 = options.file;
  report.PreviewReport(arguments);
  auto& form = dynamic_cast<FrmReport&>(desk->form());
  if (options.page != 1) goTo(form, options.page);
  if (options.picture.empty()) {
    desk->run();
    return;
  }
  if (!options.size.empty()) {
    desk->resize(options.size[0], options.size[1]);
  }
  for (const std::string& act : options.acts) perform(form, act);
  desk->draw(options.picture, options.file);
}

}  // namespace

void read(Desk& desk, const std::string& report) {
  Class1 window(desk.platform());
  window.Pagelenth = kUsualPaper;
  window.PreviewReport(PreviewReportArguments::withEverything(report));
  desk.run();
}

void addPreview(CLI::App& app) {
  CLI::App* command = app.add_subcommand("preview", "Open a report in a window to read it");
  const auto options = std::make_shared<PreviewOptions>();
  PreviewReportArguments& arguments = options->arguments;
  arguments = PreviewReportArguments::withEverything("");
  command->add_option("FILE", options->file, "Report file, or any text file")->required();
  command->add_option("--page", options->page, "Begin with this page")
      ->type_name("N")
      ->check(CLI::PositiveNumber);
  command->add_option("--paper", options->paper, "Height of the paper that the print panel offers")
      ->type_name("INCHES")
      ->check(CLI::Range(1, 22))
      ->capture_default_str();
  command
      ->add_option("--company", options->company,
                   "Company or installation number whose settings hold")
      ->type_name("N");
  addSwitches(*command, arguments);
  addPictureSize(*command, *options, addWindowOptions(*command, *options), {960, 480});
  command->footer([] {
    return "Examples:\n"
           "  paperway preview ledger.txt\n"
           "  paperway preview ledger.txt --no-print --page 3\n"
           "  paperway preview ledger.txt --picture page3.png --page 3 --scale 2\n"
           "Controls for --do:\n" +
           controlsOfWindow();
  });
  command->callback([options] {
    options->desk.screenless = !options->picture.empty();
    forFile("show", options->file, [&] { preview(*options); });
  });
}

}  // namespace paperway::command
