#include "backends/desktop/system/direct_spooler.h"

#include "backends/desktop/system/direct_job.h"

namespace paperway::desktop {

std::unique_ptr<PrintJob> DirectSpooler::open(const std::string& printer) {
  auto found = file_.find(printer);
  if (!found) return nullptr;
  const auto timeout = found->timeout.count() > 0 ? found->timeout : timeout_;
  const DirectTarget target = parseTarget(found->target);
  switch (target.kind) {
    case DirectTarget::Kind::socket:
      return socketJob({printer, timeout}, target);
    case DirectTarget::Kind::file:
      return fileJob({printer, timeout}, target);
    case DirectTarget::Kind::command:
      return commandJob({printer, timeout}, target);
  }
  return nullptr;
}

}  // namespace paperway::desktop
