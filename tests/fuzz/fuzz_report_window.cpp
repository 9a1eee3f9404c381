#include "backends/headless/user.h"
#include "fuzz/fuzz.h"
#include "paperway/automation_error.h"
#include "paperway/headless.h"
#include "support/report_window.h"
#include "support/test_folder.h"

using namespace paperway;

/// A line of acts, one character each, and the bytes of a report file behind it.
std::vector<std::string> fuzz::seeds() {
  return {"nnbfl\npage 1\r\n\fpage 2\r\n\f\r\n",
          "zncCe\n\017a\033Eb\033Fc\022\f\016\033E\033Gd\024\033F\033H\f",
          "exyBUdmh\n\022\033W \033Ma\033P\033Gb\033H\033-1c\033-0",
          "g7s\none\f\f\ftwo\f\f\f\f\fone\n\r\r\n",
          "cseo\n",
          "pPqQ\n\033E\033E\033F"};
}

namespace {

class Walk {
 public:
  Walk(const std::filesystem::path& folder, std::string_view report) : machine_(folder) {
    startRun();
    form_ = openReportWindow(machine_.platform(), report);
    checkPages(report);
    check();
  }

  void act(char command) {
    try {
      headless::User user(*form_);
      actBy(user, command);
    } catch (const std::logic_error&) {  // out of reach at the moment
    } catch (const AutomationError&) {   // told to the user
    }
    check();
  }

 private:
  void actBy(headless::User& user, char command) {
    static constexpr const char* kClicks[] = {"CmdFst",
                                              "CmdBck",
                                              "CmdNxt",
                                              "CmdLast",
                                              "Command2",
                                              "Check1",
                                              "Check2",
                                              "Check3",
                                              "Op(1)",
                                              "lb1"};
    RichTextBox& page = form_->Rt1;
    const auto code = static_cast<unsigned char>(command);
    if (command == 'g') return user.type("Text2", std::to_string(code % 9) + "\r");
    if (command == 'p') return form_->PrintExport();
    if (command == 'x') return user.type("Rt1", "\303\251\r");
    if (command == 't') return user.tick("Timer1");
    if (command == 'r') return user.resize(14400 + code, 9000);
    if (command == 's') return user.type("Text4", "\b\bo\r");
    if (command == 'm') return chooseFromMenu(user, "pppp");
    if (command == 'q' || command == 'h') page.selectWord(page.buffer().size() / 2);
    if (command == 'q') return chooseFromMenu(user, "cccc");
    if (command == 'h') return chooseFromMenu(user, "ht");
    if (code < 0x60) return user.press("Rt1", code, code >= 0x40 ? smCtrl : code & smShift);
    user.click(kClicks[code % std::size(kClicks)]);
  }

  void chooseFromMenu(headless::User& user, const char* item) {
    user.click("Rt1", mbRight);
    user.chooseFromMenu(item);
  }

  void checkPages(std::string_view report) {
    std::string shown;
    for (std::int64_t i = 0; i < form_->PageCount(); ++i) shown += form_->PageText.shown(i).view();
    const auto last = report.rfind('\f');
    const std::string expected = std::string(report.substr(0, last)) + "\f";
    fuzz::require(shown == expected, "the pages make the file up to its last form feed");
  }

  void check() {
    const RichTextBox& page = form_->Rt1;
    fuzz::require(form_->CurrentPage >= 0 && form_->CurrentPage < form_->PageCount(),
                  "a page is on show");
    fuzz::require(page.caret() <= page.buffer().size(), "the caret is in the text");
    std::string lines;
    for (std::uint64_t i = 0; i < page.lineCount(); ++i) {
      const StyledLine line = page.styledLine(i);
      for (const StyledRun& run : line.runs) lines += run.bytes;
      lines += page.Text.get().substr(line.end, line.next - line.end);
    }
    fuzz::require(lines == page.Text.get(), "the lines make the text");
  }

  headless::Headless machine_;
  std::shared_ptr<FrmReport> form_;
};

}  // namespace

void fuzz::check(std::string_view report) {
  const std::string_view acts = fuzz::takeUntil(report, '\n').substr(0, 40);
  static const TestFolder folder;
  Walk walk(folder.path, report);
  for (const char command : acts) walk.act(command);
}
