#pragma once

#include <ostream>

namespace paperway {

/// A property of an owner that reads and assigns through two of its members.
template <typename Owner, typename T, T (Owner::*Get)() const, void (Owner::*Set)(T)>
class Accessor {
 public:
  explicit Accessor(Owner& owner) : owner_(owner) {}
  Accessor(const Accessor&) = delete;
  Accessor& operator=(const Accessor& other) { return *this = other.get(); }

  Accessor& operator=(T value) {
    (owner_.*Set)(std::move(value));
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
