#include "apps/paperway/memory_limit.h"

#include <algorithm>
#include <cstdint>
#include <fstream>
#include <limits>
#include <string>
#include <string_view>
#include <sys/resource.h>

namespace paperway::command {
namespace {

constexpr std::uint64_t kUnknown = std::numeric_limits<std::uint64_t>::max();
constexpr std::uint64_t kLeast = 256 << 20;  // a window that opens on a crowded machine

/// Bytes of a line "Name:   123 kB".
std::uint64_t kibibytes(const char* file, std::string_view name) {
  std::ifstream lines(file);
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with(name)) return std::stoull(line.substr(name.size())) << 10;
  }
  return kUnknown;
}

/// What a container may hold.
std::uint64_t containerLimit() {
  std::ifstream groups("/proc/self/cgroup");
  std::string group;
  while (std::getline(groups, group) && !group.starts_with("0::")) {
  }
  if (!group.starts_with("0::")) return kUnknown;
  std::ifstream file("/sys/fs/cgroup" + group.substr(3) + "/memory.max");
  std::uint64_t bytes = 0;
  return file >> bytes ? bytes : kUnknown;  // it may be the word "max"
}

}  // namespace

void limitMemory() {
  const std::uint64_t free = kibibytes("/proc/meminfo", "MemAvailable:");
  const std::uint64_t swap = kibibytes("/proc/meminfo", "SwapFree:");
  const std::uint64_t used = kibibytes("/proc/self/status", "VmData:");
  if (free == kUnknown || swap == kUnknown || used == kUnknown) return;
  const std::uint64_t spare = std::max(std::min(free + swap, containerLimit()), kLeast);
  rlimit limit{};
  if (getrlimit(RLIMIT_DATA, &limit) != 0) return;
  limit.rlim_cur = std::min<rlim_t>(limit.rlim_cur, used + spare);
  setrlimit(RLIMIT_DATA, &limit);
}

void liftMemoryLimit() {
  rlimit limit{};
  if (getrlimit(RLIMIT_DATA, &limit) != 0) return;
  limit.rlim_cur = limit.rlim_max;
  setrlimit(RLIMIT_DATA, &limit);
}

}  // namespace paperway::command
