#include <algorithm>
#include <cmath>
#include <vector>

#include "controls/rich_text.h"

namespace paperway {
namespace {

constexpr std::size_t kChunk = 1 << 16;

/// System colours are left to the reader's own; colour 0 of the table means that.
int colorNumber(const std::vector<Color>& table, Color color) {
  if (isSystemColor(color)) return 0;
  return static_cast<int>(std::find(table.begin(), table.end(), color) - table.begin()) + 1;
}

std::vector<Color> colorsOf(const RichTextBox& box) {
  std::vector<Color> colors;
  const auto add = [&colors](Color color) {
    if (isSystemColor(color)) return;
    if (std::find(colors.begin(), colors.end(), color) == colors.end()) colors.push_back(color);
  };
  add(box.ForeColor);
  for (const CharFormat& format : box.formats().formats()) {
    if (format.color) add(*format.color);
  }
  return colors;
}

std::string header(const RichTextBox& box, const std::vector<Color>& colors) {
  std::string text =
      "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fmodern\\fprq1\\fcharset0 " +
      box.Font.Name + ";}}\r\n{\\colortbl ;";
  for (const Color color : colors) {
    text += "\\red" + std::to_string(redOf(color)) + "\\green" + std::to_string(greenOf(color)) +
            "\\blue" + std::to_string(blueOf(color)) + ";";
  }
  return text + "}\r\n\\pard\\plain\\f0\r\n";
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
  } else if (code >= ' ' && code < 0x7F) {
    out += byte;
  } else {
    out += "\\'";
    out += kHex[code >> 4];
    out += kHex[code & 15];
  }
}

}  // namespace

void writeRtf(const RichTextBox& box, const std::function<void(std::string_view)>& out) {
  const std::vector<Color> colors = colorsOf(box);
  const TextBuffer& text = box.buffer();
  std::string rtf = header(box, colors);
  for (std::size_t begin = 0; begin < text.size(); begin += kChunk) {
    for (const StyledRun& run : box.styledRuns(begin, begin + kChunk)) {
      rtf += look(run, colors);
      for (std::size_t i = 0; i < run.bytes.size(); ++i) {
        const std::size_t behind = run.begin + i + 1;
        const bool lineEnd = run.bytes[i] == '\r' && behind < text.size() && text[behind] == '\n';
        if (!lineEnd) appendByte(rtf, run.bytes[i]);
      }
    }
    out(rtf);
    rtf.clear();
  }
  out(rtf + "}\r\n");
}

}  // namespace paperway
