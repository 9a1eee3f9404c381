#pragma once

#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>

namespace paperway {

/// A folder of the test's own, gone with it.
class TestFolder {
 public:
  TestFolder() {
    std::string name = kOutside + "/paperwayXXXXXX";
    path = std::filesystem::canonical(mkdtemp(name.data()));
  }
  ~TestFolder() { std::filesystem::remove_all(path); }
  TestFolder(const TestFolder&) = delete;
  TestFolder& operator=(const TestFolder&) = delete;

  std::filesystem::path path;

 private:
  static inline const std::string kOutside = testing::TempDir();  // asked before TMPDIR changes
};

}  // namespace paperway
