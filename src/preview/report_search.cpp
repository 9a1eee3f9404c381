#include "preview/report_search.h"

#include <algorithm>

#include "paperway/platform/windows.h"
#include "preview/frm_report_controls.h"
#include "util/code_page.h"

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

bool ReportSearch::isStopped() const {
  return window_.Text4.Tag == "1" || !window_.loaded();
}

void ReportSearch::run() {
  const std::shared_ptr<Form> alive = window_.weak_from_this().lock();
  again_ = true;
  window_.Text4.Tag = "1";
  if (running_) return;
  const Running running(running_);
  while (again_ && window_.loaded()) {
    again_ = false;
    markHits();
  }
}

/// Marks every hit but one at the very beginning.
void ReportSearch::markHits() {
  const std::string sought = soughtBytes(window_.Text4.Text);
  window_.Text4.Tag = "0";
  const auto end = static_cast<std::int64_t>(window_.Rt1.buffer().size());
  for (std::int64_t i = 0; i <= end; ++i) {
    if (isStopped()) return;
    windows_.doEvents();
    i = findNext(soughtBytes(window_.Text4.Text), i,
                 static_cast<std::int64_t>(window_.Rt1.buffer().size()));
    if (i == -1) return;
    if (i == 0) continue;
    window_.Rt1.SelStart = i;
    window_.Rt1.SelLength = static_cast<std::int64_t>(sought.size());
    window_.Rt1.SelColor = window_.TXt[5].BackColor;
    window_.Rt1.SelBold = window_.ChSearch.Value != 0;
  }
}

/// Looks through a long text stretch by stretch, so that a search without a hit can be stopped.
std::int64_t ReportSearch::findNext(const std::string& bytes, std::int64_t from, std::int64_t end) {
  const auto overlap = static_cast<std::int64_t>(bytes.size());
  for (; from < end; from += kSearchStretch) {
    const std::int64_t hit =
        window_.Rt1.Find(bytes, from, std::min(from + kSearchStretch + overlap, end));
    if (hit != -1) return hit;
    if (from + kSearchStretch < end) windows_.doEvents();
    if (isStopped()) return -1;
  }
  return -1;
}

}  // namespace paperway
