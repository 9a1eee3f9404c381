#include "printing/local_dos.h"

#include "paperway/automation_error.h"
#include "paperway/platform/folders.h"
#include "paperway/platform/printers.h"
#include "paperway/platform/shell.h"
#include "paperway/platform/system_names.h"
#include "platform/input_file.h"
#include "platform/output_file.h"
#include "util/path_text.h"

namespace paperway {
namespace {

namespace fs = std::filesystem;

constexpr const char* kSource = "PrintReport";

void copyReport(Storage& storage, const fs::path& report, const fs::path& copy) {
  OutputFile out(storage, copy, kSource, {.access = FileAccess::owner, .lasting = false});
  readBlocks(storage, report, kSource, [&](std::string_view block) { out.write(block); });
  out.commit();
}

std::string sendLine(const fs::path& copy, const Platform& platform) {
  const fs::path port = platform.names.printerPort();
  if (fileExists(platform.storage, port, kSource)) return platform.shell.copyLine(copy, port);
  std::string line = platform.printers.sendCommand(platform.printers.current(), copy);
  if (!line.empty()) return line;
  throw AutomationError(AutomationError::kPathNotFound, kSource,
                        "There is no printer for \"Local Dos\": neither the device " +
                            textOf(port) + " nor a current printer.");
}

}  // namespace

void printLocalDos(const fs::path& report, const Platform& platform) {
  const fs::path copy = platform.folders.work() / "localdos.prn";
  const fs::path script = platform.folders.work() / platform.shell.scriptName("Dosprn");
  copyReport(platform.storage, report, copy);
  if (!fileExists(platform.storage, script, kSource)) {
    replaceFile(platform.storage, script,
                platform.shell.scriptText(
                    "Sends a report to the printer. Made once; change it as you like.",
                    sendLine(copy, platform)),
                kSource, {.access = FileAccess::ownerRuns});
  }
  platform.shell.startScript(script);
}

}  // namespace paperway
