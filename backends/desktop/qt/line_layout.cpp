#include "backends/desktop/qt/line_layout.h"

#include <algorithm>
#include <cmath>

#include "backends/desktop/qt/convert.h"

namespace paperway::qt {
namespace {

constexpr int kTabColumns = 8;

using Kind = LinePiece::Kind;

Kind kindOf(char byte) {
  const auto code = static_cast<unsigned char>(byte);
  if (byte == '\t') return Kind::tab;
  if (byte == '\f') return Kind::nothing;
  return code < ' ' || code == 127 ? Kind::symbol : Kind::text;
}

/// Cuts runs into pieces and puts them side by side.
class Builder {
 public:
  Builder(LineLayout& layout, const TextFace& base) : layout_(layout), base_(base) {}

  void add(const StyledRun& run, const TextFace& face, std::optional<Color> color) {
    for (std::size_t i = 0; i < run.bytes.size();) {
      const Kind kind = run.hidden ? Kind::nothing : kindOf(run.bytes[i]);
      std::size_t end = i + 1;
      while (end < run.bytes.size() && kind != Kind::tab &&
             (run.hidden || kindOf(run.bytes[end]) == kind)) {
        ++end;
      }
      addPiece({kind, run.begin + i, run.bytes.substr(i, end - i), layout_.width,
                cellOf(kind, face), &face, color, run.underline});
      i = end;
    }
  }

 private:
  double cellOf(Kind kind, const TextFace& face) const {
    if (kind == Kind::nothing) return 0;
    if (kind != Kind::tab) return face.cell();
    const double stop = kTabColumns * base_.cell();
    return (std::floor(layout_.width / stop + 0.001) + 1) * stop - layout_.width;
  }

  void addPiece(LinePiece piece) {
    if (piece.kind == Kind::nothing && piece.bytes.front() == '\f') layout_.pageBreak = piece.begin;
    if (piece.cell > 0) layout_.ascent = std::max(layout_.ascent, piece.face->ascent());
    layout_.width = piece.right();
    layout_.pieces.push_back(std::move(piece));
  }

  LineLayout& layout_;
  const TextFace& base_;
};

}  // namespace

double LineLayout::xOf(std::size_t offset) const {
  for (const LinePiece& piece : pieces) {
    if (offset < piece.end()) {
      return piece.x + piece.cell * static_cast<double>(offset - std::min(offset, piece.begin));
    }
  }
  return width;
}

std::size_t LineLayout::offsetAt(double x) const {
  for (const LinePiece& piece : pieces) {
    if (piece.cell <= 0 || x >= piece.right()) continue;
    const double cells =
        std::clamp((x - piece.x) / piece.cell, 0.0, static_cast<double>(piece.bytes.size()));
    return piece.begin + static_cast<std::size_t>(std::lround(cells));
  }
  return pieces.empty() ? begin : pieces.back().end();
}

std::optional<std::size_t> LineLayout::characterAt(double x) const {
  for (const LinePiece& piece : pieces) {
    if (piece.cell > 0 && x >= piece.x && x < piece.right()) {
      return piece.begin + static_cast<std::size_t>((x - piece.x) / piece.cell);
    }
  }
  return std::nullopt;
}

char controlLetter(char byte) {
  return static_cast<char>(byte ^ 64);
}

QString controlName(char byte) {
  static constexpr const char* kNames[] = {"NUL", "SOH", "STX", "ETX", "EOT", "ENQ", "ACK", "BEL",
                                           "BS",  "HT",  "LF",  "VT",  "FF",  "CR",  "SO",  "SI",
                                           "DLE", "DC1", "DC2", "DC3", "DC4", "NAK", "SYN", "ETB",
                                           "CAN", "EM",  "SUB", "ESC", "FS",  "GS",  "RS",  "US"};
  const auto code = static_cast<unsigned char>(byte);
  const char* name = code < std::size(kNames) ? kNames[code] : "DEL";
  return QString::fromLatin1("%1 (%2)").arg(QLatin1String(name)).arg(code);
}

LineLayout layOut(const RichTextBox& box, std::uint64_t line, TextFaces& faces) {
  const StyledLine bounds = box.lineBounds(line);
  LineLayout layout{.begin = bounds.begin, .end = bounds.end, .next = bounds.next};
  const QString family = text(box.Font.Name);
  const TextFace& base = faces.face(family, box.Font.Size, box.Font.Bold);
  Builder builder(layout, base);
  const std::size_t end = std::min(bounds.end, bounds.begin + LineLayout::kLongest);
  for (const StyledRun& run : box.styledRuns(bounds.begin, end)) {
    const TextFace& face = run.hidden ? base : faces.face(family, run.size, run.bold);
    builder.add(run, face,
                run.color == box.ForeColor ? std::nullopt : std::optional<Color>(run.color));
  }
  if (end < bounds.end) {
    constexpr const char* kEllipsis = "\x85";  // of what is not drawn
    builder.add({end, kEllipsis, box.Font.Size, box.ForeColor, false, false, false}, base, {});
  }
  if (layout.ascent == 0) layout.ascent = base.ascent();
  return layout;
}

}  // namespace paperway::qt
