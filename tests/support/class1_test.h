#pragma once

#include <gtest/gtest.h>
#include <string>

#include "paperway/class1.h"
#include "paperway/headless.h"
#include "session/run_state.h"
#include "support/error_of.h"
#include "support/files.h"
#include "support/test_folder.h"

namespace paperway {

/// A Class1 on a machine without a screen, and a folder that is gone after the test.
class Class1Test : public testing::Test {
 protected:
  Class1Test() { runState() = RunState(); }

  std::string path(const std::string& name) const { return (folder_.path / name).string(); }
  static std::string bytesOf(const std::string& file) { return readFile(file, "test"); }

  TestFolder folder_;
  headless::Headless machine_{folder_.path};
  Class1 class1_{machine_.platform()};
};

}  // namespace paperway
