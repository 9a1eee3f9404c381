#pragma once

#include "paperway/platform/page_setup.h"
#include "paperway/platform/user_store.h"

namespace paperway::desktop {

/// The set-up as texts of the user's store, one an entry: application "Paperway", section
/// "PageSetup", keys "margin_top" and so on.
class PageSetupStore : public paperway::PageSetupStore {
 public:
  explicit PageSetupStore(UserStore& texts) : texts_(texts) {}

  PageSetup read() override;
  void write(const PageSetup& setup) override;

 private:
  UserStore& texts_;
};

}  // namespace paperway::desktop
