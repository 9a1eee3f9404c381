// In place of queues_cups.cpp where the build has no print service.

#include "apps/paperway/queues.h"
#include "paperway/headless.h"

namespace paperway::command {
namespace {

struct NoPrinters : headless::Printers {
  NoPrinters() { infos.clear(); }
};

const NoPrinters kNone;

}  // namespace

Queues openQueues(const volatile std::sig_atomic_t* /*stop*/) {
  return {std::make_unique<NoPrinters>(), std::make_unique<headless::Spooler>(kNone)};
}

}  // namespace paperway::command
