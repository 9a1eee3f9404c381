#include "paperway/run_context.h"

#include "session/run_state.h"

namespace paperway {

RunContext::RunContext() : state_(std::make_shared<RunState>()) {}

RunContext RunContext::ofThread() {
  thread_local const RunContext context;
  return context;
}

}  // namespace paperway
