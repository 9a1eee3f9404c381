#include <memory>
#include <optional>
#include <stdexcept>
#include <vector>

#include "apps/paperway/acts.h"
#include "apps/paperway/commands.h"
#include "apps/paperway/desk.h"
#include "apps/paperway/machine.h"
#include "apps/paperway/progress.h"
#include "apps/paperway/source.h"
#include "apps/paperway/visible.h"
#include "apps/paperway/window_options.h"
#include "controls/form.h"
#include "paperway/class1.h"
#include "paperway/memory.h"
#include "paperway/platform/folders.h"
#include "paperway/platform/system_names.h"
#include "platform/output_file.h"
#include "session/run_state.h"
#include "sticker/frm0010_sticker.h"
#include "sticker/sticker_preset.h"
#include "sticker/sticker_rows.h"
#include "util/path_text.h"
#include "util/text.h"

namespace paperway::command {
namespace {

struct StickerOptions : WindowOptions {
  Source source;
  std::string data;
  std::optional<int> preset;
  std::optional<int> savePreset;
  std::vector<std::string> lines;
  std::optional<int> length, gap, columns, rows, blank;
  bool condensed = false;
  bool normal = false;
  std::int64_t copies = 1;
  std::string out;
  bool preview = false;

  bool fromRows() const { return !data.empty(); }
  bool opensForm() const { return out.empty() && !savePreset; }
  /// What the window would not hear of.
  bool describesSheet() const {
    return !lines.empty() || length || gap || columns || rows || blank || condensed || normal;
  }
  bool opensWindow() const { return opensForm() || preview; }
};

/// The preset, or the one of a first start, with what the options say instead.
StickerPreset presetOf(const StickerOptions& options, const Platform& machine) {
  StickerPreset preset{.columns = "4", .length = "20"};
  if (options.preset) {
    preset = StickerPreset::load(machine.userStore, machine.names.programName(), *options.preset);
  }
  const auto take = [](std::string& text, const std::optional<int>& number) {
    if (number) text = std::to_string(*number);
  };
  take(preset.length, options.length);
  take(preset.space, options.gap);
  take(preset.columns, options.columns);
  take(preset.rows, options.rows);
  take(preset.blankLines, options.blank);
  if (options.condensed || options.normal) preset.style = options.condensed ? 1 : 0;
  if (options.lines.empty()) return preset;
  preset.fields = static_cast<int>(options.lines.size());
  preset.lines = {};
  std::copy(options.lines.begin(), options.lines.end(), preset.lines.begin());
  return preset;
}

/// A control character would tear the sheet, or command the printer.
void requirePrintable(const std::vector<std::string>& lines) {
  for (const std::string& line : lines) {
    if (validUtf8Length(line) != line.size()) {
      throw CLI::ValidationError("--line", "\"" + visible(line) + "\" is not UTF-8 text");
    }
    if (holdsControls(line)) {
      throw CLI::ValidationError("--line", "\"" + visible(line) + "\" holds a control character");
    }
  }
}

void writeFromRows(const StickerOptions& options, const StickerPreset& preset, Machine& machine) {
  Progress progress;
  const auto rows = options.source.rows(options.data);
  const std::vector<std::string> lines(preset.lines.begin(), preset.lines.begin() + preset.fields);
  writeStickers({.Rs = *rows,
                 .file = options.out == "-" ? "/dev/stdout" : pathOf(options.out),
                 .shape = preset.shape(),
                 .lines = lines,
                 .copies = options.copies,
                 .onProgress = [&](const ReportProgress& done) { progress.tell(done); }},
                machine.platform().storage);
  progress.finish(options.out);
}

void writeOneSheet(const StickerOptions& options, const StickerPreset& preset, Machine& machine) {
  const StickerShape shape = preset.shape();
  Progress progress;  // nothing to be told of, but a request to stop is heard
  OutputFile file(machine.platform().storage,
                  options.out == "-" ? "/dev/stdout" : pathOf(options.out), "stickers");
  writeStickerSheet(shape, preset.lines, [&](std::string_view bytes) {
    file.write(bytes);
    progress.tell({});
  });
  file.commit();
}

void writeStickers(const StickerOptions& options) {
  Machine machine;
  const Platform platform = machine.platform();
  const StickerPreset preset = presetOf(options, platform);
  preset.shape();  // what no sheet can be is not kept either
  if (options.fromRows()) {
    writeFromRows(options, preset, machine);
  } else if (!options.out.empty()) {
    writeOneSheet(options, preset, machine);
  }
  if (!options.savePreset) return;  // which is not kept for a sheet that could not be written
  preset.save(platform.userStore, platform.names.programName(), *options.savePreset);
}

/// The sheets that the form makes are shown with everything on offer.
void openForm(const StickerOptions& options) {
  const std::unique_ptr<Desk> desk = Desk::open(options.desk);
  RunState& state = runState();
  state.ModPagelenth = kUsualPaper;
  state.ModRCont = state.ModREdit = state.ModRSearch = state.ModRImport = 1;
  state.ModRExport = state.ModRColor = state.ModRPrint = 1;
  Class1 stickers(desk->platform());
  stickers.StickerPrint();
  if (options.preset) desk->form().click("OPss(" + std::to_string(*options.preset) + ")");
  if (options.picture.empty()) return desk->run();
  for (const std::string& act : options.acts) perform(desk->form(), act);
  desk->draw(options.picture, {});
}

/// The controls of the window that --do can act on.
std::string controlsOfWindow() {
  Machine machine;
  return controlsToActOn(Frm0010Sticker(machine.platform(), RunContext(), {}));
}

/// What stands on a sheet, and how; gives --save-preset.
CLI::Option* addSheet(CLI::App& command, StickerOptions& options) {
  const auto number = [&](const char* name, std::optional<int>& value, const char* help, int least,
                          int most) {
    return command.add_option(name, value, help)->type_name("N")->check(CLI::Range(least, most));
  };
  command
      .add_option("--line", options.lines,
                  "A line of the sticker; up to five times. With --data, {field} stands for the "
                  "field of the row, {field:pattern} for the field in a format pattern")
      ->type_name("TEXT")
      ->expected(1)
      ->allow_extra_args(false)
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
  number("--preset", options.preset, "Begin with the preset of this number", 1, kStickerPresets);
  CLI::Option* savePreset =
      number("--save-preset", options.savePreset,
             "Keep what is said here under this number, for the window too", 1, kStickerPresets);
  number("--length", options.length, "Width of a sticker in characters; 20 without a preset", 0,
         255);
  number("--gap", options.gap, "Blanks behind each sticker; 3 without a preset", 0, 32767);
  number("--columns", options.columns, "Stickers side by side; 4 without a preset", 0, 255);
  number("--rows", options.rows, "Rows of stickers on a sheet; 12 without a preset", 0, 32767);
  number("--blank", options.blank, "Blank lines between rows, less one; 3 without a preset", 0,
         32767);
  CLI::Option* condensed = command.add_flag("--condensed", options.condensed,
                                            "Condensed print, 136 columns to the line");
  command
      .add_flag("--normal", options.normal,
                "Normal print, 80 columns to the line, where a preset says otherwise")
      ->excludes(condensed);
  return savePreset;
}

/// Where it comes from and where it goes.
void addRowsAndTargets(CLI::App& command, StickerOptions& options, CLI::Option* savePreset) {
  options.source.addOptions(command);
  CLI::Option* data =
      command.add_option("--data", options.data, "Query whose rows make one sticker each");
  data->type_name("SELECT");
  command.add_option("--copies", options.copies, "Print each row's sticker so often")
      ->type_name("N")
      ->check(CLI::Range(std::int64_t{1}, std::int64_t{1'000'000}))
      ->needs(data);
  CLI::Option* out =
      command.add_option("--out", options.out, "File to write; - is standard output");
  out->type_name("FILE");
  command.add_flag("--preview", options.preview, "Open the finished sheets in a window")
      ->needs(out);
  addWindowOptions(command, options)->excludes(out)->excludes(savePreset);
  data->needs(out);
}

void check(const StickerOptions& options) {
  if (options.lines.size() > kStickerLines) {
    throw CLI::ValidationError("--line", "at most five lines");
  }
  requirePrintable(options.lines);
  if (options.preview && options.out == "-") {
    throw CLI::ValidationError("--preview",
                               "standard output cannot be read again; give --out a file");
  }
  if (options.opensForm() && options.describesSheet()) {
    throw CLI::RequiredError("--out or --save-preset");
  }
  if (!options.fromRows() && (!options.source.db.empty() || !options.source.odbc.empty())) {
    throw CLI::RequiredError("--data");
  }
  if (options.desk.dark && !options.opensWindow()) {
    throw CLI::ValidationError("--dark", "no window opens; --preview would open one");
  }
}

}  // namespace

void addStickers(CLI::App& app) {
  CLI::App* command = app.add_subcommand(
      "stickers", "Write sheets of stickers, from one text or from rows, or open their window");
  const auto options = std::make_shared<StickerOptions>();
  addRowsAndTargets(*command, *options, addSheet(*command, *options));
  command->footer([] {
    return "Examples:\n"
           "  paperway stickers\n"
           "  paperway stickers --line \"Ledger 2026\" --line \"Shelf 7\" --out shelf.txt "
           "--preview\n"
           "  paperway stickers --db ledger.db --data \"SELECT * FROM sales\" \\\n"
           "    --line \"{customer}\" --line \"{amount:#,##0.00}\" --copies 2 --out labels.txt\n"
           "Controls for --do:\n" +
           controlsOfWindow();
  });
  command->callback([options] {
    check(*options);
    options->desk.screenless = !options->picture.empty();
    if (options->opensForm()) return openForm(*options);
    const std::unique_ptr<Desk> desk = options->preview ? Desk::open(options->desk) : nullptr;
    forFile("write", options->out, [&] { writeStickers(*options); });
    if (desk != nullptr) read(*desk, options->out);
  });
}

}  // namespace paperway::command
