#pragma once

#include <memory>

#include "support/job_listener.h"
#include "support/private_cups.h"

namespace paperway {

/// A server with a raw queue "P" and a queue "Drawn", the default one, to a printer of PDF.
struct Desk {
  Desk() {
    cups.addRawQueue("P", raw.address());
    cups.addPdfQueue("Drawn", drawn.address());
    cups.administer("-d Drawn");
  }

  JobListener raw;
  JobListener drawn;
  PrivateCups cups;
};

extern std::unique_ptr<Desk> desk;  // while tests run

}  // namespace paperway
