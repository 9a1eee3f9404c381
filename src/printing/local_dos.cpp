#include "printing/local_dos.h"

#include "paperway/automation_error.h"
#include "paperway/platform/folders.h"
#include "paperway/platform/printers.h"
#include "paperway/platform/shell.h"
#include "platform/input_file.h"
#include "platform/output_file.h"
#include "util/shell_quote.h"

namespace paperway {
namespace {

namespace fs = std::filesystem;

void copyReport(Storage& storage, const std::string& report, const fs::path& copy) {
  OutputFile out(storage, copy, "PrintReport", {.access = FileAccess::owner, .lasting = false});
  readBlocks(storage, report, "PrintReport", [&](std::string_view block) { out.write(block); });
  out.commit();
}

std::string sendCommand(const fs::path& copy, Printers& printers, const fs::path& device) {
  std::error_code ignored;
  if (fs::exists(device, ignored)) {
    return "cat " + shellQuoted(copy.string()) + " > " + shellQuoted(device.string());
  }
  const std::string command = printers.sendCommand(printers.current(), copy);
  if (!command.empty()) return command;
  throw AutomationError(AutomationError::kPathNotFound, "PrintReport",
                        "There is no printer for \"Local Dos\": neither the device " +
                            device.string() + " nor a current printer.");
}

void makeScript(Storage& storage, const fs::path& script, const std::string& command) {
  replaceFile(storage, script,
              "#!/bin/sh\n"
              "# Sends a report to the printer. Made once; change it as you like.\n" +
                  command + "\n",
              "PrintReport", {.access = FileAccess::ownerRuns});
}

}  // namespace

void printLocalDos(const std::string& reportPath, const Platform& platform,
                   const fs::path& device) {
  const fs::path copy = platform.folders.work() / "localdos.prn";
  const fs::path script = platform.folders.work() / "Dosprn.sh";
  copyReport(platform.storage, reportPath, copy);
  if (!fs::exists(script))
    makeScript(platform.storage, script, sendCommand(copy, platform.printers, device));
  const bool runs = (fs::status(script).permissions() & fs::perms::owner_exec) != fs::perms::none;
  platform.shell.start(runs ? std::vector{script.string()}
                            : std::vector<std::string>{"/bin/sh", script.string()});
}

}  // namespace paperway
