#include "backends/data/workbook/compound_file.h"

#include <algorithm>
#include <cstdint>
#include <string>

#include "backends/data/workbook/little_endian.h"

namespace paperway::workbook {
namespace {

constexpr std::size_t kSector = 512;
constexpr std::size_t kNumbersOfSector = kSector / sizeof(std::uint32_t);
constexpr std::size_t kSmallStream = 4096;  // below this, streams would lie in a file of their own
constexpr std::size_t kTablesOfHeader = 109;
constexpr std::uint32_t kTableOfTables = 0xFFFFFFFC;
constexpr std::uint32_t kTable = 0xFFFFFFFD;
constexpr std::uint32_t kEndOfChain = 0xFFFFFFFE;
constexpr std::uint32_t kFree = 0xFFFFFFFF;

std::size_t sectorsOf(std::size_t bytes) {
  return (bytes + kSector - 1) / kSector;
}

/// What follows what: first the tables that chain the sectors, then the tables that list these
/// beyond what the header lists, then the directory, then the stream.
struct Plan {
  explicit Plan(std::size_t bytes) : stream(sectorsOf(std::max(bytes, kSmallStream))) {
    while (tables * kNumbersOfSector < tables + lists + 1 + stream) {
      ++tables;
      const std::size_t listed = std::max(tables, kTablesOfHeader) - kTablesOfHeader;
      lists = (listed + kNumbersOfSector - 2) / (kNumbersOfSector - 1);
    }
  }

  std::size_t directoryAt() const { return tables + lists; }
  std::size_t streamAt() const { return directoryAt() + 1; }

  std::size_t stream;
  std::size_t tables = 1;
  std::size_t lists = 0;
};

void fillSector(std::string& out) {
  while (out.size() % kSector != 0) put32(out, kFree);
}

std::string header(const Plan& plan) {
  std::string out("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1");
  out.append(16, '\0');
  for (const unsigned field : {0x3E, 3, 0xFFFE, 9, 6}) put16(out, field);  // version, order, sizes
  out.append(10, '\0');
  put32(out, plan.tables);
  put32(out, plan.directoryAt());
  put32(out, 0);
  put32(out, kSmallStream);
  put32(out, kEndOfChain);  // no small streams
  put32(out, 0);
  put32(out, plan.lists > 0 ? plan.tables : kEndOfChain);
  put32(out, plan.lists);
  for (std::size_t i = 0; i < std::min(plan.tables, kTablesOfHeader); ++i) put32(out, i);
  fillSector(out);
  return out;
}

std::string chains(const Plan& plan) {
  std::string out;
  for (std::size_t i = 0; i < plan.tables; ++i) put32(out, kTable);
  for (std::size_t i = 0; i < plan.lists; ++i) put32(out, kTableOfTables);
  put32(out, kEndOfChain);  // the directory is one sector
  for (std::size_t i = 1; i < plan.stream; ++i) put32(out, plan.streamAt() + i);
  put32(out, kEndOfChain);
  fillSector(out);
  return out;
}

std::string furtherTables(const Plan& plan) {
  std::string out;
  std::size_t table = kTablesOfHeader;
  for (std::size_t list = 1; list <= plan.lists; ++list) {
    for (std::size_t i = 1; i < kNumbersOfSector; ++i, ++table) {
      put32(out, table < plan.tables ? table : kFree);
    }
    put32(out, list < plan.lists ? plan.tables + list : kEndOfChain);
  }
  return out;
}

struct DirectoryEntry {
  std::string_view name;
  unsigned type;
  std::uint32_t child;
  std::size_t begin;
  std::size_t size;
};

void putEntry(std::string& out, const DirectoryEntry& entry) {
  constexpr std::size_t kNameBytes = 64;
  const std::size_t nameEnd = out.size() + kNameBytes;
  for (const char c : entry.name) put16(out, static_cast<unsigned char>(c));
  out.resize(nameEnd, '\0');
  put16(out, entry.name.empty() ? 0 : 2 * static_cast<unsigned>(entry.name.size() + 1));
  put8(out, entry.type);
  put8(out, 1);  // black
  put32(out, kFree);
  put32(out, kFree);
  put32(out, entry.child);
  out.append(36, '\0');  // class, state, times
  put32(out, entry.begin);
  put32(out, entry.size);
  put32(out, 0);
}

std::string directory(const Plan& plan, std::string_view streamName) {
  constexpr unsigned kUnused = 0;
  constexpr unsigned kStream = 2;
  constexpr unsigned kRoot = 5;
  std::string out;
  putEntry(out, {"Root Entry", kRoot, 1, kEndOfChain, 0});
  putEntry(out, {streamName, kStream, kFree, plan.streamAt(), plan.stream * kSector});
  putEntry(out, {"", kUnused, kFree, 0, 0});
  putEntry(out, {"", kUnused, kFree, 0, 0});
  return out;
}

}  // namespace

void writeCompoundFile(OutputFile& file, std::string_view streamName,
                       std::initializer_list<std::string_view> parts) {
  std::size_t size = 0;
  for (const std::string_view part : parts) size += part.size();
  const Plan plan(size);
  file.write(header(plan));
  file.write(chains(plan));
  file.write(furtherTables(plan));
  file.write(directory(plan, streamName));
  for (const std::string_view part : parts) file.write(part);
  file.write(std::string(plan.stream * kSector - size, '\0'));
}

}  // namespace paperway::workbook
