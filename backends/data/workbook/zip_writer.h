#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "backends/data/workbook/deflater.h"
#include "platform/output_file.h"

namespace paperway::workbook {

/// A ZIP archive, written from its first byte to its last. Its bytes depend on its parts alone.
/// Neither a part nor the archive is 4 GiB long; more raises an AutomationError.
class ZipWriter {
 public:
  /// `source` is whom errors name.
  ZipWriter(OutputFile& file, std::string target, std::string source);

  /// Begins a part; the one before has ended.
  void begin(std::string name);
  void write(std::string_view bytes);
  void end();

  /// A whole part.
  void add(std::string name, std::string_view bytes);

  /// Behind the last part.
  void finish();

 private:
  struct Part {
    std::string name;
    std::uint32_t checksum;
    std::uint64_t packed;
    std::uint64_t size;
    std::uint64_t offset;
  };

  void put(std::string_view bytes);
  void putReady();
  void requireSmall(std::uint64_t size) const;

  OutputFile& file_;
  const std::string target_;
  const std::string source_;
  std::vector<Part> parts_;
  std::optional<Deflater> deflater_;  // of the part in hand
  std::string ready_;                 // compressed, not yet written
  std::uint64_t written_ = 0;
};

}  // namespace paperway::workbook
