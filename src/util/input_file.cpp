#include "util/input_file.h"

#include <cerrno>

#include "util/output_file.h"

namespace paperway {

InputFile::InputFile(std::filesystem::path path, std::string source)
    : path_(std::move(path)), source_(std::move(source)), buffer_(256 * 1024) {
  std::error_code status;
  if (std::filesystem::is_directory(path_, status)) raiseFileError("read", path_, EISDIR, source_);
  file_.reset(std::fopen(path_.c_str(), "rb"));
  if (!file_) raiseFileError("read", path_, errno, source_);
  std::setvbuf(file_.get(), nullptr, _IONBF, 0);
}

void InputFile::read(const std::function<void(std::string_view)>& take) {
  if (begun_ && std::fseek(file_.get(), 0, SEEK_SET) != 0) {
    raiseFileError("read", path_, errno, source_);
  }
  begun_ = true;
  while (const std::size_t n = std::fread(buffer_.data(), 1, buffer_.size(), file_.get())) {
    take({buffer_.data(), n});
  }
  if (std::ferror(file_.get()) != 0) raiseFileError("read", path_, errno, source_);
}

void readBlocks(const std::filesystem::path& path, const std::string& source,
                const std::function<void(std::string_view)>& take) {
  InputFile(path, source).read(take);
}

std::string readFile(const std::filesystem::path& path, const std::string& source) {
  std::string bytes;
  std::error_code status;
  const auto size = std::filesystem::file_size(path, status);
  if (!status) bytes.reserve(size);
  readBlocks(path, source, [&](std::string_view block) { bytes += block; });
  return bytes;
}

}  // namespace paperway
