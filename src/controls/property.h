#pragma once

#include <functional>
#include <ostream>
#include <utility>

namespace paperway {

/// A value that acts when it changes: assigning another value stores it and runs `changed`, which
/// the owner sets; assigning the same value does nothing.
template <typename T>
class Property {
 public:
  Property() = default;
  explicit Property(T initial) : value_(std::move(initial)) {}
  Property(const Property&) = delete;
  Property& operator=(const Property& other) { return *this = other.value_; }

  Property& operator=(T value) {
    if (value == value_) return *this;
    value_ = std::move(value);
    if (changed) changed();
    return *this;
  }

  /// Stores without acting.
  void setQuietly(T value) { value_ = std::move(value); }

  const T& get() const { return value_; }
  operator const T&() const { return value_; }
  const T* operator->() const { return &value_; }

  template <typename U>
  bool operator==(const U& other) const {
    return value_ == other;
  }
  bool operator==(const Property& other) const { return value_ == other.value_; }
  friend std::ostream& operator<<(std::ostream& out, const Property& property) {
    return out << property.value_;
  }

  std::function<void()> changed;

 private:
  T value_{};
};

}  // namespace paperway
