// The buttons and boxes that change the page on show or mark words on it.

#include <algorithm>

#include "paperway/platform/message_box.h"
#include "paperway/platform/windows.h"
#include "paperway/value.h"
#include "preview/frm_report.h"
#include "util/code_page.h"
#include "util/numbers.h"
#include "util/text_tools.h"

namespace paperway {
namespace {

constexpr std::int64_t kSearchStretch = 8 << 20;  // bytes between two looks at waiting events

/// Empty, which finds nothing, for a text with a character that no report can hold.
std::string soughtBytes(const std::string& text) {
  const CodePage& codePage = CodePage::windows1252();
  std::string bytes = codePage.encode(text);
  return codePage.decode(bytes) == text ? bytes : "";
}

class Running {
 public:
  explicit Running(bool& flag) : flag_(flag) { flag_ = true; }
  ~Running() { flag_ = false; }
  Running(const Running&) = delete;
  Running& operator=(const Running&) = delete;

 private:
  bool& flag_;
};

}  // namespace

void FrmReport::bindMoves() {
  CmdFst.onClick = [this] { CmdFst_Click(); };
  CmdBck.onClick = [this] { CmdBck_Click(); };
  CmdNxt.onClick = [this] { CmdNxt_Click(); };
  CmdLast.onClick = [this] { CmdLast_Click(); };
  Text2.onKeyPress = [this](int& key) { Text2_KeyPress(key); };
  Text2.onLostFocus = [this] { Text2_LostFocus(); };
  Text4.onKeyPress = [this](int& key) { Text4_KeyPress(key); };
  Text4.onKeyDown = [this](int& keyCode, int) { Text4_KeyDown(keyCode); };
}

void FrmReport::showPageNumber() {
  LbPageNo.Caption = "Page " + std::to_string(CurrentPage + 1) + "/" + std::to_string(PageCount());
  LBPage.Caption = std::to_string(CurrentPage + 1);
}

void FrmReport::CmdFst_Click() {
  CurrentPage = 0;
  showPage();
  CmdBck.Enabled = false;
  CmdNxt.Enabled = true;
  ApplyPageStyles();
  showPageNumber();
}

void FrmReport::CmdBck_Click() {
  if (CurrentPage == 0) {
    CmdBck.Enabled = false;
  } else {
    --CurrentPage;
  }
  showPage();
  CmdNxt.Enabled = true;
  ApplyPageStyles();
  showPageNumber();
}

void FrmReport::CmdNxt_Click() {
  if (CurrentPage == PageCount() - 1) {
    CmdNxt.Enabled = false;
  } else {
    ++CurrentPage;
  }
  showPage();
  CmdBck.Enabled = true;
  ApplyPageStyles();
  showPageNumber();
}

void FrmReport::CmdLast_Click() {
  CurrentPage = PageCount() - 1;
  showPage();
  CmdNxt.Enabled = false;
  CmdBck.Enabled = true;
  ApplyPageStyles();
  showPageNumber();
}

void FrmReport::Text2_KeyPress(int& key) {
  key = OnlyNum(static_cast<std::int16_t>(std::clamp(key, 0, 32767)));
  if (key == keyReturn) goToPage();
}

void FrmReport::Text2_LostFocus() {
  Text2.Text = "";
}

void FrmReport::goToPage() {
  const double page = leadingNumber(Text2.Text.get()) - 1;
  if (!(page >= 0 && page <= static_cast<double>(PageCount() - 1))) {
    platform_.messageBox.show(" Select Valid PageNo...!", "", MessageBox::Buttons::ok,
                              MessageBox::Icon::critical);
    return;
  }
  CurrentPage = wholeNumber(page);
  showPage();
  LbPageNo.Caption = "Page " + std::to_string(CurrentPage + 1) + "/" + std::to_string(PageCount());
  ApplyPageStyles();
}

void FrmReport::Text4_KeyPress(int& key) {
  if (key == keyReturn) search();
}

void FrmReport::Text4_KeyDown(int& keyCode) {
  if (keyCode == keyEscape) Text4.Tag = "1";
}

bool FrmReport::stopsSearch() const {
  return Text4.Tag == "1" || !loaded();
}

/// Waiting events may run between two hits, and with them the Esc key, a page move, the closing of
/// the window, or another search, which takes the place of this one.
void FrmReport::search() {
  const std::shared_ptr<Form> alive = weak_from_this().lock();
  searchAgain_ = true;
  Text4.Tag = "1";
  if (searching_) return;
  const Running running(searching_);
  while (searchAgain_ && loaded()) {
    searchAgain_ = false;
    markHits();
  }
}

/// Marks every hit but one at the very beginning.
void FrmReport::markHits() {
  const std::string sought = soughtBytes(Text4.Text);
  Text4.Tag = "0";
  const auto end = static_cast<std::int64_t>(Rt1.buffer().size());
  for (std::int64_t i = 0; i <= end; ++i) {
    if (stopsSearch()) return;
    platform_.windows.doEvents();
    i = findNext(soughtBytes(Text4.Text), i, static_cast<std::int64_t>(Rt1.buffer().size()));
    if (i == -1) return;
    if (i == 0) continue;
    Rt1.SelStart = i;
    Rt1.SelLength = static_cast<std::int64_t>(sought.size());
    Rt1.SelColor = TXt[5].BackColor;
    Rt1.SelBold = ChSearch.Value != 0;
  }
}

/// Looks through a long text stretch by stretch, so that a search without a hit can be stopped.
std::int64_t FrmReport::findNext(const std::string& bytes, std::int64_t from, std::int64_t end) {
  const auto overlap = static_cast<std::int64_t>(bytes.size());
  for (; from < end; from += kSearchStretch) {
    const std::int64_t hit = Rt1.Find(bytes, from, std::min(from + kSearchStretch + overlap, end));
    if (hit != -1) return hit;
    if (from + kSearchStretch < end) platform_.windows.doEvents();
    if (stopsSearch()) return -1;
  }
  return -1;
}

}  // namespace paperway
