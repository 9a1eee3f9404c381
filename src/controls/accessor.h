#pragma once

#include <ostream>
#include <utility>

namespace paperway {

template <typename Owner, typename Assigned>
Assigned assignedBy(void (Owner::*)(Assigned));

/// A property of an owner that reads and assigns through two of its members.
template <typename Owner, typename T, T (Owner::*Get)() const, auto Set>
class Accessor {
  using Assigned = decltype(assignedBy(Set));

 public:
  explicit Accessor(Owner& owner) : owner_(owner) {}
  Accessor(const Accessor&) = delete;
  Accessor& operator=(const Accessor& other) { return *this = other.get(); }

  Accessor& operator=(Assigned value) {
    (owner_.*Set)(std::forward<Assigned>(value));
    return *this;
  }

  T get() const { return (owner_.*Get)(); }
  operator T() const { return get(); }

  template <typename U>
  bool operator==(const U& other) const {
    return get() == other;
  }
  friend std::ostream& operator<<(std::ostream& out, const Accessor& accessor) {
    return out << accessor.get();
  }

 private:
  Owner& owner_;
};

}  // namespace paperway
