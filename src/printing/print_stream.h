#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "platform/input_file.h"

namespace paperway {

struct PrintStreamSettings {
  std::int16_t paperHeight = 0;  // inches; the low byte goes to the printer
  bool draft = false;
  bool condensed = false;      // 17 characters to the inch
  bool semiCondensed = false;  // 12 characters to the inch
  std::uint8_t copies = 1;
  std::uint8_t linesIn = 0;   // reverse feeds of a third of an inch before the text
  std::uint8_t linesOut = 0;  // lines of blanks behind it, up to where paper is torn off
  int codeTable = 0;          // of the printer; 0: the text goes as it is
};

/// Takes the stream piece by piece, in order.
using ByteSink = std::function<void(std::string_view)>;

/// The commands before the text, each a piece of its own, and all of them in one.
void sendSetup(const PrintStreamSettings& settings, const ByteSink& sink);
std::string printerSetup(const PrintStreamSettings& settings);

/// Lines of a text as they go to the printer: each ends in CR LF, whether it had CR LF, LF or,
/// at the end of the text, nothing; but a line that holds a form feed loses its end. Takes the text
/// in blocks of any size.
class PrinterLines {
 public:
  explicit PrinterLines(ByteSink sink) : sink_(std::move(sink)) {}

  void block(std::string_view bytes);
  /// The text ends here; another may follow.
  void end();

 private:
  void part(std::string_view bytes);
  void endLine();

  ByteSink sink_;
  std::string out_;
  bool begun_ = false;       // the line has bytes already
  bool formFeed_ = false;    // and among them a form feed
  bool heldReturn_ = false;  // and a CR at their end that may belong to a line end
};

/// Gives the report text to a sink, as often as it is asked.
using TextSource = std::function<void(const ByteSink&)>;
TextSource textOf(InputFile& file);

/// The whole job: set-up, the report text as often as there are copies, the feed behind it. Memory
/// does not grow with the text. Gives the number of letters that the printer lacks, and gets as
/// plain ones, in one copy. What the source raises goes through.
std::uint64_t writePrintStream(const TextSource& text, const PrintStreamSettings& settings,
                               const ByteSink& sink);

}  // namespace paperway
