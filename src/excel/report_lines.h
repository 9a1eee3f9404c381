#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

namespace paperway {

/// Lines out of blocks of any size. A line ends in CR LF or LF; a lone CR is text. What is behind
/// the first 32,767 bytes of a line is left out.
class ReportLines {
 public:
  /// `take(line)` for each line that ends in the block; then all but the last piece may go.
  template <class Take>
  void block(std::string_view bytes, Take take) {
    while (!bytes.empty()) {
      const std::size_t end = bytes.find('\n');
      if (end == bytes.npos) return keep(bytes);
      if (begun_.empty()) {
        take(withoutCr(bytes.substr(0, end)).substr(0, kReach));
      } else {
        keep(bytes.substr(0, end));
        whole_.swap(begun_);
        begun_.clear();
        take(withoutCr(whole_));
      }
      bytes.remove_prefix(end + 1);
    }
  }

  /// The line that has no end.
  template <class Take>
  void end(Take take) {
    if (!begun_.empty()) take(std::string_view(begun_));
  }

 private:
  static constexpr std::size_t kReach = 32767;

  static std::string_view withoutCr(std::string_view line) {
    if (line.ends_with('\r')) line.remove_suffix(1);
    return line;
  }

  void keep(std::string_view piece) {
    begun_ += piece.substr(0, kReach + 1 - std::min(kReach + 1, begun_.size()));
  }

  std::string begun_;
  std::string whole_;
};

}  // namespace paperway
