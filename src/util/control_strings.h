#pragma once

#include <string>

namespace paperway {

/// The printer control strings (ESC/P) that a report file carries among its text.
struct DOSEFONTcHR {
  std::string Bon =
      "\x1B"
      "E";  // bold on
  std::string Boff =
      "\x1B"
      "F";                    // bold off
  std::string Con = "\x0F";   // condensed on (SI)
  std::string Coff = "\x12";  // condensed off (DC2)
  std::string BBon =
      "\x0E\x1B"
      "E\x1B"
      "G";  // double width, bold, double strike on
  std::string BBoff =
      "\x14\x1B"
      "F\x1B"
      "H";                              // the same off
  std::string UnLOn = "\x1B-1";         // underline on
  std::string UnLoff = "\x1B-0";        // underline off
  std::string C96 = "\x12\x1BW \x1BM";  // 12 characters per inch
  std::string C80 = "\x1BP";            // 10 characters per inch
};

/// Divides the pages of a report file.
inline constexpr char kFormFeed = '\x0C';

}  // namespace paperway
