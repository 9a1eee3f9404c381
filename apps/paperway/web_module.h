#pragma once

#include "paperway/platform.h"
#include "paperway/platform/browser.h"

namespace paperway::command {

/// What the module of the browser window exports: makes a browser, which the caller deletes. The
/// platform is copied.
using MakeWebBrowser = Browser*(const Platform& platform);
inline constexpr char kMakeWebBrowser[] = "paperwayWebBrowser";

}  // namespace paperway::command
