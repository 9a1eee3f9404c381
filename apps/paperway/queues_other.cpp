// In place of queues_cups.cpp in the program without windows: the libraries of the print service
// are large, so their module is loaded for the first question to it.

#include <stdexcept>

#include "apps/paperway/module.h"
#include "apps/paperway/queues_module.h"

namespace paperway::command {

Queues openQueues(const volatile std::sig_atomic_t* stop) {
  const std::filesystem::path module = moduleFile("queues");
  if (module.empty()) {
    throw std::runtime_error(
        "\"paperway-queues.so\" is missing, by which print services are asked.");
  }
  Queues queues;
  reinterpret_cast<OpenQueues*>(moduleSymbol(module, kOpenQueues))(stop, queues);
  return queues;
}

}  // namespace paperway::command
