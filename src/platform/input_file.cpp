#include "platform/input_file.h"

#include "platform/file_error.h"

namespace paperway {

InputFile::InputFile(Storage& storage, std::filesystem::path path, std::string source)
    : path_(std::move(path)), source_(std::move(source)), buffer_(256 * 1024) {
  withFileError("read", path_, source_, [&] { file_ = storage.openToRead(path_); });
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

std::string readFile(Storage& storage, const std::filesystem::path& path,
                     const std::string& source) {
  std::string bytes;
  readBlocks(storage, path, source, [&](std::string_view block) { bytes += block; });
  return bytes;
}

}  // namespace paperway
