#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace paperway::workbook {

/// Compresses bytes on their way, as raw deflate, and keeps their CRC-32. For one part of an
/// archive.
class Deflater {
 public:
  Deflater();
  ~Deflater();
  Deflater(const Deflater&) = delete;
  Deflater& operator=(const Deflater&) = delete;

  /// Appends to `out` what is ready.
  void add(std::string_view bytes, std::string& out);
  /// Appends the rest.
  void end(std::string& out);

  std::uint32_t checksum() const { return checksum_; }

 private:
  struct Stream;

  std::unique_ptr<Stream> stream_;
  std::uint32_t checksum_ = 0;
};

}  // namespace paperway::workbook
