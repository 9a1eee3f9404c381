#include "printed/plain_line.h"

#include <cmath>

#include "printed/printed_reader.h"

namespace paperway {
namespace {

constexpr double kCpi = 10;
constexpr std::size_t kReach = 32767;  // characters; what stands farther right is left out

struct PlacedText : NoEvents {
  void text(std::string_view bytes, const Pen& pen) {
    const auto at = static_cast<std::size_t>(std::lround(pen.left() * kCpi));
    if (at >= kReach) return;
    const auto seen = bytes.substr(0, kReach - at);
    if (line.size() < at + seen.size()) line.resize(at + seen.size(), ' ');
    for (std::size_t i = 0; i < seen.size(); ++i) {
      if (seen[i] != ' ') line[at + i] = seen[i];
    }
  }

  std::string line;
};

Pen penOfOneWidth() {
  Pen pen({}, Pen::Widths::given);
  pen.giveCpi(kCpi);
  return pen;
}

}  // namespace

std::string plainLine(std::string_view line) {
  PlacedText placed;
  PrintedReader<PlacedText> reader(placed, penOfOneWidth());
  reader.block(line);
  reader.end();
  return std::move(placed.line);
}

}  // namespace paperway
