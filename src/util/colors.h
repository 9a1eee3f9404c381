#pragma once

#include <cstdint>

namespace paperway {

/// The bytes of a colour, blue x 65536 + green x 256 + red. The highest byte of the 32 counts for
/// nothing, so that every number is a colour.
constexpr std::uint8_t RgbR(std::int32_t Colr) {
  return static_cast<std::uint8_t>(Colr);
}
constexpr std::uint8_t RgbG(std::int32_t Colr) {
  return static_cast<std::uint8_t>(Colr >> 8);
}
constexpr std::uint8_t RgbB(std::int32_t Colr) {
  return static_cast<std::uint8_t>(Colr >> 16);
}

}  // namespace paperway
