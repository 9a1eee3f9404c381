#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace paperway {

/// Where the print head stands on the way along the paper, as a printer of nine or of 24 pins is
/// told by its codes. Lengths are in units of 1/1080 inch, in which every step of both is whole.
class PaperFeed {
 public:
  enum class Pins { nine, twentyFour };
  using Length = std::int64_t;
  static constexpr Length kInch = 1080;

  explicit PaperFeed(Pins pins = Pins::nine) : pins_(pins) {}

  /// From where it stood when the printer was switched on; feeding back may take it behind that.
  Length at() const { return at_; }
  /// Of a page, as the printer was told.
  Length pageLength() const { return pageLength_; }
  double inches() const { return static_cast<double>(at_) / kInch; }

  /// A whole control code that ends neither line nor page. True for one that feeds, or that says
  /// how to.
  bool obey(std::string_view code);
  void lineFeed() { forward(spacing_); }
  void formFeed();

 private:
  struct Stops {
    std::vector<Length> places;  // from the top of a page
    bool set = false;
  };

  bool obeyEscape(std::string_view code);
  void reset();
  void setPageLength(Length length);
  void setStops(std::string_view lines);
  void forward(Length length);
  void verticalTab();
  Length fraction(int number) const;
  Length pageTop() const;

  Pins pins_;
  Length at_ = 0;
  Length top_ = 0;  // of some page
  Length pageLength_ = 11 * kInch;
  Length spacing_ = kInch / 6;
  Length skip_ = 0;  // at the end of each page
  Stops stops_;
};

}  // namespace paperway
