#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "util/control_strings.h"

namespace paperway {

class Form;

/// The channel between Class1 and the windows, which read their arguments when they load. One copy
/// a thread, shared by all Class1 objects of that thread. Paths are native, texts UTF-8.
struct RunState {
  std::uint8_t ModPagelenth = 0;  // inches
  std::string ModPrinterName;
  std::uint8_t ModCc17 = 0;
  std::uint8_t ModCc12 = 0;
  std::uint8_t ModRCont = 0;
  std::uint8_t ModREdit = 0;
  std::uint8_t ModRSearch = 0;
  std::uint8_t ModRImport = 0;
  std::uint8_t ModRExport = 0;
  std::uint8_t ModRColor = 0;
  std::uint8_t ModRPrint = 0;
  std::string ModPath1;
  bool ModWindowOpen = false;
  std::string ModGuidComp;
  DOSEFONTcHR ModDosFont;

  /// Counters of the Text_Rpt in progress, for a host that shows progress from its own recordset.
  std::int64_t rowsDone = 0;
  std::int64_t pagesDone = 0;
};

inline RunState& runState() {
  thread_local RunState state;
  return state;
}

}  // namespace paperway
