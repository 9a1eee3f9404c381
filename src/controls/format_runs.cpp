#include "controls/format_runs.h"

#include <algorithm>

namespace paperway {

CharFormat FormatChange::appliedTo(CharFormat format) const {
  if (size) format.size = *size;
  if (color) format.color = *color;
  if (bold) format.bold = *bold;
  if (underline) format.underline = *underline;
  return format;
}

void FormatRuns::reset(std::size_t textSize) {
  formats_.assign(1, CharFormat{});
  before_.clear();
  behind_.clear();
  textSize_ = textSize;
}

FormatRuns::FormatId FormatRuns::idOf(const CharFormat& format) {
  // Few formats are ever in use, and the newest are the likeliest.
  for (std::size_t i = formats_.size(); i-- > 0;) {
    if (formats_[i] == format) return static_cast<FormatId>(i);
  }
  formats_.push_back(format);
  return static_cast<FormatId>(formats_.size() - 1);
}

/// Leaves the runs that begin before `offset` in before_, the others in behind_.
void FormatRuns::moveTo(std::size_t offset) {
  while (!before_.empty() && before_.back().place >= offset) {
    const Entry entry = before_.back();
    before_.pop_back();
    behind_.push_back({textSize_ - entry.place, entry.format});
  }
  while (!behind_.empty() && textSize_ - behind_.back().place < offset) {
    const Entry entry = behind_.back();
    behind_.pop_back();
    before_.push_back({textSize_ - entry.place, entry.format});
  }
}

void FormatRuns::append(std::size_t begin, FormatId format) {
  if (!before_.empty() && before_.back().place == begin) before_.pop_back();
  if (lastId() != format) before_.push_back({begin, format});
}

/// Lets `format` hold from `begin` up to the next run.
void FormatRuns::joinBehind(std::size_t begin, FormatId format) {
  const bool runBegins = !behind_.empty() && textSize_ - behind_.back().place == begin;
  if (!runBegins) {
    if (begin < textSize_) append(begin, format);
  } else if (behind_.back().format == lastId()) {
    behind_.pop_back();
  }
}

template <typename NewFormat>
void FormatRuns::rewrite(std::size_t begin, std::size_t end, const NewFormat& newFormat) {
  end = std::min(end, textSize_);
  if (begin >= end) return;
  moveTo(begin);
  FormatId old = lastId();
  if (behind_.empty() || textSize_ - behind_.back().place > begin) append(begin, newFormat(old));
  while (!behind_.empty() && textSize_ - behind_.back().place < end) {
    const Entry entry = behind_.back();
    behind_.pop_back();
    old = entry.format;
    append(textSize_ - entry.place, newFormat(old));
  }
  joinBehind(end, old);
}

void FormatRuns::change(std::size_t begin, std::size_t end, const FormatChange& change) {
  rewrite(begin, end, [&](FormatId old) { return idOf(change.appliedTo(formats_[old])); });
}

void FormatRuns::set(const std::vector<Run>& runs) {
  for (const Run& run : runs) {
    rewrite(run.begin, run.end, [&](FormatId) { return idOf(run.format); });
  }
}

void FormatRuns::replaced(std::size_t at, std::size_t removed, std::size_t inserted) {
  const bool hiddenBefore = at > 0 && this->at(at - 1).hidden();
  const FormatId following = idOf(this->at(at + removed));
  moveTo(at);
  while (!behind_.empty() && textSize_ - behind_.back().place <= at + removed) behind_.pop_back();
  textSize_ = textSize_ - removed + inserted;
  FormatId typed = lastId();
  if (at == 0 || hiddenBefore) typed = formats_[following].hidden() ? 0 : following;
  if (inserted > 0) append(at, typed);
  joinBehind(at + inserted, following);
}

std::size_t FormatRuns::beginOf(std::size_t number) const {
  if (number < before_.size()) return before_[number].place;
  return textSize_ - behind_[behind_.size() - 1 - (number - before_.size())].place;
}

FormatRuns::FormatId FormatRuns::formatOf(std::size_t number) const {
  if (number < before_.size()) return before_[number].format;
  return behind_[behind_.size() - 1 - (number - before_.size())].format;
}

/// How many runs begin at or before the offset.
std::size_t FormatRuns::runAt(std::size_t offset) const {
  std::size_t low = 0;
  std::size_t high = runCount();
  while (low < high) {
    const std::size_t middle = (low + high) / 2;
    if (beginOf(middle) <= offset) {
      low = middle + 1;
    } else {
      high = middle;
    }
  }
  return low;
}

CharFormat FormatRuns::at(std::size_t offset) const {
  const std::size_t behind = runAt(offset);
  return behind == 0 ? formats_.front() : formats_[formatOf(behind - 1)];
}

std::vector<FormatRuns::Run> FormatRuns::runs(std::size_t begin, std::size_t end) const {
  std::vector<Run> cut;
  end = std::min(end, textSize_);
  for (std::size_t next = runAt(begin); begin < end; ++next) {
    const std::size_t stop = next < runCount() ? std::min(beginOf(next), end) : end;
    cut.push_back({begin, stop, next == 0 ? formats_.front() : formats_[formatOf(next - 1)]});
    begin = stop;
  }
  return cut;
}

}  // namespace paperway
