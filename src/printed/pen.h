#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace paperway {

/// How wide characters are, as an ESC/P printer is told by its codes.
class PrinterPitch {
 public:
  PrinterPitch() = default;
  /// As the print panel sets it.
  PrinterPitch(bool isSemiCondensed, bool isCondensed)
      : base_(isSemiCondensed ? 12 : 10), condensed_(isCondensed) {}

  /// A whole control code.
  void obey(std::string_view code);
  /// The rest of the line is no longer wide.
  void endLine() { wideLine_ = false; }

  /// Characters to the inch: as the printer would print them, or at single width.
  double cpi() const { return wide_ || wideLine_ ? singleCpi() / 2 : singleCpi(); }
  double singleCpi() const;

 private:
  void selectAll(unsigned mask);

  int base_ = 10;
  int space_ = 0;  // 1/120 inch more between two characters
  bool condensed_ = false;
  bool wide_ = false;
  bool wideLine_ = false;  // until the line ends
};

struct PrintedStyle {
  bool bold = false;
  bool doubleStrike = false;
  bool italic = false;
  bool underline = false;

  bool operator==(const PrintedStyle&) const = default;
  void obey(std::string_view code);
};

/// Where the next character of a line stands, how wide it is and in what style. The rules are the
/// same for everything that reads printed text: a tab goes to the next eighth column at the pitch
/// in force, or to the stops that were set, a backspace one character back, a CR to the beginning
/// of the line, which is the left margin; a DEL takes no place. Places in inches and stops are
/// nothing for text of a given pitch.
class Pen {
 public:
  /// Pages drawn by a computer know no double width; text in fonts of its own has a given pitch.
  enum class Widths { printed, drawn, given };

  explicit Pen(PrinterPitch pitch = {}, Widths widths = Widths::printed)
      : pitch_(pitch), widths_(widths) {
    cpi_ = cpiInForce();
  }

  /// Inches from where a line without a margin begins.
  double left() const { return from_ + static_cast<double>(count_) / cpi_; }
  double leftAfter(std::size_t characters) const {
    return from_ + static_cast<double>(count_ + characters) / cpi_;
  }
  /// Characters to the inch.
  double cpi() const { return cpi_; }
  const PrintedStyle& style() const { return style_; }
  const PrinterPitch& pitch() const { return pitch_; }

  void print(std::size_t characters) { count_ += characters; }
  void giveCpi(double cpi);
  /// A whole control code that ends neither line nor page.
  void obey(std::string_view code);
  void endLine();

 private:
  double cpiInForce() const;
  void obeyMotion(std::string_view code);
  void moveTo(double left);
  void tab();

  PrinterPitch pitch_;
  Widths widths_;
  PrintedStyle style_;
  double cpi_ = 10;
  double margin_ = 0;          // inches
  std::vector<double> stops_;  // inches from the margin
  bool stopsSet_ = false;
  double from_ = 0;        // inches, and behind it
  std::size_t count_ = 0;  // characters at the pitch in force
};

}  // namespace paperway
