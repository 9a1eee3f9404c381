#pragma once

#include <cstddef>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "excel/report_form.h"

namespace paperway {

/// What a report is told of by ReportParts. Lines are bytes of the report; each stands until the
/// call returns.
class ReportPartsSink {
 public:
  enum class Total { inner, outer, grand };

  virtual ~ReportPartsSink() = default;

  /// A heading line of the first page; several stand one below the other.
  virtual void heading(std::string_view line) = 0;
  /// The header of a group, of an outer one first; without blanks around it.
  virtual void group(std::string_view text) = 0;
  virtual void row(std::string_view line) = 0;
  virtual void total(std::string_view line, Total kind) = 0;
  /// A rule for the totals of a group.
  virtual void footRule(std::string_view rule) = 0;
};

/// Tells the rows of a report from its page heads, rules, totals and group headers, line by line.
/// What is carried from page to page is none of these, and is left out.
class ReportParts {
 public:
  ReportParts(const ReportForm& form, ReportPartsSink& sink) : form_(form), sink_(sink) {}

  /// A line without its end. It stands until settle() or end().
  void line(std::string_view raw);
  /// Lines that were given so far stand no longer.
  void settle();
  void end();

  /// Page heads with other heading lines than the first page has.
  std::size_t otherHeads() const { return otherHeads_; }

 private:
  struct Line {
    std::string_view text;
    bool styled = false;
  };

  bool isRowWithControls(std::string_view raw) const;
  void lineWithControls(std::string_view raw);
  void text(Line line);
  void head(Line line);
  void repeatedHead(Line line);
  bool endsHead(const Line& line);
  void finishHead();
  void tellHeading(std::size_t begin, std::size_t end);
  void body(Line line);
  void rule(Line line);
  void closeSection(std::string_view rule);
  void tellHeld();
  void rowOrGroup(const Line& line);
  bool isRow(const Line& line) const;
  void keepTotal(const Line& line, ReportPartsSink::Total kind);
  void tellTotal();
  void endPage();
  void releaseHeld();

  enum class State { head, body, section };

  const ReportForm form_;
  ReportPartsSink& sink_;
  State state_ = State::head;
  std::size_t page_ = 1;
  std::vector<Line> held_;        // the head so far; the last line; a rule and what follows it
  std::deque<std::string> kept_;  // the bytes of held lines whose block has gone
  std::optional<std::size_t> firstRule_;  // of the head, among the held lines
  std::size_t repeatedSeen_ = 0;
  std::string headings_;
  std::size_t otherHeads_ = 0;
  std::vector<std::string> totals_;  // between rules, as long as a page may end behind them
  ReportPartsSink::Total totalKind_ = ReportPartsSink::Total::inner;
  bool pageEnded_ = false;  // behind these totals
};

}  // namespace paperway
