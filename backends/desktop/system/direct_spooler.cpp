#include "backends/desktop/system/direct_spooler.h"

#include "backends/desktop/system/direct_job.h"

namespace paperway::desktop {

std::unique_ptr<PrintJob> DirectSpooler::open(const std::string& printer) {
  auto found = file_.find(printer);
  if (!found) return nullptr;
  Patience patience = patience_;
  if (found->timeout.count() > 0) patience.timeout = found->timeout;
  const DirectTarget target = parseTarget(found->target);
  switch (target.kind) {
    case DirectTarget::Kind::socket:
      return socketJob({printer, patience}, target);
    case DirectTarget::Kind::file:
      return fileJob({printer, patience}, target);
    case DirectTarget::Kind::command:
      return commandJob({printer, patience}, target);
  }
  return nullptr;
}

}  // namespace paperway::desktop
