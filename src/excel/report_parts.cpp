#include "excel/report_parts.h"

#include <algorithm>
#include <utility>

#include "excel/line_looks.h"
#include "printed/plain_line.h"
#include "printed/printed_reader.h"
#include "util/control_strings.h"
#include "util/text.h"

namespace paperway {
namespace {

constexpr std::size_t kMostTotals = 3;     // lines between the rules of a total
constexpr std::size_t kMoreHeadLines = 4;  // that a later page may have

}  // namespace

// --- intake

void ReportParts::line(std::string_view raw) {
  if (isPlain(raw) || isRowWithControls(raw)) return text({raw});
  lineWithControls(raw);
}

/// Cells keep the bytes that the host put into them, a form feed included.
bool ReportParts::isRowWithControls(std::string_view raw) const {
  return state_ != State::head && form_.byTextRpt && form_.rowLength == raw.size() &&
         !isControl(raw.front());
}

void ReportParts::lineWithControls(std::string_view raw) {
  while (true) {
    const std::size_t end = raw.find(kFormFeed);
    const std::string_view piece = raw.substr(0, end);
    const bool styled = holdsStyles(piece);
    const std::string& plain = kept_.emplace_back(plainLine(piece));
    const bool beside = end != raw.npos || piece.data() != raw.data();
    if (!plain.empty() || (styled && !beside) || state_ != State::head) {
      if (!(plain.empty() && beside)) text({plain, styled});
    }
    if (end == raw.npos) return;
    endPage();
    raw.remove_prefix(end + 1);
  }
}

void ReportParts::text(Line line) {
  if (state_ == State::head) return head(line);
  body(line);
}

void ReportParts::settle() {
  for (Line& line : held_) line.text = kept_.emplace_back(line.text);
  while (kept_.size() > held_.size()) kept_.pop_front();
}

// --- page heads

void ReportParts::head(Line line) {
  if (form_.head == ReportForm::Head::none) return repeatedHead(line);
  held_.push_back(line);
  if (endsHead(line)) return finishHead();
  if (held_.size() >= form_.headLines + kMoreHeadLines) releaseHeld();
}

void ReportParts::repeatedHead(Line line) {
  if (repeatedSeen_ < form_.repeated.size() &&
      equalButDigits(line.text, form_.repeated[repeatedSeen_])) {
    if (++repeatedSeen_ == form_.repeated.size() && page_ == 1) {
      sink_.heading(form_.repeated.back());
    }
    return;
  }
  state_ = State::body;
  body(line);
}

/// Paperway's own heading is bold, and one line.
bool ReportParts::endsHead(const Line& line) {
  if (line.styled || !isFullRule(line.text)) return false;
  if (form_.head == ReportForm::Head::underlined) return true;
  const std::size_t at = held_.size() - 1;
  const std::size_t between = firstRule_ ? at - *firstRule_ - 1 : 0;
  const bool frames = form_.byTextRpt ? between == 1 && held_[at - 1].styled
                                      : between >= 1 && between <= kMostHeadings;
  if (!frames) firstRule_ = at;
  return frames;
}

void ReportParts::finishHead() {
  const std::size_t end = held_.size() - 1;
  std::size_t begin = firstRule_.value_or(0) + 1;
  if (form_.head == ReportForm::Head::underlined) {
    begin = end;
    while (begin > 0 && isBlank(held_[begin - 1].text)) --begin;
    begin -= std::min<std::size_t>(begin, 1);
  }
  tellHeading(begin, end);
  held_.clear();
  firstRule_.reset();
  state_ = State::body;
}

void ReportParts::tellHeading(std::size_t begin, std::size_t end) {
  std::string lines;
  for (std::size_t i = begin; i < end; ++i) lines.append(held_[i].text) += '\n';
  if (page_ == 1) {
    for (std::size_t i = begin; i < end; ++i) sink_.heading(held_[i].text);
    headings_ = std::move(lines);
  } else if (lines != headings_) {
    ++otherHeads_;
  }
}

/// There is no head here after all.
void ReportParts::releaseHeld() {
  const std::vector<Line> lines = std::exchange(held_, {});
  firstRule_.reset();
  state_ = State::body;
  for (const Line& line : lines) body(line);
}

// --- below the head

void ReportParts::body(Line line) {
  if (pageEnded_) {
    const bool carried = !totals_.empty() && trimBlanks(totals_.back()) == trimBlanks(line.text);
    totals_.clear();
    pageEnded_ = false;
    if (carried) return;
  }
  if (!line.styled && isRule(line.text)) return rule(line);
  const bool empty = isBlank(line.text) && form_.rowLength != line.text.size();
  if (empty && !form_.byTextRpt) return;
  if (state_ == State::section) {
    held_.push_back(line);
    if (held_.size() > kMostTotals + 1) {
      held_.erase(held_.begin());  // a rule between rows
      releaseHeld();
    }
    return;
  }
  tellHeld();
  held_.push_back(line);
}

/// Double dashes close what stands above them; others open a total, or close it.
void ReportParts::rule(Line line) {
  if (state_ == State::section) return closeSection(line.text);
  if (form_.byTextRpt && line.text.find('=') != line.text.npos) {
    sink_.footRule(line.text);
    tellTotal();
    if (!held_.empty()) sink_.total(held_.back().text, ReportPartsSink::Total::outer);
    return held_.clear();
  }
  tellHeld();
  held_.push_back(line);
  state_ = State::section;
}

/// With nothing between them the second rule is the one that opens.
void ReportParts::closeSection(std::string_view rule) {
  tellTotal();
  if (held_.size() == 1) {
    held_.front() = {rule};
    return;
  }
  if (rule.find(' ') != rule.npos) sink_.footRule(rule);
  for (std::size_t i = 1; i < held_.size(); ++i) {
    keepTotal(held_[i], ReportPartsSink::Total::inner);
  }
  held_.clear();
  state_ = State::body;
}

void ReportParts::keepTotal(const Line& line, ReportPartsSink::Total kind) {
  totals_.emplace_back(line.text);
  totalKind_ = kind;
}

void ReportParts::tellTotal() {
  for (const std::string& total : totals_) sink_.total(total, totalKind_);
  totals_.clear();
}

void ReportParts::tellHeld() {
  tellTotal();
  if (held_.empty()) return;
  const Line line = held_.back();
  held_.clear();
  rowOrGroup(line);
}

void ReportParts::rowOrGroup(const Line& line) {
  if (isRow(line)) return sink_.row(line.text);
  sink_.group(trimBlanks(line.text));
}

bool ReportParts::isRow(const Line& line) const {
  if (form_.allRows) return true;
  if (form_.byTextRpt && line.styled) return false;
  if (form_.rowLength) return line.text.size() == *form_.rowLength;
  return pieces(line.text) > 1;
}

/// What stands between rules at a page's end is carried to the next one, and is the grand total
/// where none follows.
void ReportParts::endPage() {
  if (state_ == State::head) return;
  if (state_ == State::section) {
    tellTotal();
    for (std::size_t i = 1; i < held_.size(); ++i) {
      keepTotal(held_[i], ReportPartsSink::Total::inner);
    }
    held_.clear();
  } else if (!held_.empty()) {
    tellHeld();
  }
  pageEnded_ = true;
  state_ = State::head;
  repeatedSeen_ = 0;
  ++page_;
}

void ReportParts::end() {
  if (state_ == State::head && !held_.empty()) releaseHeld();
  if (state_ != State::head) endPage();
  totalKind_ = ReportPartsSink::Total::grand;
  tellTotal();
}

}  // namespace paperway
