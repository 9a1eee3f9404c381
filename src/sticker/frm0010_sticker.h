#pragma once

#include <functional>
#include <memory>

#include "controls/boxes.h"
#include "controls/buttons.h"
#include "controls/containers.h"
#include "controls/form.h"
#include "paperway/platform.h"
#include "paperway/run_context.h"
#include "preview/frm_report.h"
#include "sticker/sticker_preset.h"

namespace paperway {

/// The window in which a sticker is typed, its sheet set and shown. Presets are the user's, kept
/// under the program's name. A store that cannot be read or written is an AutomationError.
class Frm0010Sticker : public Form {
 public:
  /// `newReportWindow` makes a report window, not loaded yet.
  Frm0010Sticker(const Platform& platform, RunContext context,
                 std::function<std::shared_ptr<FrmReport>()> newReportWindow);

  void Form_Load() override;

  void OPss_Click(int index);
  void Op_Click(int index);
  void OPF_Click(int index);
  void TxNos_Change();
  void CmdSave_Click();
  void JeweledButton1_Click();
  void JBshow_Click();
  void CmdExit_Click();

  /// The boxes as they stand. The style is that of the selected option.
  StickerPreset preset() const;

 private:
  void arrange();
  void placePresets();
  void placeLines();
  void placeButtons();
  void placeSettings();
  void nameControls();
  void bind();
  void fitWidth();
  void tellSheet();
  void showSheet();
  std::string sheetText() const;

  Platform platform_;
  RunContext run_;
  std::function<std::shared_ptr<FrmReport>()> newReportWindow_;
  int fieldCount_ = 1;

 public:
  Label Label1{*this, "Label1", "Sticker Printing"};

  Frame Frame3{*this, "Frame3", "Setting"};
  ControlArray<OptionButton> OPss{*this, "OPss", {"1", "2", "3", "4", "5"}, &Frame3, 1};

  Frame Frame4{*this, "Frame4"};
  Label lb11{*this, "lb(11)", "1", &Frame4};
  Label lb7{*this, "lb(7)", "2", &Frame4};
  Label lb4{*this, "lb(4)", "3", &Frame4};
  Label lb6{*this, "lb(6)", "4", &Frame4};
  Label lb10{*this, "lb(10)", "5", &Frame4};
  ControlArray<TextBox> Atxt{*this, "Atxt", {"", "", "", "", ""}, &Frame4};
  Label lb0{*this, "lb(0)", "No of Sticker", &Frame4};
  TextBox TxNos{*this, "TxNos", "", &Frame4};
  Label lb2{*this, "lb(2)", "0", &Frame4};

  JeweledButton JeweledButton1{*this, "JeweledButton1", "Setting "};
  JeweledButton JBshow{*this, "JBshow", "S H O &W"};
  JeweledButton CmdExit{*this, "CmdExit", "    E &X I T"};
  Label LbSheet{*this, "LbSheet", ""};  // what the sheet will be

  Frame Frame1{*this, "Frame1", "Setting"};
  Frame Frame2{*this, "Frame2", "Max Feild", &Frame1};
  ControlArray<OptionButton> OPF{*this, "OPF", {"1", "2", "3", "4", "5"}, &Frame2, 1};
  Label lb9{*this, "lb(9)", "Max Feild Lenth", &Frame1};
  TextBox TxMaxFLenth{*this, "TxMaxFLenth", "", &Frame1};
  ControlArray<OptionButton> Op{
      *this, "Op", {"Normal    ( 80 Col )", "Cond.     (136 Col )"}, &Frame1};
  Label lb3{*this, "lb(3)", "Col", &Frame1};
  TextBox TxCol{*this, "TxCol", "", &Frame1};
  Label lb5{*this, "lb(5)", "Row", &Frame1};
  TextBox TxRow{*this, "TxRow", "", &Frame1};
  Label lb8{*this, "lb(8)", "SPace Between Col", &Frame1};
  TextBox TxSp{*this, "TxSp", "", &Frame1};
  Label lb1{*this, "lb(1)", "Blank Line", &Frame1};
  TextBox TxBlank{*this, "TxBlank", "", &Frame1};
  JeweledButton CmdSave{*this, "CmdSave", "Save Defult", &Frame1};
};

}  // namespace paperway
