#pragma once

#include <bit>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <string>

namespace paperway::workbook {

/// Appends a number, its lowest byte first.
template <std::unsigned_integral Number>
void putNumber(std::string& out, Number number) {
  for (std::size_t i = 0; i < sizeof number; ++i) {
    out += static_cast<char>(number >> (8 * i) & 0xFF);
  }
}

inline void put8(std::string& out, unsigned number) {
  putNumber(out, static_cast<std::uint8_t>(number));
}
inline void put16(std::string& out, unsigned number) {
  putNumber(out, static_cast<std::uint16_t>(number));
}
inline void put32(std::string& out, std::uint64_t number) {
  putNumber(out, static_cast<std::uint32_t>(number));
}
inline void putDouble(std::string& out, double number) {
  putNumber(out, std::bit_cast<std::uint64_t>(number));
}

}  // namespace paperway::workbook
