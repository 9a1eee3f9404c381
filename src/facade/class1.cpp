#include "paperway/class1.h"

#include <exception>
#include <new>
#include <optional>

#include "controls/form.h"
#include "excel/excel_columns.h"
#include "excel/excel_export.h"
#include "excel/report_export.h"
#include "html/frm_browser.h"
#include "html/html_export.h"
#include "html/report_html.h"
#include "html/report_window_browser.h"
#include "html/report_window_html.h"
#include "html/salary_export.h"
#include "paperway/automation_error.h"
#include "paperway/platform/folders.h"
#include "paperway/platform/message_boxes.h"
#include "paperway/platform/printers.h"
#include "paperway/platform/windows.h"
#include "platform/system_utilities.h"
#include "preview/frm_report.h"
#include "printing/print_file.h"
#include "printing/print_panel.h"
#include "printing/set_orientation.h"
#include "report/layout.h"
#include "report/report_format.h"
#include "session/run_state.h"
#include "session/settings_store.h"
#include "sticker/frm0010_sticker.h"
#include "textreport/text_rpt.h"
#include "util/amounts.h"
#include "util/control_strings.h"
#include "util/path_text.h"
#include "util/revision.h"
#include "util/utilities.h"
#include "util/value_text.h"

namespace paperway {
namespace {

constexpr std::string_view kNoContextMenu = " <body onContextMenu='return false'> ";

std::string numberAndReason(const AutomationError& error) {
  return numberText(static_cast<double>(error.number())) + "\r\n" + error.description();
}

std::shared_ptr<FrmReport> newReportWindow(const Platform& platform, const RunContext& run) {
  auto form = std::make_shared<FrmReport>(platform, run);
  PrintPanel::bind(*form, platform);
  bindReportHtml(*form, platform);
  bindReportExport(*form, platform);
  bindBrowserWindow(*form, platform);
  return form;
}

}  // namespace

struct Class1::State {
  std::shared_ptr<ReportFormatTable> ReportFormat;  // none before Set_Repot_Format
  bool formatIsWhole = false;
  std::optional<AutomationError> lastFailure;
  DOSEFONTcHR font;
};

Class1::Class1(const Platform& platform, RunContext context)
    : Verson(kRevision),
      platform_(platform),
      run_(std::move(context)),
      state_(std::make_unique<State>()) {
  try {
    platform_.folders.work();
  } catch (const AutomationError&) {
    // A report needs no such folder; what does need it asks again, and fails then.
  }
}

Class1::~Class1() = default;

void Class1::Set_Repot_Format(Recordset& Rst) {
  state_->lastFailure.reset();
  state_->formatIsWhole = false;
  const auto tell = [this](const AutomationError& error) {
    state_->lastFailure = error;
    platform_.messageBox.show(numberAndReason(error));
  };
  try {
    readReportFormat(Rst, state_->ReportFormat);
    state_->formatIsWhole = true;
  } catch (const AutomationError& error) {
    tell(error);
  } catch (const std::bad_alloc&) {
    tell({AutomationError::kOutOfMemory, "Set_Repot_Format",
          "There is not enough memory for the column table."});
  } catch (const std::exception& error) {
    tell({AutomationError::kApplicationDefined, "Set_Repot_Format", error.what()});
  }
}

bool Class1::formatIsWhole() const {
  return state_->formatIsWhole;
}

const AutomationError* Class1::lastFailure() const {
  return state_->lastFailure ? &*state_->lastFailure : nullptr;
}

PreviewReportArguments PreviewReportArguments::withEverything(std::string path) {
  return {.Path1 = std::move(path),
          .RCont = 1,
          .REdit = 1,
          .RSearch = 1,
          .RImport = 1,
          .RExport = 1,
          .RColor = 1,
          .RPrint = 1};
}

void Class1::Text_Rpt(TextRptArguments& arguments) {
  state_->lastFailure.reset();
  try {
    writeTextReport(arguments, state_->ReportFormat, state_->font, platform_.storage);
  } catch (const MissingGroupField& missing) {
    state_->lastFailure = missing;
    platform_.messageBox.show(" Please Check for RecordSet \r\n" + missing.field() +
                              "\r\n Not found ");
    return;
  }
  if (arguments.Preview1 == 0) return;
  PreviewReport(PreviewReportArguments::withEverything(arguments.TextFileName));
}

std::string Class1::TxtL(std::string_view DispField, std::int16_t sp1) {
  return paperway::TxtL(DispField, sp1);
}

std::string Class1::TxtR(std::string_view DispField, std::int16_t sp1) {
  return paperway::TxtR(DispField, sp1);
}

std::string Class1::StrCenter(std::string_view strTxt, std::uint8_t maxlen) {
  return paperway::StrCenter(strTxt, maxlen);
}

std::string Class1::Print_line(std::int16_t Start_pos, std::string_view Print_str,
                               std::string_view Data_str) {
  return paperway::Print_line(Start_pos, Print_str, Data_str);
}

void Class1::PreviewReport(PreviewReportArguments& arguments) {
  state_->lastFailure.reset();
  RunState& state = *run_;
  state.ModPagelenth = Pagelenth;
  state.ModPrinterName = PrinterName;
  state.ModCc17 = arguments.cc17;
  state.ModCc12 = arguments.cc12;
  if (arguments.DirectPrint == 1) return printDirectly(arguments);
  state.ModRCont = arguments.RCont;
  state.ModREdit = arguments.REdit;
  state.ModRSearch = arguments.RSearch;
  state.ModRImport = arguments.RImport;
  state.ModRExport = arguments.RExport;
  state.ModRColor = arguments.RColor;
  state.ModRPrint = arguments.RPrint;
  state.ModPath1 = pathOf(arguments.Path1);
  const auto form = newReportWindow(platform_, run_);
  form->load();
  platform_.windows.show(form);
}

void Class1::printDirectly(PreviewReportArguments& arguments) {
  RunState& state = *run_;
  arguments.Tear = arguments.Tear == 1 ? 1 : 0;
  if (state.ModPrinterName.empty()) state.ModPrinterName = platform_.printers.current();
  PrintFileArguments print{.fileName = pathOf(arguments.Path1),
                           .printerName = state.ModPrinterName,
                           .paperHeight = state.ModPagelenth,
                           .draft = true,
                           .cond = arguments.cc17,
                           .semiCond = arguments.cc12,
                           .copies = 1,
                           .tear = arguments.Tear};
  try {
    PrintFile(print, platform_, *run_);
  } catch (const AutomationError& error) {
    state_->lastFailure = error;
    showPrintFailure(platform_.messageBox, error);
  }
}

void Class1::PreviewReportWindows(PreviewReportWindowsArguments& arguments) {
  state_->lastFailure.reset();
  requireBrowser(platform_.browser);
  if (arguments.RPrint == 0) Appendtxt(arguments.Path1, kNoContextMenu);
  showBrowser(platform_, run_, pathOf(arguments.Path1), arguments.PL1, arguments.RPrint);
}

bool Class1::RtWindows1() const {
  return run_->ModWindowOpen;
}

void Class1::Set_Orientation(std::string_view PL, std::int16_t Page_Sz) {
  state_->lastFailure.reset();
  try {
    paperway::Set_Orientation(PL, Page_Sz, platform_.printers);
  } catch (const NoPrinterSettings& error) {
    state_->lastFailure = error;
    platform_.messageBox.show(error.description());
  }
}

void Class1::expHTml(const std::string& TxtFile, const std::string& NewHtmlFile) {
  constexpr const char* kSource = "expHTml";
  const ReportViewSettings settings(platform_.storage,
                                    settingsPath(platform_.folders, run_->ModGuidComp));
  convertReport({.report = pathOf(TxtFile),
                 .html = pathOf(NewHtmlFile),
                 .colors = storedTextColors(settings, kSource),
                 .caller = kSource},
                state_->font, platform_.storage);
  platform_.messageBox.show(kExportComplete);
}

template <class Arguments>
void Class1::previewExport(const Arguments& arguments) {
  if (arguments.Preview1 != 1) return;
  PreviewReportWindows({.Path1 = arguments.HTML_FileName, .PL1 = arguments.PortraitLansscape});
}

void Class1::HTML_Export(HtmlExportArguments& arguments) {
  if (writeHtmlExport(arguments, state_->ReportFormat, platform_)) previewExport(arguments);
}

void Class1::HTML_Export_Salary(HtmlExportSalaryArguments& arguments) {
  try {
    paperway::Set_Orientation(arguments.PortraitLansscape, arguments.Page_Size, platform_.printers);
  } catch (const NoPrinterSettings&) {
    // The pages are made for the paper that the printer has.
  }
  if (writeSalaryExport(arguments, state_->ReportFormat, platform_)) previewExport(arguments);
}

void Class1::Excel_Export(ExcelExportArguments& arguments) {
  if (writeExcelExport(arguments, state_->ReportFormat, platform_)) return;
  platform_.messageBox.show(" Please Enter File Name ");
}

std::string Class1::GetExcelCol(std::int32_t col) {
  return paperway::GetExcelCol(col);
}

void Class1::StickerPrint() {
  std::shared_ptr<Form> form = run_->ModStickerForm.lock();
  if (form == nullptr || !form->loaded()) {
    form = std::make_shared<Frm0010Sticker>(platform_, run_, [platform = platform_, run = run_] {
      return newReportWindow(platform, run);
    });
    form->load();
    run_->ModStickerForm = form;
  }
  platform_.windows.show(form);
}

std::string Class1::ReadIniValue(const std::string& INIpath, std::string_view KEY,
                                 std::string_view Variable, std::string_view DefultVal) {
  return paperway::ReadIniValue(platform_.storage, pathOf(INIpath), KEY, Variable, DefultVal);
}

void Class1::WriteIniValue(const std::string& INIpath, std::string_view PutKey,
                           std::string_view PutVariable, std::string_view PutValue) {
  paperway::WriteIniValue(platform_.storage, pathOf(INIpath), PutKey, PutVariable, PutValue);
}

void Class1::Guid_comp1(std::string Guid_comp1) {
  run_->ModGuidComp = std::move(Guid_comp1);
}

std::string Class1::NumToText(double Num) {
  return paperway::NumToText(Num);
}

float Class1::Desi(double Kk) {
  return paperway::Desi(Kk);
}

Value Class1::round_curr(ValueView currValue) {
  return paperway::round_curr(currValue);
}

std::string Class1::MonName(std::uint8_t Mon) {
  return paperway::MonName(Mon);
}

std::int16_t Class1::OnlyNum(std::int16_t KEY) {
  return paperway::OnlyNum(KEY);
}

void Class1::cent_scr(Geometry& pform) {
  centreOnScreen(pform, platform_.windows.screen());
}

std::string Class1::ShowShortPath(ValueView filespec) {
  return paperway::ShowShortPath(files(), filespec);
}

std::string Class1::UNIQFile() {
  return paperway::UNIQFile(platform_.clock);
}

std::string Class1::ReverseName(std::string_view str) {
  return paperway::ReverseName(str);
}

std::string Class1::ParseFileName(std::string_view PstrFileIn, std::uint8_t NoExtention) {
  return paperway::ParseFileName(PstrFileIn, NoExtention);
}

std::string Class1::EncryptText(std::string_view strText, std::string_view strPwd) {
  return paperway::EncryptText(strText, strPwd);
}

std::string Class1::DecryptText(std::string_view strText, std::string_view strPwd) {
  return paperway::DecryptText(strText, strPwd);
}

std::string Class1::TempFile() {
  return paperway::TempFile(files());
}

std::string Class1::TempFolder() {
  return paperway::TempFolder(files());
}

std::uint8_t Class1::RgbR(std::int32_t Colr) {
  return paperway::RgbR(Colr);
}

std::uint8_t Class1::RgbG(std::int32_t Colr) {
  return paperway::RgbG(Colr);
}

std::uint8_t Class1::RgbB(std::int32_t Colr) {
  return paperway::RgbB(Colr);
}

double Class1::MaximumValue(std::initializer_list<ValueView> Val) {
  return paperway::MaximumValue(Val);
}

double Class1::MaximumValue(std::span<const ValueView> Val) {
  return paperway::MaximumValue(Val);
}

double Class1::MinimamValue(std::initializer_list<ValueView> Val) {
  return paperway::MinimamValue(Val);
}

double Class1::MinimamValue(std::span<const ValueView> Val) {
  return paperway::MinimamValue(Val);
}

std::string Class1::Get_CoputerName() {
  return paperway::Get_CoputerName(platform_.names);
}

std::string Class1::Get_UserName() {
  return paperway::Get_UserName(platform_.names);
}

bool Class1::DirExists(const std::string& OrigFile) {
  return paperway::DirExists(files(), OrigFile);
}

void Class1::Appendtxt(const std::string& FileName, std::string_view Text) {
  paperway::Appendtxt(files(), FileName, Text);
}

std::uint8_t Class1::FileCompare_DateLastModified(const std::string& f1, const std::string& f2) {
  return paperway::FileCompare_DateLastModified(files(), f1, f2);
}

std::string Class1::UniToHex(ValueView strSource) {
  return paperway::UniToHex(strSource);
}

std::string Class1::Allow_Only_azAZ_01(std::string_view STr1) {
  return paperway::Allow_Only_azAZ_01(STr1);
}

FileSystem& Class1::files() {
  if (scr1 == nullptr) scr1 = &platform_.files;
  return *scr1;
}

}  // namespace paperway
