#pragma once

#include <cstdint>

#include "report/report_rules.h"

namespace paperway {

/// What a page has used of its height. Lines are counted in eight bits: a page that is not ended
/// before line 256 begins again at 0.
class PageBudget {
 public:
  /// Full as soon as more than `limit` is used.
  PageBudget(PageUnit unit, double limit) : unit_(unit), limit_(limit) {}

  void add(std::int32_t height) { used_ = inUnit(used_ + height); }
  void restart(std::int32_t headHeight) { used_ = inUnit(headHeight); }

  std::int32_t used() const { return used_; }
  bool isFull() const { return used_ > limit_; }

 private:
  std::int32_t inUnit(std::int32_t height) const {
    return unit_ == PageUnit::lines ? static_cast<std::uint8_t>(height) : height;
  }

  PageUnit unit_;
  double limit_;
  std::int32_t used_ = 0;
};

}  // namespace paperway
