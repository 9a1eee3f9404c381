#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "printed/bit_image.h"
#include "printed/paper_feed.h"
#include "printed/printed_reader.h"

namespace paperway {

/// Characters where they stand on the paper. Places are inches from the left edge of what the
/// printer can print, and along the paper from where it stood when the job began.
struct PaperText {
  std::string_view bytes;
  double left = 0;
  double top = 0;  // of a usual character
  double cpi = 10;
  double height = 1;  // of a usual character
  PrintedStyle style;
  int color = 0;  // of the ribbon: 0 black, 1 magenta, 2 cyan, 3 violet, 4 yellow, 5 red, 6 green
  int codeTable = 437;  // of the bytes from 128 up; 0 when there are none
};

struct PaperImage {
  BitImage image;
  double left = 0;
  double top = 0;
  int color = 0;
};

/// What happens on the paper, in the order of the job.
class PaperSink {
 public:
  virtual ~PaperSink() = default;

  virtual void text(const PaperText& text) = 0;
  virtual void image(const PaperImage& image) = 0;
  /// Paper has moved; the head stands there now.
  virtual void feed(const PaperFeed& feed) = 0;
  /// A code that the reader does not know, or does not follow, by its name: "ESC ( V".
  virtual void unknown(const std::string& code, double top) = 0;
};

struct PaperPrinter {
  PaperFeed::Pins pins = PaperFeed::Pins::nine;
  int codeTable = 437;  // when it is switched on
};

/// Reads the very bytes that a printer gets, and tells what they leave on the paper.
class PaperReader {
 public:
  PaperReader(PaperSink& sink, const PaperPrinter& printer)
      : sink_(sink), printer_(printer), feed_(printer.pins), reader_(*this) {
    resetTables();
  }
  PaperReader(const PaperReader&) = delete;
  PaperReader& operator=(const PaperReader&) = delete;

  void block(std::string_view bytes) { reader_.block(bytes); }
  void end() { reader_.end(); }

  // Events.
  void text(std::string_view bytes, const Pen& pen);
  void code(std::string_view bytes, const Pen& pen);
  bool lineEnd(const Pen&);
  void pageEnd(const Pen&);

 private:
  static constexpr int kTables = 4;

  void italicText(PaperText text);
  void resetTables();
  bool obeyLook(std::string_view code);
  bool obeyTable(std::string_view code);
  void image(BitImage image, const Pen& pen);
  void reset();

  PaperSink& sink_;
  PaperPrinter printer_;
  PaperFeed feed_;
  int tables_[kTables]{};
  int table_ = 0;
  int color_ = 0;
  bool doubleHeight_ = false;
  int script_ = 0;  // 1 above the line, -1 below it
  PrintedReader<PaperReader> reader_;
};

/// A code by the letters of printers' manuals: "ESC ( V", "CAN".
std::string codeName(std::string_view code);

}  // namespace paperway
