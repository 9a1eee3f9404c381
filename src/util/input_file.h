#pragma once

#include <cstdio>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace paperway {

/// A file that is read block by block, in memory that does not grow with it, as often as wanted:
/// each time the same file, whatever has taken its name meanwhile. Every failure is an
/// AutomationError that names the file and the reason.
class InputFile {
 public:
  /// `source` names the caller in errors ("PrintFile").
  InputFile(std::filesystem::path path, std::string source);

  /// From the beginning to the end.
  void read(const std::function<void(std::string_view)>& take);

 private:
  struct Closer {
    void operator()(std::FILE* file) const { std::fclose(file); }
  };

  const std::filesystem::path path_;
  const std::string source_;
  std::unique_ptr<std::FILE, Closer> file_;
  std::vector<char> buffer_;
  bool begun_ = false;
};

/// The whole of a file's bytes.
std::string readFile(const std::filesystem::path& path, const std::string& source);

/// The same, block by block.
void readBlocks(const std::filesystem::path& path, const std::string& source,
                const std::function<void(std::string_view)>& take);

}  // namespace paperway
