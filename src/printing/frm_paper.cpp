#include "printing/frm_paper.h"

#include <algorithm>
#include <cstdio>
#include <utility>

#include "paperway/platform/print_device.h"
#include "paperway/platform/windows.h"

namespace paperway {
namespace {

constexpr std::int64_t kKnown = 50;      // sheets that are read at a time
constexpr std::int64_t kCounted = 2000;  // of a longer job the end is seen when it is asked for
constexpr int kFootHeight = 720;
constexpr int kToldHeight = 300;
constexpr int kButtonTop = 150;
constexpr int kButtonHeight = 420;

std::string shapeText(const PaperShape& shape) {
  char text[64];
  std::snprintf(text, sizeof text, "%.5g x %.4g inches", shape.width, shape.height);
  return text;
}

}  // namespace

FrmPaper::FrmPaper(const Platform& platform, std::string document, PaperJob job,
                   std::vector<std::filesystem::path> sources)
    : Form("FrmPaper"),
      platform_(platform),
      name_(std::move(document)),
      job_(std::move(job)),
      sources_(std::move(sources)),
      dialog_(platform.dialogs),
      papers_{job_.shape} {
  const double wide = paperShape(PageSettings{1, 39}, 0).width;
  for (const double width : {PaperShape().width, wide}) {
    for (const double height : {11.0, 12.0, 6.0, 4.0}) {
      const PaperShape shape = fanfold(width, height);
      if (shape != job_.shape) papers_.push_back(shape);
    }
  }
  describe();
  layOut();
  bind();
}

void FrmPaper::describe() {
  Caption = "Paper - " + name_;
  Width = 12600;
  Height = 10500;
  MinWidth = 12600;
  MinHeight = 6000;
  Frame8.Border = false;
  Sheet1.AccessibleName = "Paper";
  LbSheet.TextAlignment = Alignment::center;
  for (const PaperShape& shape : papers_) CboPaper.AddItem(shapeText(shape));
  CboPaper.Text.setQuietly(shapeText(job_.shape));
  CboPaper.ToolTipText = "The paper in the printer";
  CmdSave.ToolTipText = "Save these sheets as PDF";
}

void FrmPaper::layOut() {
  place(Sheet1, 0, 0, Width, Height - kFootHeight - kToldHeight);
  place(LbTold, 90, Sheet1.bottom() + 30, Width - 180, kToldHeight);
  place(Frame8, 0, Height - kFootHeight, Width, kFootHeight);
  place(CmdFst, 90, kButtonTop, 950, kButtonHeight);
  place(CmdBck, 1100, kButtonTop, 950, kButtonHeight);
  place(LbSheet, 2110, kButtonTop, 1500, kButtonHeight);
  place(CmdNxt, 3670, kButtonTop, 950, kButtonHeight);
  place(CmdLast, 4680, kButtonTop, 950, kButtonHeight);
  place(LbPaper, 5850, kButtonTop, 650, kButtonHeight);
  place(CboPaper, 6500, kButtonTop + 45, 2150, 330);
  place(ChWhole, 8800, kButtonTop, 1450, kButtonHeight);
  place(JeExit, Width - 1130, kButtonTop, 1040, kButtonHeight);
  place(CmdSave, JeExit.Left - 1100, kButtonTop, 1040, kButtonHeight);
}

void FrmPaper::bind() {
  CmdFst.onClick = [this] { turnTo(0); };
  CmdBck.onClick = [this] { turnTo(current_ - 1); };
  CmdNxt.onClick = [this] { turnTo(current_ + 1); };
  CmdLast.onClick = [this] { CmdLast_Click(); };
  Sheet1.onTurn = [this](bool forward) { turnTo(current_ + (forward ? 1 : -1)); };
  CboPaper.onClick = [this] { CboPaper_Click(); };
  ChWhole.onClick = [this] { Sheet1.Whole = ChWhole.Value != 0; };
  CmdSave.onClick = [this] { CmdSave_Click(); };
  JeExit.onClick = [this] { unload(); };
}

void FrmPaper::Form_Load() {
  begin();
}

void FrmPaper::Form_KeyDown(int& keyCode, int shift) {
  if (shift == 0 && keyCode == keyEscape) {
    keyCode = 0;
    unload();
  }
}

std::optional<std::int64_t> FrmPaper::count() const {
  return findings_ ? std::optional(findings_->sheets) : std::nullopt;
}

void FrmPaper::begin() {
  findings_.reset();
  current_ = 0;
  read(0);
  if (!findings_) {
    findings_ = layOutPaper(job_, [](const Sheet& sheet) { return sheet.number < kCounted; });
  }
  showSheet();
}

/// The sheets from this one on, and what there is to tell when the job ends among them.
void FrmPaper::read(std::int64_t first) {
  std::vector<std::shared_ptr<const Sheet>> known;
  const auto findings = layOutPaper(job_, [&](Sheet sheet) {
    if (sheet.number > first) known.push_back(std::make_shared<const Sheet>(std::move(sheet)));
    return static_cast<std::int64_t>(known.size()) < kKnown;
  });
  if (findings) findings_ = findings;
  if (known.empty()) return;
  first_ = first;
  known_ = std::move(known);
}

void FrmPaper::turnTo(std::int64_t sheet) {
  if (sheet < 0 || (findings_ && sheet >= findings_->sheets)) return;
  const auto isKnown = [&] {
    return sheet >= first_ && sheet < first_ + static_cast<std::int64_t>(known_.size());
  };
  if (!isKnown()) read(sheet / kKnown * kKnown);
  if (!isKnown()) return;
  current_ = sheet;
  showSheet();
}

void FrmPaper::CmdLast_Click() {
  if (!findings_) {
    findings_ = layOutPaper(job_, [](const Sheet&) { return true; });
  }
  turnTo(findings_->sheets - 1);
}

void FrmPaper::showSheet() {
  Sheet1.Shown = known_.empty() ? nullptr : known_[static_cast<std::size_t>(current_ - first_)];
  const bool isLast = findings_ && current_ + 1 == findings_->sheets;
  CmdFst.Enabled = CmdBck.Enabled = current_ > 0;
  CmdNxt.Enabled = CmdLast.Enabled = !isLast;
  LbSheet.Caption = "Sheet " + std::to_string(current_ + 1) +
                    (findings_ ? " of " + std::to_string(findings_->sheets) : "");
  LbTold.Caption = findings_ ? findings_->line() : "";
  LbTold.ToolTipText = LbTold.Caption;
}

void FrmPaper::CboPaper_Click() {
  const int index = CboPaper.ListIndex;
  if (index < 0 || papers_[static_cast<std::size_t>(index)] == job_.shape) return;
  job_.shape = papers_[static_cast<std::size_t>(index)];
  begin();
}

void FrmPaper::CmdSave_Click() {
  dialog_.Filter = "PDF (*.pdf)|*.pdf";
  dialog_.DialogTitle = "Save the sheets";
  dialog_.FileName.clear();
  if (!dialog_.ShowSave()) return;
  const auto pictures = platform_.printDevice.startSheets(
      {.name = name_, .file = dialog_.FileName, .sources = sources_});
  findings_ = layOutPaper(job_, [&](const Sheet& sheet) {
    pictures->sheet(sheet);
    return true;
  });
  pictures->end();
  showSheet();
}

}  // namespace paperway
