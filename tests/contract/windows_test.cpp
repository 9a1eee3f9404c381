#include "contract/form_contract.h"
#include "contract/report_window_contract.h"
#include "support/headless_desk.h"

namespace paperway {

INSTANTIATE_TYPED_TEST_SUITE_P(Headless, FormContract, HeadlessDesk);
INSTANTIATE_TYPED_TEST_SUITE_P(Headless, ReportWindowContract, HeadlessDesk);

}  // namespace paperway
