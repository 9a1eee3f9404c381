#pragma once

#include "backends/desktop/system/local_time.h"
#include "paperway/platform/clock.h"

namespace paperway::desktop {

class Clock : public paperway::Clock {
 public:
  Date now() override { return localTime(std::time(nullptr)); }
};

}  // namespace paperway::desktop
