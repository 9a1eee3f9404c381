#include "printing/print_stream.h"

#include "printing/printer_letters.h"
#include "util/control_strings.h"

namespace paperway {
namespace {

using std::string_view_literals::operator""sv;

constexpr std::string_view kTenPerInch = "\x1BP";
constexpr std::string_view kDraft = "\x1Bx\0"sv;
constexpr std::string_view kFeeder =
    "\x1B\x19"
    "C";
constexpr std::string_view kReverseFeed = "\x1Bj\x48";  // 72/216 inch

std::string pageLength(std::int16_t inches) {
  return std::string(
             "\x1B"
             "C\0"sv) +
         static_cast<char>(inches & 0xFF);
}

}  // namespace

void sendSetup(const PrintStreamSettings& settings, const ByteSink& sink) {
  const DOSEFONTcHR font;
  sink(kTenPerInch);
  if (settings.draft) sink(kDraft);
  if (settings.semiCondensed) sink(font.C96);
  if (settings.condensed) sink(font.Con);
  sink(pageLength(settings.paperHeight));
  sink(kFeeder);
  for (int line = 0; line < settings.linesIn; ++line) sink(kReverseFeed);
  sink(pageLength(settings.paperHeight));
  const std::string table = selectCodeTable(settings.codeTable);
  if (!table.empty()) sink(table);
}

std::string printerSetup(const PrintStreamSettings& settings) {
  std::string out;
  sendSetup(settings, [&out](std::string_view command) { out += command; });
  return out;
}

void PrinterLines::block(std::string_view bytes) {
  while (!bytes.empty()) {
    const std::size_t length = bytes.find('\n');
    part(bytes.substr(0, length));
    if (length == std::string_view::npos) break;
    endLine();
    bytes.remove_prefix(length + 1);
  }
  sink_(out_);
  out_.clear();
}

void PrinterLines::part(std::string_view bytes) {
  if (bytes.empty()) return;
  if (heldReturn_) out_ += '\r';
  heldReturn_ = bytes.back() == '\r';
  if (heldReturn_) bytes.remove_suffix(1);
  begun_ = true;
  formFeed_ = formFeed_ || bytes.find(kFormFeed) != std::string_view::npos;
  out_ += bytes;
}

void PrinterLines::endLine() {
  if (!formFeed_) out_ += "\r\n";
  begun_ = formFeed_ = heldReturn_ = false;
}

void PrinterLines::end() {
  if (!begun_) return;
  if (heldReturn_) out_ += '\r';
  endLine();
  sink_(out_);
  out_.clear();
}

TextSource textOf(InputFile& file) {
  return [&file](const ByteSink& sink) { file.read(sink); };
}

std::uint64_t writePrintStream(const TextSource& text, const PrintStreamSettings& settings,
                               const ByteSink& sink) {
  sendSetup(settings, sink);
  std::uint64_t plain = 0;
  PrinterLines lines(sink);
  for (int copy = 0; copy < settings.copies; ++copy) {
    PrinterLetters letters(settings.codeTable, [&](std::string_view block) { lines.block(block); });
    text([&](std::string_view block) { letters.block(block); });
    letters.end();
    lines.end();
    plain = letters.plain();
  }
  const std::string feed = std::string(40, ' ') + "\r\n";
  for (int line = 0; line < settings.linesOut; ++line) sink(feed);
  return plain;
}

}  // namespace paperway
