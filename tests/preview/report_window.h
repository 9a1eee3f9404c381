#pragma once

#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

#include "backends/headless/headless.h"
#include "backends/headless/user.h"
#include "facade/run_state.h"
#include "preview/frm_report.h"
#include "support/test_folder.h"
#include "util/output_file.h"

namespace paperway {

/// A report window on a machine without a screen, with everything switched on.
class ReportWindow : public testing::Test {
 protected:
  ReportWindow() {
    RunState& state = runState();
    state = RunState();
    state.ModRCont = state.ModREdit = state.ModRSearch = state.ModRImport = 1;
    state.ModRExport = state.ModRColor = state.ModRPrint = 1;
    state.ModGuidComp = "7";
  }

  std::string write(const std::string& name, const std::string& bytes) {
    replaceFile(folder.path / name, bytes, "test");
    return (folder.path / name).string();
  }

  /// The window as the user meets it: loaded and brought to the front.
  FrmReport& open(const std::string& bytes) {
    load(bytes);
    machine.windows.show(form);
    return *form;
  }

  void load(const std::string& bytes) {
    make(bytes);
    form->load();
  }

  void make(const std::string& bytes) {
    runState().ModPath1 = write("report.prn", bytes);
    form = std::make_shared<FrmReport>(machine.platform());
  }

  /// Pages "page 1" to "page n", each ended by a form feed, with the bare line end behind the last.
  static std::string pages(int count) {
    std::string text;
    for (int i = 1; i <= count; ++i) text += "page " + std::to_string(i) + "\r\n\f";
    return text + "\r\n";
  }

  headless::User user() { return headless::User(*form); }

  TestFolder folder;
  headless::Headless machine{folder.path};
  std::shared_ptr<FrmReport> form;
};

}  // namespace paperway
