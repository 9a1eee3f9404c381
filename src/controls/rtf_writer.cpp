#include "controls/rtf_writer.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "printed/pen.h"

namespace paperway {
namespace {

constexpr std::size_t kChunk = 1 << 16;
constexpr int kMargin = 720;        // twips
constexpr int kPaperWidth = 11906;  // A4; wider where the lines are, so that none is broken
constexpr int kPaperHeight = 16838;
constexpr double kCharacterWidth = 0.6 * 20;  // of a fixed-pitch font, twips for each point of size

constexpr double kTwipsPerInch = 1440;
constexpr int kTabColumns = 8;
constexpr char kDelete = '\x7F';  // takes no place

/// System colours are left to the reader's own; colour 0 of the table means that.
int colorNumber(const std::vector<Color>& table, Color color) {
  if (isSystemColor(color)) return 0;
  return static_cast<int>(std::find(table.begin(), table.end(), color) - table.begin()) + 1;
}

std::vector<Color> colorsOf(const FormatRuns& formats, const BaseLook& base) {
  std::vector<Color> colors;
  const auto add = [&colors](Color color) {
    if (isSystemColor(color)) return;
    if (std::find(colors.begin(), colors.end(), color) == colors.end()) colors.push_back(color);
  };
  add(base.ink);
  for (const CharFormat& format : formats.formats()) {
    if (format.color) add(*format.color);
  }
  return colors;
}

struct Document {
  const TextBuffer& text;
  const FormatRuns& formats;
  const BaseLook& base;

  template <typename Visit>
  void forEachRun(const Visit& visit) const {
    for (std::size_t begin = 0; begin < text.size(); begin += kChunk) {
      for (const StyledRun& run : styledRuns(text, formats, begin, begin + kChunk, base)) {
        visit(run);
      }
    }
  }
};

/// By the rules of printed text, at the pitch of each font.
class WidestLine {
 public:
  void add(const StyledRun& run) {
    pen_.giveCpi(kTwipsPerInch / (run.size * kCharacterWidth));
    for (const char byte : run.bytes) {
      if (byte == '\n' || byte == '\t' || byte == '\b' || byte == '\r') {
        move(byte);
      } else if (byte != kDelete && !run.hidden) {
        pen_.print(1);
      }
    }
  }

  int twips() {
    move('\n');
    return static_cast<int>(std::min(widest_ * kTwipsPerInch, 500'000.0));
  }

 private:
  void move(char byte) {
    widest_ = std::max(widest_, pen_.left());
    byte == '\n' ? pen_.endLine() : pen_.obey({&byte, 1});
  }

  Pen pen_{PrinterPitch(), Pen::Widths::given};
  double widest_ = 0;  // inches
};

int widestLine(const Document& document) {  // twips
  WidestLine widest;
  document.forEachRun([&widest](const StyledRun& run) { widest.add(run); });
  return widest.twips();
}

std::string paper(const Document& document) {
  const std::string margin = std::to_string(kMargin);
  const int width = std::max(kPaperWidth, widestLine(document) + 2 * kMargin);
  return "\\paperw" + std::to_string(width) + "\\paperh" + std::to_string(kPaperHeight) +
         "\\margl" + margin + "\\margr" + margin + "\\margt" + margin + "\\margb" + margin +
         "\\deftab" +
         std::to_string(std::lround(document.base.font.Size * kCharacterWidth * kTabColumns)) +
         "\r\n";
}

std::string header(const Document& document, const std::vector<Color>& colors) {
  std::string text =
      "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fmodern\\fprq1\\fcharset0 " +
      document.base.font.Name + ";}}\r\n{\\colortbl ;";
  for (const Color color : colors) {
    text += "\\red" + std::to_string(redOf(color)) + "\\green" + std::to_string(greenOf(color)) +
            "\\blue" + std::to_string(blueOf(color)) + ";";
  }
  return text + "}\r\n" + paper(document) + "\\pard\\plain\\f0\r\n";
}

std::string look(const StyledRun& run, const std::vector<Color>& colors) {
  return "\\b" + std::string(run.bold ? "" : "0") + "\\ul" + (run.underline ? "" : "0") + "\\fs" +
         std::to_string(std::lround(run.size * 2)) + "\\cf" +
         std::to_string(colorNumber(colors, run.color)) + " ";
}

void appendByte(std::string& out, char byte) {
  constexpr char kHex[] = "0123456789abcdef";
  const auto code = static_cast<unsigned char>(byte);
  if (byte == '\\' || byte == '{' || byte == '}') {
    out += '\\';
    out += byte;
  } else if (byte == '\n') {
    out += "\\par\r\n";
  } else if (byte == '\f') {
    out += "\\page ";
  } else if (byte == '\t') {
    out += "\\tab ";
  } else if (byte == kDelete) {
    return;
  } else if (code >= ' ' && code < 0x7F) {
    out += byte;
  } else {
    out += "\\'";
    out += kHex[code >> 4];
    out += kHex[code & 15];
  }
}

}  // namespace

void writeRtf(const TextBuffer& text, const FormatRuns& formats, const BaseLook& base,
              const std::function<void(std::string_view)>& out) {
  const std::vector<Color> colors = colorsOf(formats, base);
  const Document document{text, formats, base};
  std::string rtf = header(document, colors);
  document.forEachRun([&](const StyledRun& run) {
    rtf += look(run, colors);
    for (std::size_t i = 0; i < run.bytes.size(); ++i) {
      const std::size_t behind = run.begin + i + 1;
      const bool last = behind == text.size();
      const bool ofLineEnd = run.bytes[i] == '\r' && !last && text[behind] == '\n';
      const bool closesPage = run.bytes[i] == '\f' && last;
      if (!ofLineEnd && !closesPage) appendByte(rtf, run.bytes[i]);
    }
    if (rtf.size() < kChunk) return;
    out(rtf);
    rtf.clear();
  });
  out(rtf + "}\r\n");
}

}  // namespace paperway
