// In place of desk_qt.cpp where the build has no windows.

#include <stdexcept>

#include "apps/paperway/desk.h"

namespace paperway::command {

std::unique_ptr<Desk> Desk::open(const Options& /*options*/) {
  throw std::runtime_error("This build has no windows (PAPERWAY_DESKTOP is off).");
}

}  // namespace paperway::command
