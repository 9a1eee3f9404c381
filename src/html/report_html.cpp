#include "html/report_html.h"

#include <limits>

#include "html/line_tags.h"
#include "paperway/automation_error.h"
#include "platform/input_file.h"
#include "platform/output_file.h"
#include "session/settings_store.h"
#include "util/numbers.h"
#include "util/utilities.h"
#include "util/value_text.h"

namespace paperway {
namespace {

constexpr std::size_t kPartOfLine = 16 * 1024;  // bytes of a long line that are converted at once

constexpr std::string_view kPageBreak = "<p style=page-break-after:always></p>";
constexpr std::string_view kPageStyle[] = {"<STYLE TYPE  = 'text/css'>", "h6{", "margin -Top: '0';",
                                           "margin -Bottom: '-7';",      "}",   "</STYLE>"};

std::string rgb(std::int32_t color) {
  return "rgb(" + numberText(RgbR(color)) + "," + numberText(RgbG(color)) + "," +
         numberText(RgbB(color)) + ")";
}

std::string background(std::int32_t color) {
  return " bgcolor='" + rgb(color) + "';";
}

std::string style(std::int32_t color) {
  return " color:" + rgb(color) + ";";
}

/// In the order in which they are replaced.
LineTags::Replacements tagsOf(const ReportHtmlArguments& arguments, const DOSEFONTcHR& font) {
  const ReportHtmlColors& colors = arguments.colors;
  const bool pages = arguments.breaksPages;
  const std::string wide = "<H2 style = 'margin-top:0;margin bottom:0; " + style(colors.wide);
  LineTags::Replacements tags = {
      {font.BBon, wide + (pages ? "'>" : "' >")},
      {font.BBoff, "</H2>"},
      {font.Bon, (pages ? "<b style = '" : "<b  style = '") + style(colors.bold) + "'>"},
      {font.Boff, "</b>"},
      {font.Con, (pages ? "<h6 style = '" : "<h6 style = 'margin-top:0;margin bottom:0 ; ") +
                     style(colors.condensed) + "'>"},
      {font.Coff, "</h6>"},
      {font.UnLOn, ""},
      {font.UnLoff, ""}};
  if (!pages) return tags;
  tags.emplace_back(font.C80, "");
  tags.emplace_back(std::string(1, kFormFeed), kPageBreak);
  return tags;
}

/// A page of HTML, from its first line to its last.
class ReportPage {
 public:
  ReportPage(const ReportHtmlArguments& arguments, const DOSEFONTcHR& font, Storage& storage)
      : arguments_(arguments),
        storage_(storage),
        file_(storage, arguments.html, arguments.caller, {.inputs = {arguments.report}}),
        out_(file_),
        tags_(tagsOf(arguments, font)) {}

  void write() {
    writeHead();
    readBlocks(storage_, arguments_.report, arguments_.caller,
               [this](std::string_view block) { takeBlock(block); });
    if (begun_) endLine();
    writeFoot();
    out_.flush();
    file_.commit();
  }

 private:
  void writeHead() {
    out_.line("<HTML>");
    out_.line("<body " + background(arguments_.colors.page) + ">");
    if (arguments_.breaksPages) {
      for (const std::string_view line : kPageStyle) out_.line(line);
    }
    out_.line("<font face ='Courier New'>");
    out_.line("<font size =3> <p style = 'margin-top:0;margin bottom:0; '>");
  }

  void writeFoot() {
    out_.line("</p></font>");
    out_.line("</body>");
    out_.line("</HTML>");
  }

  void takeBlock(std::string_view block) {
    bytes_ += static_cast<std::int64_t>(block.size());
    if (arguments_.onProgress) arguments_.onProgress(bytes_);
    for (std::size_t end; (end = block.find('\n')) != block.npos; block.remove_prefix(end + 1)) {
      takeLine(block.substr(0, end));
    }
    if (!block.empty()) keep(block);
  }

  void takeLine(std::string_view text) {
    if (begun_) {
      kept_ += text;
      return endLine();
    }
    if (text.ends_with('\r')) text.remove_suffix(1);
    writeText(text);
    out_.line("<br>");
  }

  /// The beginning of a line whose end has not come yet; of a long one, what can be converted.
  void keep(std::string_view text) {
    begun_ = true;
    const std::size_t before = kept_.size();
    kept_ += text;
    if (kept_.size() <= kPartOfLine) return;
    const std::size_t ready = tags_.lastPart(std::string_view(kept_).substr(before));
    if (ready == 0) return;
    writeText(std::string_view(kept_).substr(0, before + ready));
    kept_.erase(0, before + ready);
  }

  void endLine() {
    if (kept_.ends_with('\r')) kept_.pop_back();
    writeText(kept_);
    out_.line("<br>");
    kept_.clear();
    begun_ = false;
  }

  void writeText(std::string_view text) {
    while (!text.empty()) {
      const std::size_t part = tags_.part(text, kPartOfLine);
      tags_.append(out_, text.substr(0, part));
      text.remove_prefix(part);
    }
  }

  const ReportHtmlArguments& arguments_;
  Storage& storage_;
  OutputFile file_;
  OutputLines out_;
  LineTags tags_;
  std::string kept_;    // of a line that has begun in an earlier block
  bool begun_ = false;  // there is one
  std::int64_t bytes_ = 0;
};

std::int32_t storedColor(const ReportViewSettings& settings, ReportViewKey key,
                         const char* caller) {
  const std::string text = settings.text(key);
  const auto number = parseNumber(text);
  if (!number) {
    throw AutomationError(
        AutomationError::kTypeMismatch, caller,
        "The settings file holds \"" + text + "\" for a color, which is no number.");
  }
  using Limits = std::numeric_limits<std::int32_t>;
  if (*number < Limits::min() || *number > Limits::max()) {
    throw AutomationError(AutomationError::kOverflow, caller,
                          "The settings file holds " + text + " for a color, which is beyond all.");
  }
  return static_cast<std::int32_t>(wholeNumber(*number));
}

}  // namespace

ReportHtmlColors storedTextColors(const ReportViewSettings& settings, const char* caller) {
  return {.wide = storedColor(settings, ReportViewKey::BBold, caller),
          .bold = storedColor(settings, ReportViewKey::Bold, caller),
          .condensed = storedColor(settings, ReportViewKey::Cond, caller)};
}

void convertReport(const ReportHtmlArguments& arguments, const DOSEFONTcHR& font,
                   Storage& storage) {
  ReportPage(arguments, font, storage).write();
}

}  // namespace paperway
