#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "paperway/arguments.h"
#include "report/duplicate_rule.h"
#include "report/group_tracker.h"
#include "report/page_budget.h"
#include "util/numbers.h"
#include "util/text.h"

namespace paperway {

/// Why the totals of a group are due: it ends by itself, with the group around it, or with the
/// report.
enum class GroupEnd { alone, withOuter, ofReport };

/// Whether an inner group begins by itself, or because the one around it does.
enum class GroupBegin { alone, withOuter };

/// The run of a report, whatever it is written on: walks the rows once, keeps groups, duplicates,
/// sums and the page's budget, and tells a sink what happens, in this order:
///
///   endInnerGroup(GroupEnd), endOuterGroup(GroupEnd)  their sums stand, and begin anew behind it
///   beginOuterGroup(text), beginInnerGroup(text, GroupBegin)
///   beginRow(duplicate)
///   for each column one of blankCell(column), noCell(column), textCell(column, value),
///     dateCell(column, value), numberCell(column, value, number)
///   endRow()
///   endPage()  where the sink asks for it, with endPageIfFull
///
/// The sink writes the head before the walk, and what stands below the rows behind it.
class ReportRun {
 public:
  /// `kept` are the sums with which the run begins and which it leaves, also when it fails. Another
  /// run may begin and end meanwhile.
  ReportRun(const ReportPlan& plan, Recordset& rows, std::vector<ColumnSums>& kept,
            const PageBudget& budget, ReportProgressCallback progress = {})
      : page(budget),
        plan_(plan),
        rows_(rows),
        sums_(kept),
        kept_(kept),
        groups_(plan.inner, plan.outer, plan.rules),
        duplicates_(plan),
        progress_(std::move(progress)) {}
  ~ReportRun() { kept_ = std::move(sums_); }
  ReportRun(const ReportRun&) = delete;
  ReportRun& operator=(const ReportRun&) = delete;

  template <class Sink>
  void walk(Sink& sink) {
    if (plan_.rules.rewinds) rows_.MoveFirst();
    for (; !rows_.Eof(); rows_.MoveNext()) {
      if (!groups_.goOn(rows_)) tellGroups(sink);
      tellRow(sink);
      if (++done_.rows % kRowsPerProgress == 0) tellProgress();
    }
    endGroups(sink, groups_.close(), GroupEnd::ofReport);
  }

  template <class Sink>
  void endPageIfFull(Sink& sink) {
    if (!page.isFull()) return;
    countPage();
    sink.endPage();
  }

  /// The sink has ended a page by itself.
  void countPage() { ++done_.pages; }

  /// All is written, and may still be given up.
  void finish() {
    ++done_.pages;
    tellProgress();
  }

  /// Of each column, in the order of the plan.
  const std::vector<ColumnSums>& sums() const { return sums_; }
  /// Of the row in hand, from 1 on.
  std::int64_t rowNumber() const { return done_.rows + 1; }

  /// What was written of the row in hand holds control characters.
  void noteControls() {
    if (controlRow_ == rowNumber()) return;
    controlRow_ = rowNumber();
    if (done_.controlRows++ == 0) done_.firstControlRow = controlRow_;
  }

  /// Raises the kTypeMismatch of a field of the row in hand whose text is not UTF-8.
  void requireRowText(std::string_view text, const std::string& field) const {
    if (validUtf8Length(text) == text.size()) return;
    raiseNotUtf8(text,
                 "Field \"" + field + "\" of row " + std::to_string(rowNumber()) + " of the data",
                 plan_.caller);
  }

  PageBudget page;

 private:
  static constexpr std::int64_t kRowsPerProgress = 256;

  template <class Sink>
  void tellGroups(Sink& sink) {
    const GroupChange change = groups_.take(rows_);
    endGroups(sink, change, change.outerBegins ? GroupEnd::withOuter : GroupEnd::alone);
    if (change.outerBegins) sink.beginOuterGroup(groups_.outerText());
    if (!change.innerBegins) return;
    sink.beginInnerGroup(groups_.innerHeading(),
                         change.innerBeginsAlone ? GroupBegin::alone : GroupBegin::withOuter);
  }

  template <class Sink>
  void endGroups(Sink& sink, const GroupChange& change, GroupEnd end) {
    if (change.innerEnds) {
      sink.endInnerGroup(end);
      for (ColumnSums& sums : sums_) sums.inner = 0;
    }
    if (change.outerEnds) {
      sink.endOuterGroup(end);
      for (ColumnSums& sums : sums_) sums.outer = 0;
    }
  }

  template <class Sink>
  void tellRow(Sink& sink) {
    const bool duplicate = duplicates_.take(rows_);
    sink.beginRow(duplicate);
    ColumnSums* sums = sums_.data();
    for (const ColumnPlan& column : plan_.columns) {
      if (duplicate && column.blankOnDuplicate) {
        sink.blankCell(column);
      } else {
        tellCell(sink, column, *sums);
      }
      ++sums;
    }
    sink.endRow();
  }

  /// A column of any type feeds its groups; one without numbers feeds them the last number before.
  template <class Sink>
  void tellCell(Sink& sink, const ColumnPlan& column, ColumnSums& sums) {
    switch (column.type) {
      case ColumnPlan::Type::none:
        sink.noCell(column);
        break;
      case ColumnPlan::Type::text:
        sink.textCell(column, rows_.value(column.ordinal));
        break;
      case ColumnPlan::Type::date:
        sink.dateCell(column, rows_.value(column.ordinal));
        break;
      case ColumnPlan::Type::number: {
        const ValueView value = rows_.value(column.ordinal);
        number_ = columnNumber(value);
        sink.numberCell(column, value, number_);
        if (column.total) sums.grand += number_;
      }
    }
    if (column.feedsInner) sums.inner += column.countsInner ? 1 : number_;
    if (column.feedsOuter) sums.outer += column.countsOuter ? 1 : number_;
  }

  void tellProgress() const {
    if (progress_) progress_(done_);
  }

  const ReportPlan& plan_;
  Recordset& rows_;
  std::vector<ColumnSums> sums_;
  std::vector<ColumnSums>& kept_;
  GroupTracker groups_;
  DuplicateRule duplicates_;
  ReportProgressCallback progress_;
  ReportProgress done_;
  std::int64_t controlRow_ = 0;  // the last one that was noted
  double number_ = 0;            // of the last number cell, kept from row to row
};

}  // namespace paperway
