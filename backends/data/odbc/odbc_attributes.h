#pragma once

// Shared by the files of this folder; not for hosts.

#include <string>
#include <string_view>
#include <vector>

namespace paperway {

/// A connection string taken apart: "Driver=SQLite3;Database=sales.db", "sales" or "sales;Uid=me",
/// where a first word alone is the name of a data source.
class OdbcAttributes {
 public:
  explicit OdbcAttributes(std::string_view connection);

  /// For the driver manager.
  const std::string& text() const { return text_; }
  /// For messages: as it was given, each password a "***".
  const std::string& shown() const { return shown_; }
  /// A driver's message with "***" where it repeats a password.
  std::string withoutPasswords(std::string message) const;

 private:
  void add(std::string_view attribute);
  void keepSecret(std::string_view value);

  std::string text_;
  std::string shown_;
  std::vector<std::string> secrets_;  // the longest first
};

}  // namespace paperway
