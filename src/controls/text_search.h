#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace paperway {

/// A text to look for in report bytes without regard to case (all letters of windows-1252).
class CaselessNeedle {
 public:
  explicit CaselessNeedle(std::string_view bytes);

  std::size_t size() const { return folded_.size(); }
  /// Offset of the first match that begins at or after `from`; npos when there is none, and for an
  /// empty needle.
  std::size_t findIn(std::string_view text, std::size_t from = 0) const;

 private:
  struct Probe {  // a byte of the needle in both cases, by which places are ruled out
    std::size_t offset = 0;
    char lower = 0;
    char upper = 0;
  };

  bool mayMatch(const char* block) const;
  bool matchesAt(const char* place) const;

  std::string folded_;
  std::array<Probe, 2> probes_;
};

}  // namespace paperway
