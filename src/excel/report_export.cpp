#include "excel/report_export.h"

#include <algorithm>
#include <memory>
#include <string>
#include <utility>

#include "excel/column_cuts.h"
#include "excel/column_finder.h"
#include "paperway/automation_error.h"
#include "paperway/platform/message_boxes.h"
#include "paperway/platform/windows.h"
#include "paperway/platform/workbook.h"
#include "platform/copy_file.h"
#include "platform/input_file.h"
#include "platform/workbooks.h"
#include "preview/frm_report.h"
#include "util/code_page.h"
#include "util/path_text.h"
#include "util/text.h"

namespace paperway {
namespace {

constexpr const char* kSource = "Export";
constexpr const char* kFinish = "Finsh Record Click";

/// A form that takes no input while it works.
class Busy {
 public:
  explicit Busy(FrmReport& form) : form_(form) {
    form_.Enabled = false;
    form_.MousePointer = mpHourglass;
  }
  ~Busy() {
    form_.MousePointer = mpDefault;
    form_.Enabled = true;
  }
  Busy(const Busy&) = delete;
  Busy& operator=(const Busy&) = delete;

 private:
  FrmReport& form_;
};

class ReportExport {
 public:
  ReportExport(FrmReport& form, const Platform& platform) : form_(form), platform_(platform) {}

  void JeweledButton1_Click();
  void CmdExelExp_Click();
  /// Puts the marks of a pick where the columns of the report end.
  void FindColumns_Click();
  /// Esc, which ends a pick or a workbook under way.
  bool giveUp();

 private:
  enum class Outcome { done, failed, stopped };

  void savePlainText(const std::filesystem::path& name);
  void makeWorkbook();
  Outcome writeWorkbook(Workbooks& workbooks);
  Outcome writeRows(Workbook& book);
  bool writeRow(Workbook& book, const ColumnCuts& cuts, std::string_view line);
  void becomeIdle();

  FrmReport& form_;
  const Platform platform_;
  std::string idleCaption_ = form_.CmdExelExp.Caption;
  std::int64_t row_ = 0;
  bool stopped_ = false;
  bool writing_ = false;
};

void ReportExport::JeweledButton1_Click() {
  form_.CommonDialog1.Filter =
      " Rich Text Format (*.rtf)|*.rtf| Text  (*.txt) |*.txt| Excel WorkBook (*.xls)|*.xls| Web "
      "Page "
      "(*.HTML)|*.html";
  form_.CommonDialog1.DialogTitle =
      "Export: .xls picks columns, .html is a web page, .txt plain text, any other end rich text";
  if (!form_.CommonDialog1.ShowSave()) return;
  const std::filesystem::path name = form_.CommonDialog1.FileName;
  const std::string text = textOf(name);
  if (equalIgnoringCase(rightCharacters(text, 3), "xls")) {
    form_.CmdExelExp.Visible = true;
    platform_.messageBox.show(
        " Click Excel Export Button Then click for Column Width on Text and then Click 'Finsh "
        "Record Click'");
  } else if (equalIgnoringCase(rightCharacters(text, 4), "html")) {
    form_.expHTml();
  } else if (text.ends_with("txt")) {
    savePlainText(name);
  } else {
    form_.PrintExport();
    form_.RT3.SaveFile(platform_.storage, name, RichTextBox::rtfRTF);
  }
}

void ReportExport::savePlainText(const std::filesystem::path& name) {
  const bool chosen = std::any_of(form_.Op.begin(), form_.Op.end(),
                                  [](const OptionButton& option) { return bool{option.Value}; });
  form_.RT3.Visible = false;
  if (chosen) {
    form_.collectPages(form_.exportedPages());
    return form_.RT3.SaveFile(platform_.storage, name, RichTextBox::rtfText);
  }
  copyFile(platform_.storage, form_.ReportPath, name, kSource);
}

void ReportExport::CmdExelExp_Click() {
  form_.ColumnMarkCount = 1;
  form_.CmdExelExp.Tag = "1";
  if (form_.CmdExelExp.Caption != kFinish) {
    idleCaption_ = std::exchange(form_.CmdExelExp.Caption, kFinish);
    return form_.showMarks();
  }
  makeWorkbook();
}

void ReportExport::FindColumns_Click() {
  constexpr std::size_t kMostMarks = 254;  // their count has eight bits
  const Busy busy(form_);
  try {
    const auto marks = findColumns(platform_.storage, form_.ReportPath, kSource).map.marks();
    const std::size_t count = std::min(marks.size(), kMostMarks);
    form_.ColumnMarks.assign(count + 2, 0);
    std::copy_n(marks.begin(), count, form_.ColumnMarks.begin() + 1);
    form_.ColumnMarkCount = static_cast<std::uint8_t>(count + 1);
  } catch (const AutomationError& error) {
    platform_.messageBox.show(error.description(), form_.Caption, MessageBoxes::Buttons::ok,
                              MessageBoxes::Icon::information);
  }
  form_.Timer1.Tag = "1";  // the click that chose this is no mark
  form_.showMarks();
}

bool ReportExport::giveUp() {
  if (writing_) return stopped_ = true;
  if (form_.CmdExelExp.Tag != "1") return false;
  becomeIdle();
  return true;
}

void ReportExport::becomeIdle() {
  form_.CmdExelExp.Tag = "0";
  form_.CmdExelExp.Caption = idleCaption_;
  form_.CmdExelExp.Visible = false;
  form_.ColumnMarkCount = 0;
  form_.showMarks();
}

void ReportExport::makeWorkbook() {
  const std::shared_ptr<Form> alive = form_.weak_from_this().lock();
  form_.CmdExelExp.Tag = "0";
  form_.ColumnMarkCount = 0;
  form_.ColumnMarks[0] = 0;
  form_.showMarks();
  const Busy busy(form_);
  const Outcome outcome = writeWorkbook(requireWorkbooks(platform_.workbooks, kSource));
  form_.Text4.Text = "";
  if (outcome != Outcome::stopped) {
    idleCaption_ = "Excel Export";
    platform_.messageBox.show(" Export Complete ", "", MessageBoxes::Buttons::ok,
                              MessageBoxes::Icon::information);
  }
  becomeIdle();
}

/// What cannot be written is told, and the click goes on.
ReportExport::Outcome ReportExport::writeWorkbook(Workbooks& workbooks) {
  if (!fileExists(platform_.storage, form_.ReportPath, kSource)) {
    readFile(platform_.storage, form_.ReportPath, kSource);  // which says why
  }
  writing_ = true;
  stopped_ = false;
  row_ = 0;
  Outcome outcome = Outcome::failed;
  try {
    const auto book = workbooks.create({.file = workbooks.fileNamed(form_.CommonDialog1.FileName),
                                        .caller = kSource,
                                        .inputs = {form_.ReportPath}},
                                       SheetPlan());
    outcome = writeRows(*book);
    if (outcome == Outcome::done) book->save();
  } catch (const AutomationError& error) {
    platform_.messageBox.show(error.description(), form_.Caption, MessageBoxes::Buttons::ok,
                              MessageBoxes::Icon::critical);
  } catch (...) {
    writing_ = false;
    throw;
  }
  writing_ = false;
  return outcome;
}

ReportExport::Outcome ReportExport::writeRows(Workbook& book) {
  const ColumnCuts cuts(form_.ColumnMarks);
  readLines(platform_.storage, form_.ReportPath, kSource,
            [&](std::string_view line) { return writeRow(book, cuts, line); });
  return stopped_ ? Outcome::stopped : Outcome::done;
}

/// False when the user has had enough.
bool ReportExport::writeRow(Workbook& book, const ColumnCuts& cuts, std::string_view line) {
  std::size_t untouched = 0;
  for (std::size_t i = 0; i < cuts.cells(); ++i) {
    const auto cell = cuts.cell(line, i);
    if (!cell) {
      ++untouched;
      continue;
    }
    for (; untouched > 0; --untouched) book.emptyCell(0);
    book.textCell(0, CodePage::windows1252().decode(*cell));
  }
  book.endRow();
  form_.Text4.Text = std::to_string(++row_);
  platform_.windows.doEvents();
  if (!form_.loaded()) stopped_ = true;
  return !stopped_;
}

}  // namespace

void bindReportExport(FrmReport& form, const Platform& platform) {
  const auto part = std::make_shared<ReportExport>(form, platform);
  form.JeweledButton1.onClick = [p = part.get()] { p->JeweledButton1_Click(); };
  form.CmdExelExp.onClick = [p = part.get()] { p->CmdExelExp_Click(); };
  form.FindColumns.onClick = [p = part.get()] { p->FindColumns_Click(); };
  form.giveUp = [p = part.get()] { return p->giveUp(); };
  form.parts.push_back(part);
}

}  // namespace paperway
