#pragma once

#include <cstdint>
#include <string_view>

namespace paperway {

/// A paper by its published number, and by the self-describing name of the printing standards
/// ("iso_a4_210x297mm"). Sizes are those of the sheet
/// as it is fed for portrait, in 1/100 millimetre.
struct Paper {
  std::int16_t number;
  const char* name;       // for people
  const char* mediaName;  // of the standards
  int width;
  int height;
};

/// Nothing (a null pointer) for a number, or a name, that is in no table.
const Paper* paperByNumber(std::int16_t number);
const Paper* paperByMediaName(std::string_view mediaName);

}  // namespace paperway
