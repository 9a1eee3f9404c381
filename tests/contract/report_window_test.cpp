#include "backends/headless/headless.h"
#include "backends/headless/user.h"
#include "contract/report_window_contract.h"
#include "support/test_folder.h"

namespace paperway {
namespace {

struct HeadlessDesk {
  TestFolder folder;
  headless::Headless machine{folder.path};

  Platform platform() { return machine.platform(); }
  headless::User user(Form& form) { return headless::User(form); }
  void expectAgreement(const Form&) {}
};

INSTANTIATE_TYPED_TEST_SUITE_P(Headless, ReportWindowContract, HeadlessDesk);

}  // namespace
}  // namespace paperway
