#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "paperway/value.h"

namespace paperway {

/// A key filter: digits, backspace (8) and return (13) pass, every other key becomes 1.
std::int16_t OnlyNum(std::int16_t KEY);

/// The characters in reverse order.
std::string ReverseName(std::string_view str);

/// Blanks, digits, "|" and the letters A to Z and a to z alone, in their order.
std::string Allow_Only_azAZ_01(std::string_view STr1);

/// Each UTF-16 unit of the value's text as "&#", a signed 16-bit decimal number, ";": units from
/// 32768 up come out negative.
std::string UniToHex(ValueView strSource);

/// What stands behind the last backslash; with `NoExtention` = 1 only up to its first ".". A
/// native path needs its separators turned into backslashes first.
std::string ParseFileName(std::string_view PstrFileIn, std::uint8_t NoExtention = 0);

/// Shifts each character's code by that of a password character, modulo 256, and back. Codes are
/// those of windows-1252, which all round-trip; a character that it lacks counts as "?". An empty
/// password leaves the text as it is. A text or password above 32767 characters raises an
/// AutomationError.
std::string EncryptText(std::string_view strText, std::string_view strPwd);
std::string DecryptText(std::string_view strText, std::string_view strPwd);

}  // namespace paperway
