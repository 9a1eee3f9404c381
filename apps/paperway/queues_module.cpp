// The module of the print service, beside queues_cups.cpp.

#include "apps/paperway/queues_module.h"

extern "C" PAPERWAY_API void paperwayOpenQueues(const volatile std::sig_atomic_t* stop,
                                                paperway::command::Queues& queues) {
  queues = paperway::command::openQueues(stop);
}
