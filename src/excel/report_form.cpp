#include "excel/report_form.h"

#include <algorithm>
#include <utility>

#include "excel/line_looks.h"
#include "printed/plain_line.h"
#include "printed/printed_reader.h"
#include "util/control_strings.h"
#include "util/text.h"

namespace paperway {
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
    form_.byTextRpt = !lines_.empty() && lines_[0].text == kIndent;
  }

  ReportForm find() {
    findHead();
    if (form_.head == ReportForm::Head::none) {
      form_.byTextRpt = false;
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
      const bool frames = form_.byTextRpt ? between == 1 && lines_[i - 1].styled
                                          : between >= 1 && between <= kMostHeadings &&
                                                saysHeadings(i - between, i);
      if (before && frames) return setHead(ReportForm::Head::framed, i);
      if (!before) first_ = i;
      before = i;
    }
    if (first_ && *first_ > 0 && *first_ < kMostUnderlined && !form_.byTextRpt) {
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
      if (line.text.empty() || rule(i) || (form_.byTextRpt && line.styled)) continue;
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
    if (form_.byTextRpt) {
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
