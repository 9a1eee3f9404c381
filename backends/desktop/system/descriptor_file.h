#pragma once

#include <optional>
#include <string>
#include <sys/stat.h>
#include <sys/types.h>

#include "paperway/platform/storage.h"

namespace paperway::desktop {

/// Raises the reason that a system call has just left.
[[noreturn]] void raiseSystemError();

/// What is at the path, links followed; nothing when there is no file.
std::optional<struct stat> statusAt(const std::filesystem::path& path);
/// The same of an open file.
struct stat statusOf(int descriptor);
bool isSameFile(const struct stat& one, const struct stat& other);
FileStatus fileStatus(const struct stat& status);

/// open(2); a signal does not end it.
int openDescriptor(const std::filesystem::path& path, int flags, mode_t mode = 0);

/// Owns a descriptor.
class DescriptorFile : public StoredFile {
 public:
  explicit DescriptorFile(int descriptor) : descriptor_(descriptor) {}
  /// open(2), with nothing left to fail once the file is open.
  static std::unique_ptr<DescriptorFile> open(const std::filesystem::path& path, int flags,
                                              mode_t mode = 0);
  ~DescriptorFile() override;
  DescriptorFile(const DescriptorFile&) = delete;
  DescriptorFile& operator=(const DescriptorFile&) = delete;

  int descriptor() const { return descriptor_; }

  FileStatus status() override;
  std::size_t read(char* bytes, std::size_t size) override;
  void rewind() override;
  void write(std::string_view bytes) override;
  void takeAccessOf(const std::filesystem::path& other) override;
  void sync() override;
  void finish() override;
  bool lock(std::chrono::milliseconds patience) override;
  bool isAt(const std::filesystem::path& path) override;

 private:
  int descriptor_;
};

}  // namespace paperway::desktop
