#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "paperway/arguments.h"
#include "platform/output_lines.h"
#include "report/report_plan.h"
#include "util/control_strings.h"

namespace paperway {

/// What stands at the top of each page of a text report, made once but for the page number: titles,
/// page-number line, and the headings between two rules.
class PageHead {
 public:
  PageHead(const ReportPlan& plan, const TextRptArguments& arguments, const DOSEFONTcHR& font);

  void write(OutputLines& out, std::int16_t pageNumber) const;

  std::int32_t lines() const { return lines_; }
  const std::string& rule() const { return rule_; }  // as wide as the report

 private:
  void writePageLine(OutputLines& out, std::int16_t pageNumber) const;

  const DOSEFONTcHR& font_;
  const FormatPattern pageNumberPattern_{"0000"};
  std::string rule_;
  std::string titles_;
  std::string pageTitle_;
  std::string headings_;
  std::int32_t lines_;
};

}  // namespace paperway
