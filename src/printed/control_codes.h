#pragma once

#include <cstddef>
#include <string_view>

namespace paperway {

/// What is no character to print. A DEL takes no place.
constexpr bool isControl(char byte) {
  return static_cast<unsigned char>(byte) < ' ' || byte == '\x7F';
}

/// Length of the control code that `bytes` begin with, parameters and data included, as ESC/P
/// printers of 9 and 24 pins take it; more than there is when the rest is still to come.
std::size_t codeLength(std::string_view bytes);

}  // namespace paperway
