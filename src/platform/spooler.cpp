#include "paperway/platform/spooler.h"

namespace paperway {
namespace {

std::string sentence(const std::string& printer, const std::string& reason,
                     std::uint64_t accepted) {
  if (accepted == 0)
    return "The printer \"" + printer + "\" took nothing of the job: " + reason + ".";
  return "The printer \"" + printer + "\" took " + std::to_string(accepted) +
         " bytes of the job and no more: " + reason + ".";
}

}  // namespace

SpoolError::SpoolError(const std::string& printer, const std::string& reason,
                       std::uint64_t accepted)
    : AutomationError(kDeviceIo, "Spooler", sentence(printer, reason, accepted)),
      reason_(reason),
      accepted_(accepted) {}

}  // namespace paperway
