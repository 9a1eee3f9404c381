#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>

namespace paperway {

/// A folder of the test's own, gone with it.
class TestFolder {
 public:
  TestFolder() {
    std::string name = kOutside / "paperwayXXXXXX";
    path = std::filesystem::canonical(mkdtemp(name.data()));
  }
  ~TestFolder() { std::filesystem::remove_all(path); }
  TestFolder(const TestFolder&) = delete;
  TestFolder& operator=(const TestFolder&) = delete;

  std::filesystem::path path;

 private:
  // Asked before a test changes TMPDIR.
  static inline const std::filesystem::path kOutside = std::filesystem::temp_directory_path();
};

}  // namespace paperway
