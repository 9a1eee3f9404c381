#include "backends/data/workbook/zip_writer.h"

#include <limits>
#include <utility>

#include "backends/data/workbook/little_endian.h"
#include "paperway/automation_error.h"

namespace paperway::workbook {
namespace {

constexpr std::uint32_t kLocalHeader = 0x04034B50;
constexpr std::uint32_t kDescriptor = 0x08074B50;
constexpr std::uint32_t kCentralHeader = 0x02014B50;
constexpr std::uint32_t kEndOfDirectory = 0x06054B50;
constexpr unsigned kVersion = 20;
constexpr unsigned kSizesBehind = 8;  // in a descriptor
constexpr unsigned kDeflated = 8;
constexpr unsigned kMidnight = 0;
constexpr unsigned kFirstDay = 0x21;  // 1 January 1980

/// Version, flags, method, time and day, as both headers have them.
void putManner(std::string& out) {
  for (const unsigned field : {kVersion, kSizesBehind, kDeflated, kMidnight, kFirstDay}) {
    put16(out, field);
  }
}

}  // namespace

ZipWriter::ZipWriter(OutputFile& file, std::string target, std::string source)
    : file_(file), target_(std::move(target)), source_(std::move(source)) {}

void ZipWriter::begin(std::string name) {
  std::string header;
  put32(header, kLocalHeader);
  putManner(header);
  header.append(12, '\0');  // checksum and sizes
  put16(header, static_cast<unsigned>(name.size()));
  put16(header, 0);
  header += name;
  parts_.push_back({std::move(name), 0, 0, 0, written_});
  put(header);
  deflater_.emplace();
}

void ZipWriter::write(std::string_view bytes) {
  parts_.back().size += bytes.size();
  requireSmall(parts_.back().size);
  deflater_->add(bytes, ready_);
  putReady();
}

void ZipWriter::end() {
  deflater_->end(ready_);
  putReady();
  Part& part = parts_.back();
  part.checksum = deflater_->checksum();
  deflater_.reset();
  std::string descriptor;
  put32(descriptor, kDescriptor);
  put32(descriptor, part.checksum);
  put32(descriptor, part.packed);
  put32(descriptor, part.size);
  put(descriptor);
}

void ZipWriter::add(std::string name, std::string_view bytes) {
  begin(std::move(name));
  write(bytes);
  end();
}

void ZipWriter::finish() {
  std::string directory;
  for (const Part& part : parts_) {
    put32(directory, kCentralHeader);
    put16(directory, kVersion);
    putManner(directory);
    put32(directory, part.checksum);
    put32(directory, part.packed);
    put32(directory, part.size);
    put16(directory, static_cast<unsigned>(part.name.size()));
    directory.append(12, '\0');  // no extra field, comment, disk or attributes
    put32(directory, part.offset);
    directory += part.name;
  }
  const std::uint64_t begin = written_;
  const std::uint64_t size = directory.size();
  put32(directory, kEndOfDirectory);
  put32(directory, 0);  // one disk
  put16(directory, static_cast<unsigned>(parts_.size()));
  put16(directory, static_cast<unsigned>(parts_.size()));
  put32(directory, size);
  put32(directory, begin);
  put16(directory, 0);
  put(directory);
}

void ZipWriter::put(std::string_view bytes) {
  file_.write(bytes);
  written_ += bytes.size();
  requireSmall(written_);
}

void ZipWriter::putReady() {
  parts_.back().packed += ready_.size();
  put(ready_);
  ready_.clear();
}

void ZipWriter::requireSmall(std::uint64_t size) const {
  if (size < std::numeric_limits<std::uint32_t>::max()) return;
  throw AutomationError(AutomationError::kOverflow, source_,
                        "Cannot write \"" + target_ +
                            "\": its sheet would have more than 4 GB, which a workbook cannot "
                            "hold. Fewer rows or columns would fit.");
}

}  // namespace paperway::workbook
