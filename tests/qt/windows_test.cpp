#include "contract/form_contract.h"
#include "contract/report_window_contract.h"
#include "qt_desk.h"

namespace paperway {

INSTANTIATE_TYPED_TEST_SUITE_P(Qt, FormContract, QtDesk);
INSTANTIATE_TYPED_TEST_SUITE_P(Qt, ReportWindowContract, QtDesk);

}  // namespace paperway
