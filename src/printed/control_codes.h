#pragma once

#include <cstddef>
#include <string_view>

namespace paperway {

/// What is no character to print. A DEL takes no place.
constexpr bool isControl(char byte) {
  return static_cast<unsigned char>(byte) < ' ' || byte == '\x7F';
}

inline constexpr char kEscape = '\x1B';

/// A parameter of a code; 0 behind its end.
constexpr int numberAt(std::string_view code, std::size_t offset) {
  return offset < code.size() ? static_cast<unsigned char>(code[offset]) : 0;
}

/// Length of the control code that `bytes` begin with, parameters and data included, as ESC/P
/// printers of 9 and 24 pins take it; more than there is when the rest is still to come.
std::size_t codeLength(std::string_view bytes);

}  // namespace paperway
