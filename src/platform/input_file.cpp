#include "platform/input_file.h"

#include <algorithm>
#include <new>

#include "platform/file_error.h"

namespace paperway {
namespace {

/// A small file is read at once, with room to see its end.
std::size_t blockSize(const FileStatus& file) {
  constexpr std::uint64_t kLeast = 4 * 1024;
  constexpr std::uint64_t kMost = 256 * 1024;
  const bool isSized = file.kind == FileStatus::Kind::regular;
  return static_cast<std::size_t>(isSized ? std::clamp(file.size + 1, kLeast, kMost) : kMost);
}

}  // namespace

bool fileExists(Storage& storage, const std::filesystem::path& path, const std::string& source) {
  return withFileError("read", path, source,
                       [&] { return storage.status(path).kind != FileStatus::Kind::none; });
}

InputFile::InputFile(Storage& storage, std::filesystem::path path, std::string source)
    : path_(std::move(path)), source_(std::move(source)) {
  withFileError("read", path_, source_, [&] {
    file_ = storage.openToRead(path_);
    buffer_.resize(blockSize(file_->status()));
  });
}

std::size_t InputFile::readBlock() {
  return withFileError("read", path_, source_,
                       [&] { return file_->read(buffer_.data(), buffer_.size()); });
}

void InputFile::read(const std::function<void(std::string_view)>& take) {
  if (begun_) withFileError("read", path_, source_, [&] { file_->rewind(); });
  begun_ = true;
  while (const std::size_t size = readBlock()) take({buffer_.data(), size});
}

void readBlocks(Storage& storage, const std::filesystem::path& path, const std::string& source,
                const std::function<void(std::string_view)>& take) {
  InputFile(storage, path, source).read(take);
}

std::string readFile(Storage& storage, const std::filesystem::path& path, const std::string& source,
                     std::size_t most) {
  std::string bytes;
  try {
    readBlocks(storage, path, source, [&](std::string_view block) {
      if (block.size() > most - bytes.size()) {
        raiseFileError("read", path, std::make_error_code(std::errc::file_too_large), source);
      }
      bytes += block;
    });
  } catch (const std::bad_alloc&) {
    raiseFileError("read", path, std::make_error_code(std::errc::not_enough_memory), source);
  }
  return bytes;
}

}  // namespace paperway
