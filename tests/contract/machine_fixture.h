#pragma once

#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>

#include "backends/desktop/system/system.h"
#include "backends/headless/headless.h"
#include "support/error_of.h"
#include "support/test_folder.h"
#include "util/output_file.h"

namespace paperway {

struct HeadlessMachine {
  explicit HeadlessMachine(const std::filesystem::path& root) : headless(root) {}
  FileSystem& files() { return headless.files; }
  UserStore& userStore() { return headless.userStore; }

  headless::Headless headless;
};

struct SystemMachine {
  explicit SystemMachine(const std::filesystem::path& root) {
    setenv("TMPDIR", (root / "temporary").c_str(), 1);
    setenv("XDG_CONFIG_HOME", (root / "config").c_str(), 1);
  }
  FileSystem& files() { return system.files; }
  UserStore& userStore() { return system.userStore; }

  desktop::System system;
};

using Machines = testing::Types<HeadlessMachine, SystemMachine>;

template <class Machine>
class MachineTest : public testing::Test {
 protected:
  TestFolder folder_;
  Machine machine_{folder_.path};
};

}  // namespace paperway
