#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "paperway/platform/storage.h"

namespace paperway {

/// How often one byte stands in a text, block by block, so that its n-th place and its count up to
/// an offset are found without reading more than a block. Memory depends on the text's length
/// alone.
class ByteIndex {
 public:
  explicit ByteIndex(char byte) : byte_(byte) {}

  static constexpr std::size_t kBlock = 16384;

  /// Counts the bytes that follow; their number is a multiple of kBlock, except at the text's end.
  void add(std::string_view bytes);

  std::uint64_t total() const { return upTo_.back(); }
  /// Occurrences in text[0, offset).
  std::uint64_t countBefore(std::string_view text, std::size_t offset) const;
  /// Offset of the occurrence with this number, from 0; the text's size when there are fewer.
  std::size_t position(std::string_view text, std::uint64_t number) const;

 private:
  char byte_;
  std::vector<std::uint64_t> upTo_{0};  // occurrences before each block
};

/// Which content of a file was read.
struct FileStamp {
  std::filesystem::path path;
  FileStatus status;
};

/// Bytes that never change, with the places of their line ends and form feeds. The form, its page
/// table and its text controls share one, so that a report is in memory once.
class SharedText {
 public:
  static std::shared_ptr<const SharedText> of(std::string bytes);
  /// The whole file; an AutomationError that names the file and the reason otherwise.
  static std::shared_ptr<const SharedText> load(Storage& storage, const std::filesystem::path& path,
                                                const std::string& source);

  std::string_view view() const { return {bytes_.get(), size_}; }
  /// The bytes and a form feed behind them, so that a last page without one can be shown with it.
  std::string_view withFormFeed() const { return {bytes_.get(), size_ + 1}; }
  /// Made when it is first asked for: pages do without it.
  const ByteIndex& lineEnds() const;
  const ByteIndex& formFeeds() const { return formFeeds_; }

  /// True while the file still is what was read from it.
  bool isContentOf(Storage& storage, const std::filesystem::path& path) const;

 private:
  explicit SharedText(std::size_t size);
  static std::shared_ptr<const SharedText> load(const FileStamp& stamp, StoredFile& file);

  std::unique_ptr<char[]> bytes_;
  std::size_t size_;
  mutable std::optional<ByteIndex> lineEnds_;
  ByteIndex formFeeds_{'\f'};
  std::optional<FileStamp> stamp_;
};

/// A part of a shared text; the form feed behind it may be the last byte.
struct TextSlice {
  std::shared_ptr<const SharedText> text;
  std::size_t begin = 0;
  std::size_t end = 0;

  std::size_t size() const { return end - begin; }
  std::string_view view() const {
    return text == nullptr ? std::string_view() : text->withFormFeed().substr(begin, end - begin);
  }
  /// Line ends in [0, offset), and the place of the one with this number.
  std::uint64_t lineEndsBefore(std::size_t offset) const;
  std::size_t lineEnd(std::uint64_t number) const;
};

}  // namespace paperway
