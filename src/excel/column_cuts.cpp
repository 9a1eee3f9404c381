#include "excel/column_cuts.h"

#include <algorithm>
#include <limits>

#include "platform/input_file.h"

namespace paperway {
namespace {

constexpr std::size_t kReach = std::numeric_limits<std::int16_t>::max();

/// Lines that come in blocks.
class LineCutter {
 public:
  explicit LineCutter(const std::function<bool(std::string_view)>& take) : take_(take) {}

  /// False when no more lines are wanted.
  bool add(std::string_view block) {
    if (afterCr_ && block.starts_with('\n')) block.remove_prefix(1);
    if (!block.empty()) afterCr_ = false;
    while (!block.empty()) {
      const std::size_t end = block.find_first_of("\r\n");
      keep(block.substr(0, end));
      if (end == block.npos) return true;
      afterCr_ = block[end] == '\r';
      block.remove_prefix(end + 1);
      if (afterCr_ && block.starts_with('\n')) {
        block.remove_prefix(1);
        afterCr_ = false;
      }
      if (!take()) return false;
    }
    return true;
  }

  void finish() {
    if (begun_) take();
  }

 private:
  void keep(std::string_view part) {
    begun_ = true;
    line_ += part.substr(0, kReach - std::min(kReach, line_.size()));
  }

  bool take() {
    begun_ = false;
    const bool more = take_(line_);
    line_.clear();
    return more;
  }

  const std::function<bool(std::string_view)>& take_;
  std::string line_;
  bool begun_ = false;
  bool afterCr_ = false;
};

}  // namespace

std::optional<std::string_view> ColumnCuts::cell(std::string_view line, std::size_t index) const {
  const int begin = marks_[index];
  const int width = marks_[index + 1] - begin;
  if (begin < 0 || width < 0) return std::nullopt;
  const auto at = std::min(static_cast<std::size_t>(begin), line.size());
  return line.substr(at, static_cast<std::size_t>(width));
}

void readLines(Storage& storage, const std::filesystem::path& file, const std::string& caller,
               const std::function<bool(std::string_view line)>& take) {
  LineCutter lines(take);
  bool wanted = true;
  readBlocks(storage, file, caller, [&](std::string_view block) {
    if (wanted) wanted = lines.add(block);
  });
  if (wanted) lines.finish();
}

}  // namespace paperway
