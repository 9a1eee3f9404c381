#include "backends/data/workbook/number_format.h"

#include <algorithm>
#include <vector>

#include "util/format_pattern.h"
#include "util/format_symbols.h"

namespace paperway::workbook {
namespace {

constexpr std::string_view kGeneral = "General";
constexpr std::size_t kSections = 3;  // above, below and at zero
constexpr int kPlacesOfGroup = 3;

bool isPlace(const Symbol& symbol) {
  return symbol.isPlace();
}

/// One section: its words in quotes, its symbols as they are.
class SectionWriter {
 public:
  explicit SectionWriter(Symbols section) : section_(section) {}

  std::string write() {
    hasPlaces_ = std::any_of(section_.begin(), section_.end(), isPlace);
    for (std::size_t i = 0; i < section_.size();) i += put(i);
    padGroup();
    closeWords();
    return code_;
  }

 private:
  /// Symbols that were taken.
  std::size_t put(std::size_t i) {
    const Symbol& symbol = section_[i];
    if (!hasPlaces_) return word(symbol.character);
    if (symbol.isPlace()) return place(symbol.character);
    if (symbol.is('.') && !point_ && (seenPlace_ || isPlaceAt(i + 1))) return point();
    if (symbol.is(',') && seenPlace_) return point_ ? 1 : comma(i);
    if (symbol.is('%')) return take("%", 1);
    if (const std::string_view mark = exponentAt(i); !mark.empty()) return take(mark, 2);
    return word(symbol.character);
  }

  bool isPlaceAt(std::size_t i) const { return i < section_.size() && section_[i].isPlace(); }

  std::string_view exponentAt(std::size_t i) const {
    if (!seenPlace_ || i + 2 >= section_.size() || !isPlaceAt(i + 2)) return {};
    if (!section_[i].is('E') && !section_[i].is('e')) return {};
    return section_[i + 1].is('+') ? "E+" : section_[i + 1].is('-') ? "E-" : "";
  }

  std::size_t place(char c) {
    seenPlace_ = true;
    ++sinceComma_;
    return take({&c, 1}, 1);
  }

  std::size_t point() {
    padGroup();
    point_ = true;
    return take(".", 1);
  }

  /// Commas that a place follows group; spreadsheets want a whole group behind the last of them.
  std::size_t comma(std::size_t i) {
    const auto rest = section_.subspan(i);
    const auto end =
        std::find_if(rest.begin(), rest.end(), [](const Symbol& s) { return s.is('.'); });
    if (std::none_of(rest.begin(), end, isPlace)) return take(",", 1);  // scales by a thousand
    if (!grouped_) take(",", 1);
    if (!grouped_) atGroup_ = code_.size();
    grouped_ = true;
    sinceComma_ = 0;
    return 1;
  }

  void padGroup() {
    if (!grouped_ || point_) return;
    for (; sinceComma_ < kPlacesOfGroup; ++sinceComma_) code_.insert(atGroup_, "#");
  }

  std::size_t take(std::string_view symbols, std::size_t count) {
    closeWords();
    code_ += symbols;
    return count;
  }

  std::size_t word(char c) {
    words_ += c;
    return 1;
  }

  /// A quote cannot stand between quotes.
  void closeWords() {
    if (words_.empty()) return;
    code_ += '"';
    for (const char c : words_) code_ += c == '"' ? std::string("\"\\\"\"") : std::string(1, c);
    code_ += '"';
    words_.clear();
  }

  const Symbols section_;
  std::string code_;
  std::string words_;
  bool hasPlaces_ = false;
  bool seenPlace_ = false;
  bool point_ = false;
  bool grouped_ = false;
  std::size_t atGroup_ = 0;
  int sinceComma_ = 0;
};

}  // namespace

std::string formatCode(std::string_view pattern) {
  const auto symbols = readSymbols(namedPattern(pattern));
  const auto sections = splitSections(symbols);
  if (sections.front().empty()) return std::string(kGeneral);
  const std::string positive = SectionWriter(sections.front()).write();
  std::string code = positive;
  for (std::size_t i = 1; i < std::min(sections.size(), kSections); ++i) {
    code += ';';
    if (!sections[i].empty()) {
      code += SectionWriter(sections[i]).write();
    } else {
      code += (i == 1 ? "-" : "") + positive;
    }
  }
  return code;
}

/// Minutes are told from months by the hours in front of them.
std::string dateCode(std::string_view pattern) {
  constexpr std::string_view kParts = "dmyhs: ";
  std::string code;
  for (const char c : pattern) {
    if (c != 'n' && kParts.find(c) == kParts.npos) code += '\\';
    code += c == 'n' ? 'm' : c;
  }
  return code;
}

}  // namespace paperway::workbook
