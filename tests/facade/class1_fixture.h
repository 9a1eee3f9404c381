#pragma once

#include "backends/headless/headless.h"
#include "facade/class1.h"
#include "support/error_of.h"
#include "support/test_folder.h"

namespace paperway {

class Class1Test : public testing::Test {
 protected:
  TestFolder folder_;
  headless::Headless machine_{folder_.path};
  Class1 class1_{machine_.platform()};

  std::string path(const char* name) const { return (folder_.path / name).string(); }
};

}  // namespace paperway
