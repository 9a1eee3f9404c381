#pragma once

#include <cstddef>
#include <string_view>

namespace paperway {

/// The pitch of an ESC/P printer, followed through the bytes that it gets.
class PrinterPitch {
 public:
  PrinterPitch() = default;
  /// As the print panel sets it.
  PrinterPitch(bool isSemiCondensed, bool isCondensed)
      : base_(isSemiCondensed ? 12 : 10), condensed_(isCondensed) {}

  /// Obeys the command that `bytes` start with and gives its length; 0 when they start with a
  /// character to print.
  std::size_t command(std::string_view bytes);

  /// Characters to the inch: as the printer would print them, or at single width.
  double cpi() const { return wide_ || wideLine_ ? singleCpi() / 2 : singleCpi(); }
  double singleCpi() const;

 private:
  std::size_t escape(std::string_view bytes);
  void selectAll(unsigned mask);

  int base_ = 10;
  bool condensed_ = false;
  bool wide_ = false;
  bool wideLine_ = false;  // until the line ends
};

}  // namespace paperway
