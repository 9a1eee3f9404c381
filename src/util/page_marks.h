#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "paperway/value.h"

namespace paperway {

/// What the codes of a page's header or footer stand for. Texts are UTF-8.
struct MarkedPage {
  std::int64_t number = 1;  // &p
  std::int64_t count = 1;   // &P
  std::string title;        // &w
  std::string address;      // &u
  Date now;                 // &d short and &D long date, &t the time, &T of 24 hours
};

/// What stands at the left, in the middle and at the right of the line.
using PageMarks = std::array<std::string, 3>;

/// The codes of a header or footer replaced; "&&" is an "&". What follows "&b" stands at the right,
/// what follows the first of two in the middle. An "&" before any other character stands for
/// itself.
PageMarks pageMarks(std::string_view codes, const MarkedPage& page);

}  // namespace paperway
