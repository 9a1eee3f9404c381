#include "textreport/page_head.h"

#include <algorithm>

#include "report/layout.h"
#include "util/code_page.h"

namespace paperway {
namespace {

constexpr std::string_view kSerialHeading = "   # ";

std::string titleBytes(const std::string& title, const char* name, const char* caller) {
  requireText(title, name, caller);
  return CodePage::windows1252().encode(title);
}

std::string headingRow(const ReportPlan& plan, bool serial) {
  std::string row(serial ? kSerialHeading : "");
  for (const ColumnPlan& column : plan.columns) {
    const std::string heading = CodePage::windows1252().encode(column.format->fHeder);
    const std::size_t at = row.size();
    row.append(column.width + column.spaces, ' ');
    placeCell(row.data() + at, column.width, heading, column.left);
  }
  return row;
}

}  // namespace

PageHead::PageHead(const ReportPlan& plan, const TextRptArguments& arguments,
                   const DOSEFONTcHR& font)
    : font_(font), lines_(4) {
  const auto addTitle = [&](const std::string& title, const char* name, const std::string& on,
                            const std::string& off) {
    if (title.empty()) return;
    titles_ += on + titleBytes(title, name, plan.caller) + off + "\r\n";
    ++lines_;
  };
  addTitle(arguments.Tital1, "Tital1", font.BBon, font.BBoff);
  addTitle(arguments.Tital2, "Tital2", font.Bon, font.Boff);
  addTitle(arguments.Tital3, "Tital3", font.Bon, font.Boff);
  addTitle(arguments.Tital4, "Tital4", font.Bon, font.Boff);
  pageTitle_ = titleBytes(arguments.Tital5, "Tital5", plan.caller);
  const std::string row = headingRow(plan, arguments.Srno > 0);
  rule_.assign(row.size(), '-');
  headings_ = rule_ + "\r\n" + font.Bon + row + font.Boff + "\r\n" + rule_ + "\r\n";
}

void PageHead::write(OutputLines& out, std::int16_t pageNumber) const {
  out.append(titles_);
  writePageLine(out, pageNumber);
  out.append(headings_);
}

/// Its plain text ends with the last column of the report; a title that fills the line leaves no
/// room for the number.
void PageHead::writePageLine(OutputLines& out, std::int16_t pageNumber) const {
  std::string page = "Page No # ";
  pageNumberPattern_.append(page, ValueView(int{pageNumber}));
  const std::size_t room = rule_.size() - std::min(pageTitle_.size(), rule_.size());
  out.append(font_.Bon);
  out.append(pageTitle_);
  out.append(font_.Boff);
  placeCell(out.blanks(room), room, page, false);
  out.advance(room);
  out.endLine();
}

}  // namespace paperway
