// The module of the browser window.

#include "apps/paperway/web_module.h"

#include "paperway/web.h"

extern "C" PAPERWAY_API paperway::Browser* paperwayWebBrowser(const paperway::Platform& platform) {
  return new paperway::Web(platform);
}
