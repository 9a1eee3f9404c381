#include "excel/report_parts.h"

#include <algorithm>
#include <utility>

#include "printed/plain_line.h"
#include "printed/printed_reader.h"
#include "util/control_strings.h"
#include "util/text.h"

namespace paperway {
namespace {

constexpr std::size_t kMostHeadings = 4;   // lines between the rules of a head
constexpr std::size_t kMostTotals = 3;     // lines between the rules of a total
constexpr std::size_t kMoreHeadLines = 4;  // that a later page may have

bool isBlank(std::string_view text) {
  return text.find_first_not_of(' ') == text.npos;
}

constexpr bool isDash(char c) {
  return c == '-' || c == '=' || c == '_';
}

/// Three dashes or more, blanks, and nothing else.
bool isRule(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == text.npos || !isDash(text[first])) return false;
  std::size_t dashes = 0;
  for (const char c : text.substr(first)) {
    if (isDash(c)) {
      ++dashes;
    } else if (c != ' ') {
      return false;
    }
  }
  return dashes >= 3;
}

bool isFullRule(std::string_view text) {
  return isRule(text) && trimBlanks(text).find(' ') == text.npos;
}

/// Pieces of a line that two blanks divide.
std::size_t pieces(std::string_view text) {
  std::size_t count = 0;
  for (std::size_t at = text.find_first_not_of(' '); at != text.npos;
       at = text.find_first_not_of(' ', at)) {
    ++count;
    at = text.find("  ", at);
    if (at == text.npos) break;
  }
  return count;
}

/// Words and no more than a number or two: what a heading says, and a row hardly.
bool saysHeading(std::string_view text) {
  std::size_t words = 0;
  std::size_t numbers = 0;
  for (std::size_t at = text.find_first_not_of(' '); at != text.npos;
       at = text.find_first_not_of(' ', at)) {
    const std::size_t end = std::min(text.find(' ', at), text.size());
    const bool digits = text.substr(at, end - at).find_first_of("0123456789") != text.npos;
    ++(digits ? numbers : words);
    at = end;
  }
  return words > numbers;
}

/// Page numbers and times differ from page to page.
bool equalButDigits(std::string_view one, std::string_view other) {
  const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
  return std::equal(one.begin(), one.end(), other.begin(), other.end(), [&](char a, char b) {
    return a == b || (isDigit(a) && isDigit(b)) || (isDigit(a) && b == ' ') ||
           (a == ' ' && isDigit(b));
  });
}

/// A code that changes how characters look; a tab does not.
bool holdsStyles(std::string_view raw) {
  return raw.find_first_of("\x1B\x0E\x0F\x12\x14") != raw.npos;
}

}  // namespace

// --- intake

void ReportParts::line(std::string_view raw) {
  if (isPlain(raw) || isRowWithControls(raw)) return text({raw});
  lineWithControls(raw);
}

/// Cells keep the bytes that the host put into them, a form feed included.
bool ReportParts::isRowWithControls(std::string_view raw) const {
  return state_ != State::head && form_.paperways && form_.rowLength == raw.size() &&
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
  const bool frames = form_.paperways ? between == 1 && held_[at - 1].styled
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
  if (empty && !form_.paperways) return;
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
  if (form_.paperways && line.text.find('=') != line.text.npos) {
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
  if (form_.paperways && line.styled) return false;
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

// --- the form

namespace {

struct FormLine {
  std::string text;
  bool styled = false;
  bool startsPage = false;
};

std::vector<FormLine> linesOf(std::string_view bytes) {
  std::vector<FormLine> lines;
  bool startsPage = false;
  while (bytes.find('\n') != bytes.npos) {
    std::string_view raw = takeLine(bytes);
    if (isPlain(raw)) {
      lines.push_back({std::string(raw), false, std::exchange(startsPage, false)});
      continue;
    }
    if (const std::size_t end = raw.rfind(kFormFeed); end != raw.npos) {
      startsPage = true;
      raw.remove_prefix(end + 1);
      if (plainLine(raw).empty()) continue;
    }
    lines.push_back({plainLine(raw), holdsStyles(raw), std::exchange(startsPage, false)});
  }
  return lines;
}

bool isFull(const FormLine& line) {
  return !line.styled && isFullRule(line.text);
}

class FormFinder {
 public:
  explicit FormFinder(std::string_view beginning) : lines_(linesOf(beginning)) {
    constexpr std::string_view kIndent = "                 ";
    form_.paperways = !lines_.empty() && lines_[0].text == kIndent;
  }

  ReportForm find() {
    findHead();
    if (form_.head == ReportForm::Head::none) {
      form_.paperways = false;
      findRepeated();
    }
    countLengths();
    decideRows();
    return std::move(form_);
  }

 private:
  static constexpr std::size_t kMostHead = 40;
  static constexpr std::size_t kMostUnderlined = 12;
  static constexpr std::size_t kMostRepeated = 12;

  void findHead() {
    const std::size_t end = std::min(lines_.size(), kMostHead);
    std::optional<std::size_t> before;
    for (std::size_t i = 0; i < end; ++i) {
      if (!isFull(lines_[i])) continue;
      const std::size_t between = before ? i - *before - 1 : 0;
      const bool frames = form_.paperways ? between == 1 && lines_[i - 1].styled
                                          : between >= 1 && between <= kMostHeadings &&
                                                saysHeadings(i - between, i);
      if (before && frames) return setHead(ReportForm::Head::framed, i);
      if (!before) first_ = i;
      before = i;
    }
    if (first_ && *first_ > 0 && *first_ < kMostUnderlined && !form_.paperways) {
      setHead(ReportForm::Head::underlined, *first_);
    }
  }

  bool saysHeadings(std::size_t begin, std::size_t end) const {
    return std::all_of(lines_.begin() + static_cast<std::ptrdiff_t>(begin),
                       lines_.begin() + static_cast<std::ptrdiff_t>(end),
                       [](const FormLine& line) { return saysHeading(line.text); });
  }

  void setHead(ReportForm::Head head, std::size_t lastLine) {
    form_.head = head;
    form_.headLines = lastLine + 1;
    width_ = lines_[lastLine].text.size();
  }

  /// The lines that the first two pages begin with alike.
  void findRepeated() {
    const auto second = std::find_if(lines_.begin(), lines_.end(),
                                     [](const FormLine& line) { return line.startsPage; });
    for (std::size_t i = 0; second != lines_.end() && i < kMostRepeated; ++i) {
      if (lines_.end() - second <= static_cast<std::ptrdiff_t>(i)) return;
      if (!equalButDigits(lines_[i].text, (second + static_cast<std::ptrdiff_t>(i))->text)) return;
      form_.repeated.push_back(lines_[i].text);
    }
    form_.repeated.clear();  // rows that are all alike
  }

  /// Of lines that may be rows: not of totals, which stand between rules or above double dashes.
  void countLengths() {
    const auto rule = [&](std::size_t i) {
      return i < lines_.size() && !lines_[i].styled && isRule(lines_[i].text);
    };
    for (std::size_t i = form_.headLines; i < lines_.size(); ++i) {
      const FormLine& line = lines_[i];
      if (line.text.empty() || rule(i) || (form_.paperways && line.styled)) continue;
      if (rule(i + 1) && (rule(i - 1) || lines_[i + 1].text.find('=') != std::string::npos)) {
        continue;
      }
      if (lengths_.size() <= line.text.size()) lengths_.resize(line.text.size() + 1);
      ++lengths_[line.text.size()];
      ++counted_;
      inPieces_ += pieces(line.text) > 1 ? 1 : 0;
    }
  }

  void decideRows() {
    const auto most = std::max_element(lengths_.begin(), lengths_.end());
    if (most == lengths_.end()) return;
    const auto usual = static_cast<std::size_t>(most - lengths_.begin());
    if (form_.paperways) {
      const bool full = width_ < lengths_.size() && lengths_[width_] * 3 >= *most;
      form_.rowLength = full ? width_ : usual;
    } else if (*most * 10 >= counted_ * 6 && lengthTellsRows(usual)) {
      form_.rowLength = usual;
    } else {
      form_.allRows = inPieces_ * 10 < counted_ * 3;
    }
  }

  /// Headers that are filled up with blanks, too, are told by their pieces.
  bool lengthTellsRows(std::size_t length) const {
    return inPieces_ * 10 < counted_ * 3 || lengths_[length] * 10 < counted_ * 9;
  }

  const std::vector<FormLine> lines_;
  ReportForm form_;
  std::optional<std::size_t> first_;
  std::size_t width_ = 0;
  std::vector<std::size_t> lengths_;
  std::size_t counted_ = 0;
  std::size_t inPieces_ = 0;
};

}  // namespace

ReportForm formOfReport(std::string_view beginning) {
  return FormFinder(beginning).find();
}

}  // namespace paperway
