#include "excel/column_finder.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "excel/column_kind.h"
#include "excel/report_lines.h"
#include "paperway/automation_error.h"
#include "platform/input_file.h"
#include "util/code_page.h"
#include "util/path_text.h"
#include "util/text.h"

namespace paperway {
namespace {

constexpr std::size_t kBeginning = 1 << 20;  // bytes by which a report's form is known
constexpr std::size_t kSampleRows = 20'000;  // by which pieces are joined, and kinds told
constexpr std::size_t kSampleBytes = 8 << 20;

/// What the lines of a report say of its columns: where any row has ink, the rules of its totals,
/// and its first rows.
class Evidence : public ReportPartsSink {
 public:
  void heading(std::string_view line) override { headings.emplace_back(line); }

  void group(std::string_view) override { groups = std::max(groups, ++groupsInTurn_); }

  void row(std::string_view line) override {
    groupsInTurn_ = 0;
    if (ink.size() < line.size()) ink.resize(line.size());
    for (std::size_t i = 0; i < line.size(); ++i) ink[i] |= static_cast<char>(line[i] ^ ' ');
    if (rows.size() >= kSampleRows || sampled_ >= kSampleBytes) return;
    rows.emplace_back(line);
    sampled_ += line.size();
  }

  void total(std::string_view, Total) override {}

  void footRule(std::string_view rule) override {
    for (std::size_t i = 1; i < rule.size(); ++i) {
      if ((rule[i] == ' ') != (rule[i - 1] == ' ')) edges.push_back(i);
    }
    if (edges.size() > kMostEdges) tidyEdges();
  }

  void tidyEdges() {
    std::sort(edges.begin(), edges.end());
    edges.erase(std::unique(edges.begin(), edges.end()), edges.end());
  }

  std::vector<std::string> headings;
  std::vector<std::string> rows;
  std::string ink;
  std::vector<std::size_t> edges;  // of columns, for certain
  std::size_t groups = 0;

 private:
  static constexpr std::size_t kMostEdges = 10'000;

  std::size_t groupsInTurn_ = 0;
  std::size_t sampled_ = 0;
};

struct Piece {
  std::size_t begin = 0;
  std::size_t end = 0;
};

std::string_view inPiece(std::string_view line, const Piece& piece) {
  return line.substr(std::min(piece.begin, line.size()), piece.end - piece.begin);
}

/// What the cells of a piece tell of it, its headings included.
struct PieceFacts {
  bool headed = false;
  bool left = true;  // each cell begins where the piece does
  bool right = true;
  ColumnKind kind;

  bool hasRows() const { return kind.hasCells(); }
};

class ColumnSearch {
 public:
  explicit ColumnSearch(const Evidence& evidence) : evidence_(evidence) {
    std::string ink = evidence.ink;
    for (const std::string& line : evidence.headings) {
      ink.resize(std::max(ink.size(), line.size()));
      for (std::size_t i = 0; i < line.size(); ++i) ink[i] |= static_cast<char>(line[i] ^ ' ');
    }
    cutIntoPieces(ink);
  }

  ColumnMap find() {
    joinPieces();
    ColumnMap map;
    for (const Piece& piece : pieces_) {
      facts_.push_back(facts(piece));
      ReportColumn column{.begin = piece.begin, .end = piece.end};
      facts_.back().kind.tell(column);
      column.heading = headingOf(piece);
      map.columns.push_back(std::move(column));
    }
    placeEdges(map);
    return map;
  }

 private:
  bool isEdge(std::size_t at) const {
    return std::binary_search(evidence_.edges.begin(), evidence_.edges.end(), at);
  }

  /// One between the two, if there is any.
  std::optional<std::size_t> edgeWithin(std::size_t first, std::size_t last) const {
    const auto behind = std::upper_bound(evidence_.edges.begin(), evidence_.edges.end(), last);
    if (behind == evidence_.edges.begin() || *(behind - 1) < first) return std::nullopt;
    return *(behind - 1);
  }

  void cutIntoPieces(std::string_view ink) {
    for (std::size_t i = 0; i < ink.size(); ++i) {
      if (ink[i] == '\0') continue;
      const bool goesOn = i > 0 && ink[i - 1] != '\0' && !isEdge(i);
      if (!goesOn) pieces_.push_back({i, i});
      pieces_.back().end = i + 1;
    }
  }

  PieceFacts facts(const Piece& piece) const {
    PieceFacts facts;
    const auto add = [&](std::string_view cell) {
      if (cell.find_first_not_of(' ') == cell.npos) return false;
      facts.left = facts.left && cell.front() != ' ';
      facts.right = facts.right && cell.size() == piece.end - piece.begin && cell.back() != ' ';
      return true;
    };
    for (const std::string& row : evidence_.rows) {
      const std::string_view cell = inPiece(row, piece);
      if (add(cell)) facts.kind.add(trimBlanks(cell));
    }
    for (const std::string& line : evidence_.headings) {
      facts.headed = add(inPiece(line, piece)) || facts.headed;
    }
    return facts;
  }

  std::string headingOf(const Piece& piece) const {
    std::string heading;
    for (const std::string& line : evidence_.headings) {
      const std::string_view part = trimBlanks(inPiece(line, piece));
      if (!heading.empty() && !part.empty()) heading += ' ';
      heading += part;
    }
    return CodePage::windows1252().decode(heading);
  }

  // --- words of one column, which a blank divides in every row

  void joinPieces() {
    for (std::size_t i = 0; i + 1 < pieces_.size();) {
      if (isOneColumn(pieces_[i], pieces_[i + 1])) {
        pieces_[i].end = pieces_[i + 1].end;
        pieces_.erase(pieces_.begin() + static_cast<std::ptrdiff_t>(i) + 1);
        i -= std::min<std::size_t>(i, 1);
      } else {
        ++i;
      }
    }
  }

  /// The cells of one column all begin, or all end, at one place. Two columns may do so by chance;
  /// then their headings tell, and how they are filled.
  bool isOneColumn(const Piece& left, const Piece& right) const {
    if (right.begin != left.end + 1 || edgeWithin(left.end, right.begin)) return false;
    const PieceFacts whole = facts({left.begin, right.end});
    if (!whole.left && !whole.right) return false;
    const PieceFacts one = facts(left);
    const PieceFacts other = facts(right);
    if (!one.hasRows() || !other.hasRows()) return true;
    if (one.headed && other.headed) return false;
    if (!whole.kind.isDate() && one.kind.isNumber() != other.kind.isNumber()) return false;
    return one.headed ? standsOnlyBeside(right, left.end - 1) : standsOnlyBeside(left, right.begin);
  }

  /// Wherever the piece has ink, so has that place.
  bool standsOnlyBeside(const Piece& piece, std::size_t place) const {
    return std::all_of(evidence_.rows.begin(), evidence_.rows.end(), [&](const std::string& row) {
      const bool stands = inPiece(row, piece).find_first_not_of(' ') != std::string_view::npos;
      return !stands || (place < row.size() && row[place] != ' ');
    });
  }

  // --- the edges, between the ink of two columns

  void placeEdges(ColumnMap& map) const {
    if (map.columns.empty()) return;
    for (std::size_t i = 1; i < map.columns.size(); ++i) {
      ReportColumn& before = map.columns[i - 1];
      ReportColumn& column = map.columns[i];
      const std::size_t edge = edgeBefore(i);
      before.end = column.begin = edge;
      column.leftSlack = edge - pieces_[i - 1].end;
      column.rightSlack = pieces_[i].begin - edge;
    }
    map.columns.front().begin = 0;
    map.columns.back().end = std::max(map.columns.back().end, widest());
  }

  std::size_t edgeBefore(std::size_t piece) const {
    const Piece& left = pieces_[piece - 1];
    const Piece& right = pieces_[piece];
    if (const auto edge = edgeWithin(left.end, right.begin)) return *edge;
    if (facts_[piece].left) return right.begin;
    if (facts_[piece - 1].right) return left.end;
    return (left.end + right.begin + 1) / 2;
  }

  std::size_t widest() const {
    std::size_t width = evidence_.ink.size();
    for (const std::string& line : evidence_.headings) width = std::max(width, line.size());
    return width;
  }

  const Evidence& evidence_;
  std::vector<Piece> pieces_;
  std::vector<PieceFacts> facts_;  // of each, when they are joined
};

/// Without a head the first row may be one: words above numbers.
bool takesFirstRowAsHeading(Evidence& evidence) {
  const auto holdsDigit = [](std::string_view row) {
    return row.find_first_of("0123456789") != row.npos;
  };
  std::vector<std::string>& rows = evidence.rows;
  if (!evidence.headings.empty() || rows.size() < 2 || holdsDigit(rows[0])) return false;
  if (!std::all_of(rows.begin() + 1, rows.end(), holdsDigit)) return false;
  evidence.headings.push_back(std::move(rows[0]));
  rows.erase(rows.begin());
  return true;
}

/// The heading of running numbers stands over a column of five characters.
void addSerialEdge(Evidence& evidence) {
  for (const std::string& line : evidence.headings) {
    if (line.starts_with("   # ")) evidence.edges.push_back(5);
  }
}

/// Gives the lines of a report to its evidence, as soon as its form is known.
class EvidenceReader {
 public:
  EvidenceReader(Evidence& evidence, const std::function<void()>& onBlock)
      : evidence_(evidence), onBlock_(onBlock) {}

  void block(std::string_view bytes) {
    if (onBlock_) onBlock_();
    if (parts_) return read(bytes);
    beginning_ += bytes;
    if (beginning_.size() >= kBeginning) begin();
  }

  void end() {
    if (!parts_) {
      if (!beginning_.ends_with('\n')) beginning_ += '\n';
      begin();
    }
    lines_.end([&](std::string_view line) { parts_->line(line); });
    parts_->end();
  }

  ReportForm form;

 private:
  void begin() {
    form = formOfReport(beginning_);
    parts_.emplace(form, evidence_);
    read(beginning_);
    beginning_ = {};
  }

  void read(std::string_view bytes) {
    lines_.block(bytes, [&](std::string_view line) { parts_->line(line); });
    parts_->settle();
  }

  Evidence& evidence_;
  const std::function<void()>& onBlock_;
  std::string beginning_;
  ReportLines lines_;
  std::optional<ReportParts> parts_;
};

}  // namespace

FoundReport findColumns(Storage& storage, const std::filesystem::path& file,
                        const std::string& caller, const std::function<void()>& onBlock) {
  Evidence evidence;
  EvidenceReader reader(evidence, onBlock);
  readBlocks(storage, file, caller, [&](std::string_view block) { reader.block(block); });
  reader.end();
  FoundReport found;
  found.form = std::move(reader.form);
  found.groups = std::min<std::size_t>(evidence.groups, 2);
  found.firstRowIsHeading = takesFirstRowAsHeading(evidence);
  if (found.form.byTextRpt) addSerialEdge(evidence);
  evidence.tidyEdges();
  found.map = ColumnSearch(evidence).find();
  found.headings = std::move(evidence.headings);
  if (found.map.columns.empty()) {
    throw AutomationError(AutomationError::kApplicationDefined, caller,
                          "No columns were found in \"" + textOf(file) +
                              "\": it has neither a heading between rules nor rows in columns.");
  }
  return found;
}

std::string drawColumns(const FoundReport& report, const ColumnMap& map) {
  std::string numbers;
  std::string bar;
  const auto reach = [](std::string& line, std::size_t at) {
    if (line.size() < at) line.resize(at, ' ');
  };
  for (std::size_t i = 0; i < map.columns.size(); ++i) {
    const ReportColumn& column = map.columns[i];
    reach(numbers, column.begin);
    numbers += std::to_string(i + 1);
    reach(bar, column.begin);
    if (column.end > column.begin) bar += "|" + std::string(column.end - column.begin - 1, '-');
  }
  std::string drawing = numbers + "\n" + bar + "|\n";
  for (const std::string& line : report.headings) {
    drawing += CodePage::windows1252().decode(line) + "\n";
  }
  return drawing;
}

}  // namespace paperway
