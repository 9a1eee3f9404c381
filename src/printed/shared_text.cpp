#include "printed/shared_text.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <system_error>

#include "platform/file_error.h"
#include "platform/input_file.h"

namespace paperway {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kShortSlice = 2 * ByteIndex::kBlock;  // counted faster than looked up

/// Sums in bytes, which is what keeps the loop wide.
std::uint64_t occurrences(std::string_view text, char byte) {
  constexpr std::size_t kStep = 240;
  std::uint64_t total = 0;
  std::size_t i = 0;
  for (; i + kStep <= text.size(); i += kStep) {
    std::uint8_t count = 0;
    for (std::size_t k = 0; k < kStep; ++k) {
      count = static_cast<std::uint8_t>(count + (text[i + k] == byte));
    }
    total += count;
  }
  for (; i < text.size(); ++i) total += text[i] == byte;
  return total;
}

/// Offset of the byte's occurrence with this number, from 0.
std::size_t placeOf(std::string_view text, char byte, std::uint64_t number) {
  std::size_t at = text.find(byte);
  for (; number > 0 && at != std::string_view::npos; --number) at = text.find(byte, at + 1);
  return at;
}

/// As many bytes as there are, up to `size`; only the file's last chunk is shorter.
std::size_t readChunk(StoredFile& file, char* bytes, std::size_t size) {
  std::size_t read = 0;
  while (read < size) {
    const std::size_t part = file.read(bytes + read, size - read);
    if (part == 0) break;
    read += part;
  }
  return read;
}

}  // namespace

void ByteIndex::add(std::string_view bytes) {
  for (std::size_t at = 0; at < bytes.size(); at += kBlock) {
    upTo_.push_back(upTo_.back() + occurrences(bytes.substr(at, kBlock), byte_));
  }
}

std::uint64_t ByteIndex::countBefore(std::string_view text, std::size_t offset) const {
  const std::size_t block = offset / kBlock;
  if (block + 1 >= upTo_.size()) return total();
  const std::size_t begin = block * kBlock;
  return upTo_[block] + occurrences(text.substr(begin, offset - begin), byte_);
}

std::size_t ByteIndex::position(std::string_view text, std::uint64_t number) const {
  if (number >= total()) return text.size();
  const auto behind = std::upper_bound(upTo_.begin(), upTo_.end(), number);
  const auto block = static_cast<std::size_t>(behind - upTo_.begin()) - 1;
  const std::size_t begin = block * kBlock;
  return begin + placeOf(text.substr(begin), byte_, number - upTo_[block]);
}

SharedText::SharedText(std::size_t size)
    : bytes_(std::make_unique_for_overwrite<char[]>(size + 1)), size_(size) {
  bytes_[size] = '\f';
}

const ByteIndex& SharedText::lineEnds() const {
  if (!lineEnds_) {
    lineEnds_.emplace('\n');
    lineEnds_->add(view());
  }
  return *lineEnds_;
}

std::shared_ptr<const SharedText> SharedText::of(std::string bytes) {
  std::shared_ptr<SharedText> text(new SharedText(bytes.size()));
  std::memcpy(text->bytes_.get(), bytes.data(), bytes.size());
  text->formFeeds_.add(text->view());
  return text;
}

std::shared_ptr<const SharedText> SharedText::load(Storage& storage, const fs::path& path,
                                                   const std::string& source) {
  try {
    return withFileError("read", path, source, [&]() -> std::shared_ptr<const SharedText> {
      const auto file = storage.openToRead(path);
      const FileStatus status = file->status();
      if (status.kind != FileStatus::Kind::regular) return of(readFile(storage, path, source));
      return load({path, status}, *file);
    });
  } catch (const std::bad_alloc&) {
    raiseFileError("read", path, std::make_error_code(std::errc::not_enough_memory), source);
  }
}

std::shared_ptr<const SharedText> SharedText::load(const FileStamp& stamp, StoredFile& file) {
  std::shared_ptr<SharedText> text(new SharedText(stamp.status.size));
  constexpr std::size_t kChunk = 32 * ByteIndex::kBlock;  // counted while it is in the cache
  std::size_t size = 0;
  while (size < stamp.status.size) {
    const std::size_t chunk = readChunk(file, text->bytes_.get() + size,
                                        std::min<std::size_t>(kChunk, stamp.status.size - size));
    if (chunk == 0) break;  // the file became shorter
    text->formFeeds_.add({text->bytes_.get() + size, chunk});
    size += chunk;
  }
  text->size_ = size;
  text->bytes_[size] = '\f';
  text->stamp_ = stamp;
  return text;
}

bool SharedText::isContentOf(Storage& storage, const fs::path& path) const {
  if (!stamp_ || stamp_->path != path) return false;
  try {
    return storage.status(path) == stamp_->status;
  } catch (const std::system_error&) {
    return false;  // its reading will tell
  }
}

std::uint64_t TextSlice::lineEndsBefore(std::size_t offset) const {
  if (size() <= kShortSlice) return occurrences(view().substr(0, offset), '\n');
  const ByteIndex& ends = text->lineEnds();
  return ends.countBefore(text->view(), begin + offset) - ends.countBefore(text->view(), begin);
}

std::size_t TextSlice::lineEnd(std::uint64_t number) const {
  if (size() <= kShortSlice) return placeOf(view(), '\n', number);
  const ByteIndex& ends = text->lineEnds();
  return ends.position(text->view(), ends.countBefore(text->view(), begin) + number) - begin;
}

}  // namespace paperway
