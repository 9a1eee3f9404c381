#pragma once

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

/// A fuzz target is one file: seeds() and check(). It runs with the driver beside it, for a fixed
/// number of inputs that are the same in every run, or with libFuzzer.

namespace paperway::fuzz {

/// The inputs that the driver begins with.
std::vector<std::string> seeds();

/// One input, any bytes.
void check(std::string_view input);

/// What must hold for any input.
inline void require(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "Does not hold: %s\n", what);
  std::abort();
}

/// The part of the input before the first `mark`, which is taken off with the mark.
inline std::string_view takeUntil(std::string_view& input, char mark) {
  const auto end = input.find(mark);
  const std::string_view taken = input.substr(0, end);
  input.remove_prefix(end == std::string_view::npos ? input.size() : end + 1);
  return taken;
}

}  // namespace paperway::fuzz

extern "C" [[gnu::used]] inline int LLVMFuzzerTestOneInput(const std::uint8_t* data,
                                                           std::size_t size) {
  paperway::fuzz::check({reinterpret_cast<const char*>(data), size});
  return 0;
}
