#pragma once

#include <cstdint>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>

#include "paperway/value.h"

namespace paperway {

/// The members of Class1 by these names: the utility functions that ask nobody.

std::string MonName(std::uint8_t Mon);
std::int16_t OnlyNum(std::int16_t KEY);
std::string ReverseName(std::string_view str);
std::string Allow_Only_azAZ_01(std::string_view STr1);
std::string UniToHex(ValueView strSource);
std::string ParseFileName(std::string_view PstrFileIn, std::uint8_t NoExtention = 0);
std::string EncryptText(std::string_view strText, std::string_view strPwd);
std::string DecryptText(std::string_view strText, std::string_view strPwd);

double MaximumValue(std::span<const ValueView> Val);
double MinimamValue(std::span<const ValueView> Val);

inline double MaximumValue(std::initializer_list<ValueView> Val) {
  return MaximumValue(std::span(Val.begin(), Val.size()));
}
inline double MinimamValue(std::initializer_list<ValueView> Val) {
  return MinimamValue(std::span(Val.begin(), Val.size()));
}

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
