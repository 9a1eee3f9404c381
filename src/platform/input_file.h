#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "paperway/platform/storage.h"

namespace paperway {

/// True when the path leads to anything, be it a folder. `source` names the caller in errors.
bool fileExists(Storage& storage, const std::filesystem::path& path, const std::string& source);

/// A file that is read block by block, in memory that does not grow with it, as often as wanted:
/// each time the same file, whatever has taken its name meanwhile. Every failure is an
/// AutomationError that names the file and the reason.
class InputFile {
 public:
  /// `source` names the caller in errors ("PrintFile").
  InputFile(Storage& storage, std::filesystem::path path, std::string source);

  /// From the beginning to the end.
  void read(const std::function<void(std::string_view)>& take);

 private:
  std::size_t readBlock();

  const std::filesystem::path path_;
  const std::string source_;
  std::unique_ptr<StoredFile> file_;
  std::vector<char> buffer_;
  bool begun_ = false;
};

inline constexpr std::size_t kNoLimit = PTRDIFF_MAX;  // of bytes

/// The whole of a file's bytes. One with more than `most` of them, which may be endless, is too
/// large.
std::string readFile(Storage& storage, const std::filesystem::path& path, const std::string& source,
                     std::size_t most = kNoLimit);

/// The same, block by block.
void readBlocks(Storage& storage, const std::filesystem::path& path, const std::string& source,
                const std::function<void(std::string_view)>& take);

}  // namespace paperway
