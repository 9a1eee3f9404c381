#pragma once

#include "backends/headless/user.h"
#include "paperway/headless.h"
#include "support/test_folder.h"

namespace paperway {

/// A desk without a screen, and a person at it.
struct HeadlessDesk {
  TestFolder folder;
  headless::Headless machine{folder.path};

  Platform platform() { return machine.platform(); }
  headless::User user(Form& form) { return headless::User(form); }
  void expectAgreement(const Form&) {}
};

}  // namespace paperway
