#include "printed/shared_text.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <system_error>

#include "util/input_file.h"

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

std::optional<FileStamp> stampOf(const fs::path& path) {
  std::error_code error;
  FileStamp stamp{path, 0, {}};
  if (!fs::is_regular_file(path, error)) return std::nullopt;
  stamp.size = fs::file_size(path, error);
  if (!error) stamp.written = fs::last_write_time(path, error);
  if (error) return std::nullopt;
  return stamp;
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

std::shared_ptr<const SharedText> SharedText::load(const fs::path& path,
                                                   const std::string& source) {
  const std::optional<FileStamp> stamp = stampOf(path);
  struct Closer {
    void operator()(std::FILE* file) const { std::fclose(file); }
  };
  const std::unique_ptr<std::FILE, Closer> file(std::fopen(path.c_str(), "rb"));
  if (!stamp || file == nullptr) return of(readFile(path, source));
  std::setvbuf(file.get(), nullptr, _IONBF, 0);

  std::shared_ptr<SharedText> text(new SharedText(stamp->size));
  constexpr std::size_t kChunk = 32 * ByteIndex::kBlock;  // counted while it is in the cache
  std::size_t read = 0;
  while (read < stamp->size) {
    const std::size_t wanted = std::min<std::size_t>(kChunk, stamp->size - read);
    const std::size_t got = std::fread(text->bytes_.get() + read, 1, wanted, file.get());
    if (std::ferror(file.get()) != 0) return of(readFile(path, source));
    text->formFeeds_.add({text->bytes_.get() + read, got});
    read += got;
    if (got < wanted) break;  // the file became shorter
  }
  text->size_ = read;
  text->bytes_[read] = '\f';
  text->stamp_ = stamp;
  return text;
}

bool SharedText::isContentOf(const fs::path& path) const {
  return stamp_ && stampOf(path) == stamp_;
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
