#pragma once

#include <csignal>

#include "apps/paperway/queues.h"

namespace paperway::command {

/// What the module of the print service exports: opens its queues into `queues`.
using OpenQueues = void(const volatile std::sig_atomic_t* stop, Queues& queues);
inline constexpr char kOpenQueues[] = "paperwayOpenQueues";

}  // namespace paperway::command
