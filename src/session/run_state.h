#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>

#include "paperway/run_context.h"
#include "util/control_strings.h"

namespace paperway {

class Form;

/// The channel between Class1 and the windows, which read their arguments when they load: what a
/// RunContext holds. Texts are UTF-8.
struct RunState {
  std::uint8_t ModPagelenth = 0;  // inches
  std::string ModPrinterName;
  std::uint8_t ModCc17 = 0;  // the print panel starts with condensed (17 characters to the inch)
  std::uint8_t ModCc12 = 0;  // and with 12 characters to the inch

  // What the report window offers; 0 hides it.
  std::uint8_t ModRCont = 0;    // all pages as one text
  std::uint8_t ModREdit = 0;    // editing
  std::uint8_t ModRSearch = 0;  // search
  std::uint8_t ModRImport = 0;  // opening another report file
  std::uint8_t ModRExport = 0;  // exports
  std::uint8_t ModRColor = 0;   // the choice of colours
  std::uint8_t ModRPrint = 0;   // printing

  std::filesystem::path ModPath1;        // report file that the window loads
  bool ModWindowOpen = false;            // a report window, or the browser window, is open
  std::string ModGuidComp;               // company or installation number; names the settings file
  std::filesystem::path ModBrowserPath;  // HTML file that the browser window opens
  DOSEFONTcHR ModDosFont;                // control strings of the last print

  // The windows that members without arguments of their own come back to, as long as they are open.
  std::weak_ptr<Form> ModReportForm;
  std::weak_ptr<Form> ModStickerForm;
  std::weak_ptr<Form> ModBrowserForm;
};

/// That of the thread's own context.
inline RunState& runState() {
  return *RunContext::ofThread();
}

}  // namespace paperway
