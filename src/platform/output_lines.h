#pragma once

#include <cstring>
#include <string>
#include <string_view>

#include "platform/output_file.h"

namespace paperway {

/// The lines of a file on their way to the disk: gathered in a block, written when it is full.
/// Bytes are of the file's code page; each line ends in CR LF.
class OutputLines {
 public:
  explicit OutputLines(OutputFile& file) : file_(file), block_(kBlock, '\0') {}

  void line(std::string_view text) {
    append(text);
    endLine();
  }

  void append(std::string_view text) {
    std::memcpy(reserve(text.size()), text.data(), text.size());
    used_ += text.size();
  }

  void endLine() { append("\r\n"); }

  /// Room for `count` bytes, to be filled by the caller and taken in by advance().
  char* reserve(std::size_t count) {
    if (used_ + count > block_.size()) makeRoom(count);
    return block_.data() + used_;
  }

  /// The same, filled with blanks.
  char* blanks(std::size_t count) {
    char* const room = reserve(count);
    std::memset(room, ' ', count);
    return room;
  }

  void advance(std::size_t count) { used_ += count; }

  void flush() {
    file_.write({block_.data(), used_});
    used_ = 0;
  }

 private:
  static constexpr std::size_t kBlock = 128 * 1024;

  void makeRoom(std::size_t count) {
    flush();
    if (count > block_.size()) block_.resize(count);
  }

  OutputFile& file_;
  std::string block_;
  std::size_t used_ = 0;
};

}  // namespace paperway
