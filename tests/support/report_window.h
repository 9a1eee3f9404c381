#pragma once

#include <memory>
#include <string_view>

#include "paperway/platform.h"
#include "paperway/platform/folders.h"
#include "paperway/platform/windows.h"
#include "preview/frm_report.h"
#include "session/run_state.h"
#include "support/files.h"

namespace paperway {

/// A run with everything of the report window switched on.
inline void startRun() {
  RunState& state = runState() = RunState();
  state.ModRCont = state.ModREdit = state.ModRSearch = state.ModRImport = 1;
  state.ModRExport = state.ModRColor = state.ModRPrint = 1;
}

/// A window, not loaded yet, on a report of these bytes.
inline std::shared_ptr<FrmReport> makeReportWindow(const Platform& platform,
                                                   std::string_view report) {
  runState().ModPath1 = (platform.folders.work() / "report.prn").string();
  replaceFile(runState().ModPath1, report, "test");
  return std::make_shared<FrmReport>(platform, RunContext::ofThread());
}

/// The window as the user meets it: loaded and brought to the front.
inline std::shared_ptr<FrmReport> openReportWindow(const Platform& platform,
                                                   std::string_view report) {
  auto form = makeReportWindow(platform, report);
  form->load();
  platform.windows.show(form);
  return form;
}

}  // namespace paperway
