#include "sticker/frm0010_sticker.h"

#include <cmath>
#include <new>

#include "paperway/automation_error.h"
#include "paperway/platform/message_boxes.h"
#include "paperway/platform/system_names.h"
#include "paperway/platform/windows.h"
#include "platform/output_file.h"
#include "platform/system_utilities.h"
#include "session/run_state.h"
#include "util/format_pattern.h"
#include "util/numbers.h"
#include "util/path_text.h"
#include "util/value_text.h"

namespace paperway {
namespace {

constexpr int kMargin = 75;     // on each side of Frame4
constexpr int kUsualPaper = 6;  // inches
constexpr int kLinesPerInch = 6;
constexpr int kNormalColumns = 80;
constexpr int kCondensedColumns = 136;

constexpr std::int64_t kMostShown = std::int64_t{1} << 30;  // bytes

std::string grouped(std::int64_t number) {
  return FormatPattern("#,##0")(ValueView(number));
}

/// "1 sticker", "1,000 stickers".
std::string counted(std::int64_t number, const char* one, const char* many) {
  return grouped(number) + " " + (number == 1 ? one : many);
}

/// The caption that shows the text, an "&" of the user's too.
std::string captionOf(std::string_view text) {
  std::string caption;
  for (const char c : text) caption += c == '&' ? std::string("&&") : std::string(1, c);
  return caption;
}

void requireShowable(const StickerShape& shape) {
  if (shape.height() <= kMostShown / (shape.width() + 2)) return;
  throw AutomationError(
      AutomationError::kOverflow, "StickerPrint",
      "The sheet would have " + counted(shape.width(), "character", "characters") + " by " +
          counted(shape.height(), "line", "lines") + ", which is more than can be shown.");
}

}  // namespace

Frm0010Sticker::Frm0010Sticker(const Platform& platform, RunContext context,
                               std::function<std::shared_ptr<FrmReport>()> newReportWindow)
    : Form("Frm0010Sticker"),
      platform_(platform),
      run_(std::move(context)),
      newReportWindow_(std::move(newReportWindow)) {
  Caption = "Sticker Printing";
  Sizable = false;
  Frame1.Visible = false;
  Op[0].Value.setQuietly(true);
  nameControls();
  arrange();
  bind();
}

void Frm0010Sticker::bind() {
  for (int i = OPss.LBound(); i <= OPss.UBound(); ++i)
    OPss[i].onClick = [this, i] { OPss_Click(i); };
  for (int i = OPF.LBound(); i <= OPF.UBound(); ++i) OPF[i].onClick = [this, i] { OPF_Click(i); };
  for (int i = Op.LBound(); i <= Op.UBound(); ++i) Op[i].onClick = [this, i] { Op_Click(i); };
  for (TextBox* box : {&TxMaxFLenth, &TxCol, &TxRow, &TxSp, &TxBlank}) {
    box->onChange = [this] { tellSheet(); };
  }
  TxNos.onChange = [this] { TxNos_Change(); };
  CmdSave.onClick = [this] { CmdSave_Click(); };
  JeweledButton1.onClick = [this] { JeweledButton1_Click(); };
  JBshow.onClick = [this] { JBshow_Click(); };
  CmdExit.onClick = [this] { CmdExit_Click(); };
}

void Frm0010Sticker::Form_Load() {
  centreOnScreen(*this, platform_.windows.screen());
  OPss[1].Value = true;
  OPss[1].Tag = "1";
  // Whatever the preset has selected: this is what CmdSave keeps until the user chooses a style.
  Op[0].Tag = "1";
  Op_Click(1);
  fitWidth();
}

void Frm0010Sticker::OPss_Click(int index) {
  OPss[1].Tag = std::to_string(index);
  const StickerPreset kept =
      StickerPreset::load(platform_.userStore, platform_.names.programName(), index);
  TxSp.Text = kept.space;
  TxCol.Text = kept.columns;
  TxRow.Text = kept.rows;
  TxBlank.Text = kept.blankLines;
  TxMaxFLenth.Text = kept.length;
  Op[kept.style].Value = true;
  OPF[kept.fields].Value = true;
  fieldCount_ = kept.fields;
  for (int i = Atxt.LBound(); i <= Atxt.UBound(); ++i) {
    Atxt[i].Text = kept.lines[static_cast<std::size_t>(i)];
  }
  tellSheet();
}

void Frm0010Sticker::Op_Click(int index) {
  Op[0].Tag = std::to_string(index);
  tellSheet();
}

void Frm0010Sticker::OPF_Click(int index) {
  for (OptionButton& option : OPF) option.Font.Bold = false;
  OPF[index].Font.Bold = true;
  fieldCount_ = index;
  tellSheet();
}

/// The count is rounded down to full rows.
void Frm0010Sticker::TxNos_Change() {
  const double columns = leadingNumber(TxCol.Text.get());
  if (columns == 0) {
    lb2.Caption = "0";
    return;
  }
  const double rows = std::floor(leadingNumber(TxNos.Text.get()) / columns);
  TxRow.Text = defaultText(rows);
  lb2.Caption = defaultText(rows * columns);
}

StickerPreset Frm0010Sticker::preset() const {
  StickerPreset typed{.space = TxSp.Text,
                      .columns = TxCol.Text,
                      .rows = TxRow.Text,
                      .blankLines = TxBlank.Text,
                      .length = TxMaxFLenth.Text,
                      .fields = fieldCount_,
                      .style = Op[0].Value ? 0 : 1,
                      .lines = {}};
  for (int i = Atxt.LBound(); i <= Atxt.UBound(); ++i) {
    typed.lines[static_cast<std::size_t>(i)] = Atxt[i].Text;
  }
  return typed;
}

void Frm0010Sticker::CmdSave_Click() {
  StickerPreset kept = preset();
  kept.style = Op[0].Tag == "0" ? 0 : 1;
  kept.save(platform_.userStore, platform_.names.programName(), std::stoi(OPss[1].Tag));
}

void Frm0010Sticker::JeweledButton1_Click() {
  Frame1.Visible = !Frame1.Visible;
  fitWidth();
}

void Frm0010Sticker::fitWidth() {
  Width = Frame4.Width + (Frame1.Visible ? Frame1.Width : 0) + 2 * kMargin;
}

void Frm0010Sticker::JBshow_Click() {
  const auto tell = [this](const char* failure) {
    platform_.messageBox.show(failure, Caption, MessageBoxes::Buttons::ok,
                              MessageBoxes::Icon::information);
  };
  try {
    showSheet();
  } catch (const AutomationError& error) {
    tell(error.description());
  } catch (const std::bad_alloc&) {
    tell("There is not enough memory to show the sheet.");
  }
}

void Frm0010Sticker::showSheet() {
  const StickerPreset typed = preset();
  const StickerShape shape = typed.shape();
  requireShowable(shape);
  const std::filesystem::path path = pathOf(TempFile(platform_.files));
  OutputFile file(platform_.storage, path, "StickerPrint", {.lasting = false});
  writeStickerSheet(shape, typed.lines, [&file](std::string_view bytes) { file.write(bytes); });
  file.commit();

  auto window = std::dynamic_pointer_cast<FrmReport>(run_->ModReportForm.lock());
  if (window != nullptr && window->loaded()) {
    window->open(path);
  } else {
    run_->ModPath1 = path;
    window = newReportWindow_();
    window->load();
    run_->ModReportForm = window;
  }
  platform_.windows.show(window);
}

void Frm0010Sticker::CmdExit_Click() {
  unload();
}

void Frm0010Sticker::tellSheet() {
  LbSheet.Caption = captionOf(sheetText());
}

std::string Frm0010Sticker::sheetText() const {
  StickerShape shape;
  try {
    shape = preset().shape();
  } catch (const AutomationError& error) {
    return error.description();
  }
  const int inches = run_->ModPagelenth == 0 ? kUsualPaper : run_->ModPagelenth;
  const int columns = shape.condensed ? kCondensedColumns : kNormalColumns;
  return grouped(shape.width()) + " of " + std::to_string(columns) + " characters, " +
         grouped(shape.height()) + " of " + std::to_string(inches * kLinesPerInch) + " lines (" +
         counted(inches, "inch", "inches") + "), " +
         counted(shape.stickers(), "sticker", "stickers");
}

// --- where the controls stand, in twips

void Frm0010Sticker::nameControls() {
  for (int i = Atxt.LBound(); i <= Atxt.UBound(); ++i) {
    Atxt[i].AccessibleName = "Sticker line " + std::to_string(i + 1);
  }
  for (int i = OPss.LBound(); i <= OPss.UBound(); ++i) {
    OPss[i].AccessibleName = "Setting " + std::to_string(i);
    OPF[i].AccessibleName = "Lines of a sticker: " + std::to_string(i);
  }
  Frame4.AccessibleName = "Sticker";
  TxNos.AccessibleName = captionText(lb0.Caption);
  lb2.AccessibleName = "Stickers on the sheet";
  LbSheet.AccessibleName = "Sheet";
  TxMaxFLenth.AccessibleName = captionText(lb9.Caption);
  TxCol.AccessibleName = captionText(lb3.Caption);
  TxRow.AccessibleName = captionText(lb5.Caption);
  TxSp.AccessibleName = captionText(lb8.Caption);
  TxBlank.AccessibleName = captionText(lb1.Caption);
  JBshow.ToolTipText = "Display Page Wise  Print View ";
  CmdExit.ToolTipText = "Return to Main Menu";
}

namespace {

constexpr int kBox = 330;
constexpr int kPitch = 420;
constexpr int kButton = 420;
constexpr int kColumn = 6300;  // width of Frame4
constexpr int kFrameTop = 720;
constexpr int kLinesTop = 1620;
constexpr int kButtonsTop = 4635;

}  // namespace

void Frm0010Sticker::arrange() {
  Height = 5970;
  place(Label1, kMargin, 120, kColumn, 480);
  Label1.Font.Size = 16;
  Label1.Font.Bold = true;
  Label1.TextAlignment = Alignment::center;
  placePresets();
  placeLines();
  placeButtons();
  placeSettings();
  fitWidth();
}

void Frm0010Sticker::placePresets() {
  place(Frame3, kMargin, kFrameTop, kColumn, 810);
  int left = 240;
  for (OptionButton& option : OPss) {
    place(option, left, 330, 900, kBox);
    left += 1200;
  }
}

void Frm0010Sticker::placeLines() {
  place(Frame4, kMargin, kLinesTop, kColumn, 2880);
  int top = 180;
  const std::array<Label*, kStickerLines> numbers{&lb11, &lb7, &lb4, &lb6, &lb10};
  for (int i = 0; i < kStickerLines; ++i) {
    place(*numbers[static_cast<std::size_t>(i)], 240, top, 300, kBox);
    place(Atxt[i], 600, top, kColumn - 840, kBox);
    top += kPitch;
  }
  top += 105;
  place(lb0, 240, top, 1500, kBox);
  place(TxNos, 1860, top, 900, kBox);
  place(lb2, 2940, top, 1800, kBox);
}

void Frm0010Sticker::placeButtons() {
  place(JeweledButton1, kMargin, kButtonsTop, 1500, kButton);
  place(JBshow, kMargin + kColumn - 3120, kButtonsTop, 1500, kButton);
  place(CmdExit, kMargin + kColumn - 1500, kButtonsTop, 1500, kButton);
  place(LbSheet, kMargin, kButtonsTop + 555, kColumn, 660);
}

void Frm0010Sticker::placeSettings() {
  constexpr int kLabelLeft = 240;
  constexpr int kLabelWidth = 2100;
  constexpr int kBoxLeft = 2460;
  place(Frame1, kMargin + kColumn + 30, kFrameTop, 4350, 4335);
  place(Frame2, kLabelLeft, 330, 3870, 810);
  int left = 120;
  for (OptionButton& option : OPF) {
    place(option, left, 330, 720, kBox);
    left += 735;
  }
  int top = 1260;
  const auto row = [&](Label& label, TextBox& box) {
    place(label, kLabelLeft, top, kLabelWidth, kBox);
    place(box, kBoxLeft, top, 900, kBox);
    top += kPitch;
  };
  row(lb9, TxMaxFLenth);
  row(lb3, TxCol);
  row(lb5, TxRow);
  row(lb8, TxSp);
  row(lb1, TxBlank);
  for (OptionButton& option : Op) {
    place(option, kLabelLeft, top, 2100, kBox);
    top += 375;
  }
  place(CmdSave, 2610, top - kButton - 30, 1500, kButton);
}

}  // namespace paperway
