#pragma once

// Shared by the files of this folder; not for hosts.

#include <thread>

#include "backends/data/odbc/odbc_handle.h"

namespace paperway {

/// Cancels the work of a statement once `asked` says true. A driver comes back from a long query
/// only then, so that a thread of its own asks, for as long as the watch lives.
class OdbcWatch {
 public:
  OdbcWatch(const OdbcHandle& statement, bool (*asked)());

 private:
  std::jthread thread_;
};

}  // namespace paperway
