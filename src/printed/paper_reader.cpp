#include "printed/paper_reader.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "printed/code_tables.h"

namespace paperway {
namespace {

constexpr double kLine = 1.0 / 6;  // inches that a usual character takes
constexpr int kColors = 7;

/// Codes that leave no trace on the paper: quality, speed and direction of printing, paper sensors,
/// the feeder of single sheets.
constexpr std::string_view kNoTrace = "xkU<si6789#=>\x19";

/// Codes that ask for nothing when their parameter is 0.
constexpr std::string_view kNothingAtZero = "pRa%qI";

constexpr std::array<const char*, 32> kControlNames = {
    "NUL", "SOH", "STX", "ETX", "EOT", "ENQ", "ACK", "BEL", "BS",  "HT",  "LF",
    "VT",  "FF",  "CR",  "SO",  "SI",  "DLE", "DC1", "DC2", "DC3", "DC4", "NAK",
    "SYN", "ETB", "CAN", "EM",  "SUB", "ESC", "FS",  "GS",  "RS",  "US"};

/// Control codes that the pen obeys, or that ask for nothing.
constexpr bool isKnownControl(char code) {
  constexpr std::string_view kKnown("\0\a\b\t\r\x0E\x0F\x11\x12\x13\x14", 11);
  return kKnown.find(code) != std::string_view::npos;
}

/// Of the pen, behind an ESC.
constexpr std::string_view kPenCodes = "\x0E\x0FPMgW! EFGH45-$\\lD";

bool isOn(std::string_view code) {
  return numberAt(code, 2) == 1 || numberAt(code, 2) == '1';
}

/// A digit may stand for its number.
int choice(std::string_view code, std::size_t offset) {
  const int number = numberAt(code, offset);
  return number >= '0' && number <= '9' ? number - '0' : number;
}

std::string name(char byte) {
  const auto code = static_cast<unsigned char>(byte);
  if (code < kControlNames.size()) return kControlNames[code];
  if (code < 0x7F) return {byte};
  if (code == 0x7F) return "DEL";
  char hexadecimal[8];
  std::snprintf(hexadecimal, sizeof hexadecimal, "%02X", code);
  return hexadecimal;
}

}  // namespace

std::string codeName(std::string_view code) {
  std::string told = name(code[0]);
  if (code[0] != kEscape || code.size() < 2) return told;
  told += " " + name(code[1]);
  if (code[1] == '(' && code.size() > 2) told += " " + name(code[2]);
  return told;
}

void PaperReader::text(std::string_view bytes, const Pen& pen) {
  PaperText text{.bytes = bytes,
                 .left = pen.left(),
                 .top = feed_.inches(),
                 .cpi = pen.cpi(),
                 .style = pen.style(),
                 .color = color_,
                 .codeTable = tables_[table_]};
  if (doubleHeight_) {
    text.height = 2;
    text.top -= kLine;  // it stands on the same line, and reaches up
  } else if (script_ != 0) {
    text.height = 0.5;
    if (script_ < 0) text.top += kLine / 2;
  }
  text.codeTable == kItalicTable ? italicText(text) : sink_.text(text);
}

void PaperReader::italicText(PaperText text) {
  const auto isUpper = [](char byte) { return (byte & '\x80') != 0; };
  const bool italic = text.style.italic;
  for (std::string_view left = text.bytes; !left.empty(); left.remove_prefix(text.bytes.size())) {
    const bool slanted = isUpper(left[0]);
    const auto end =
        std::find_if(left.begin(), left.end(), [&](char byte) { return isUpper(byte) != slanted; });
    std::string letters(left.begin(), end);
    for (char& letter : letters) letter = static_cast<char>(letter & 0x7F);
    text.bytes = letters;
    text.style.italic = italic || slanted;
    sink_.text(text);
    text.left += static_cast<double>(letters.size()) / text.cpi;
  }
}

bool PaperReader::lineEnd(const Pen&) {
  feed_.lineFeed();
  sink_.feed(feed_);
  return true;
}

void PaperReader::pageEnd(const Pen&) {
  feed_.formFeed();
  sink_.feed(feed_);
}

void PaperReader::code(std::string_view bytes, const Pen& pen) {
  if (feed_.obey(bytes)) {
    if (bytes == "\x1B@") reset();
    return sink_.feed(feed_);
  }
  if (const auto image = bitImageOf(bytes)) return this->image(*image, pen);
  if (bytes[0] != kEscape) {
    if (isKnownControl(bytes[0])) return;
  } else if (bytes.size() == codeLength(bytes)) {
    if (obeyLook(bytes) || obeyTable(bytes)) return;
    if (kPenCodes.find(bytes[1]) != std::string_view::npos) return;
    if (kNoTrace.find(bytes[1]) != std::string_view::npos) return;
    const bool isNothing = choice(bytes, 2) == 0;
    if (isNothing && kNothingAtZero.find(bytes[1]) != std::string_view::npos) return;
  }
  sink_.unknown(codeName(bytes), feed_.inches());
}

bool PaperReader::obeyLook(std::string_view code) {
  switch (code[1]) {
    case 'w':
      doubleHeight_ = isOn(code);
      return true;
    case 'S':
      script_ = isOn(code) ? -1 : 1;
      return true;
    case 'T':
      script_ = 0;
      return true;
    case 'r':
      if (choice(code, 2) < kColors) color_ = choice(code, 2);
      return choice(code, 2) < kColors;
    default:
      return false;
  }
}

bool PaperReader::obeyTable(std::string_view code) {
  if (code[1] == 't') {
    const int slot = choice(code, 2);
    if (slot >= kTables) return false;
    table_ = slot;
    return true;
  }
  if (code.size() != 8 || !code.starts_with("\x1B(t")) return false;
  const int slot = choice(code, 5);
  const auto table = numberAt(code, 7) == 0 ? codeTableOf(numberAt(code, 6)) : std::nullopt;
  if (slot >= kTables || !table) return false;
  tables_[slot] = *table;
  return true;
}

/// The pen stands behind it already.
void PaperReader::image(BitImage image, const Pen& pen) {
  constexpr double kCoarseRows = 60;  // of a printer of 24 pins that prints with eight
  if (printer_.pins == PaperFeed::Pins::twentyFour && image.columnBytes == 1) {
    image.rowsPerInch = kCoarseRows;
  }
  sink_.image({image, pen.left() - image.width(), feed_.inches(), color_});
}

/// The first is the italic one, of which most printers are set to the second.
void PaperReader::resetTables() {
  for (int& table : tables_) table = printer_.codeTable;
  tables_[0] = kItalicTable;
  table_ = 1;
}

void PaperReader::reset() {
  resetTables();
  color_ = script_ = 0;
  doubleHeight_ = false;
}

}  // namespace paperway
