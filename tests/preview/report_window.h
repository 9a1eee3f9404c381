#pragma once

#include <gtest/gtest.h>
#include <vector>

#include "support/headless_desk.h"
#include "support/report_window.h"

namespace paperway {

/// A report window on a machine without a screen.
class ReportWindow : public testing::Test, protected HeadlessDesk {
 protected:
  ReportWindow() {
    startRun();
    runState().ModGuidComp = "7";
  }

  std::string write(const std::string& name, const std::string& bytes) {
    replaceFile(folder.path / name, bytes, "test");
    return (folder.path / name).string();
  }
  FrmReport& open(const std::string& bytes) {
    return *(form = openReportWindow(platform(), bytes));
  }
  void make(const std::string& bytes) { form = makeReportWindow(platform(), bytes); }
  void load(const std::string& bytes) {
    make(bytes);
    form->load();
  }

  /// Pages "page 1" to "page n", each ended by a form feed, with the bare line end behind the last.
  static std::string pages(int count) {
    std::string text;
    for (int i = 1; i <= count; ++i) text += "page " + std::to_string(i) + "\r\n\f";
    return text + "\r\n";
  }

  headless::User user() { return headless::User(*form); }

  std::shared_ptr<FrmReport> form;
};

}  // namespace paperway
