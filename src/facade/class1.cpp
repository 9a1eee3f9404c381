#include "facade/class1.h"

#include <exception>

#include "facade/run_state.h"
#include "platform/folders.h"
#include "platform/message_box.h"
#include "textreport/layout.h"
#include "util/automation_error.h"

namespace paperway {
namespace {

constexpr std::int16_t kRevision = 1;

void showFailure(MessageBox& messageBox, long number, const char* description) {
  messageBox.show(numberText(static_cast<double>(number)) + "\r\n" + description);
}

}  // namespace

Class1::Class1(const Platform& platform) : Verson(kRevision), platform_(platform) {
  platform_.folders.work();
}

void Class1::Set_Repot_Format(Recordset& Rst) {
  try {
    readReportFormat(Rst, ReportFormat_);
  } catch (const AutomationError& error) {
    showFailure(platform_.messageBox, error.number(), error.description());
  } catch (const std::exception& error) {
    showFailure(platform_.messageBox, AutomationError::kApplicationDefined, error.what());
  }
}

void Class1::Text_Rpt(TextRptArguments& arguments) {
  if (!writeTextReport(arguments, ReportFormat_, platform_.messageBox)) return;
  if (arguments.Preview1 == 0) return;
  PreviewReport({.Path1 = arguments.TextFileName,
                 .RCont = 1,
                 .REdit = 1,
                 .RSearch = 1,
                 .RImport = 1,
                 .RExport = 1,
                 .RColor = 1,
                 .RPrint = 1});
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
  RunState& state = runState();
  state.ModPagelenth = Pagelenth;
  state.ModPrinterName = PrinterName;
  state.ModCc17 = arguments.cc17;
  state.ModCc12 = arguments.cc12;
  state.ModRCont = arguments.RCont;
  state.ModREdit = arguments.REdit;
  state.ModRSearch = arguments.RSearch;
  state.ModRImport = arguments.RImport;
  state.ModRExport = arguments.RExport;
  state.ModRColor = arguments.RColor;
  state.ModRPrint = arguments.RPrint;
  state.ModPath1 = arguments.Path1;
}

bool Class1::RtWindows1() const {
  return runState().ModWindowOpen;
}

void Class1::Guid_comp1(std::string Guid_comp1) {
  runState().ModGuidComp = std::move(Guid_comp1);
}

}  // namespace paperway
