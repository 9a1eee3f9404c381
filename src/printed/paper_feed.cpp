#include "printed/paper_feed.h"

#include <algorithm>

#include "printed/control_codes.h"

namespace paperway {
namespace {

constexpr PaperFeed::Length kUsualSpacing = PaperFeed::kInch / 6;

PaperFeed::Length parts(int number, PaperFeed::Length perInch) {
  return number * PaperFeed::kInch / perInch;
}

}  // namespace

bool PaperFeed::obey(std::string_view code) {
  if (code[0] == '\v') {
    verticalTab();
    return true;
  }
  return code[0] == kEscape && code.size() > 1 && obeyEscape(code);
}

bool PaperFeed::obeyEscape(std::string_view code) {
  const int number = numberAt(code, 2);
  switch (code[1]) {
    case '@':
      reset();
      break;
    case '0':
      spacing_ = kInch / 8;
      break;
    case '1':
      spacing_ = parts(7, 72);
      break;
    case '2':
      spacing_ = kUsualSpacing;
      break;
    case '3':
      spacing_ = fraction(number);
      break;
    case '+':
      spacing_ = parts(number, 360);
      break;
    case 'A':
      spacing_ = parts(number, pins_ == Pins::nine ? 72 : 60);
      break;
    case 'J':
      forward(fraction(number));
      break;
    case 'j':
      at_ -= fraction(number);
      break;
    case 'C':
      setPageLength(number == 0 ? numberAt(code, 3) * kInch : number * spacing_);
      break;
    case 'N':
      skip_ = number * spacing_;
      break;
    case 'O':
      skip_ = 0;
      break;
    case 'B':
      setStops(code.substr(2));
      break;
    default:
      return false;
  }
  return true;
}

void PaperFeed::reset() {
  const Length here = at_;
  *this = PaperFeed(pins_);
  at_ = top_ = here;
}

/// The page begins where the head stands.
void PaperFeed::setPageLength(Length length) {
  if (length == 0) return;
  pageLength_ = length;
  top_ = at_;
  skip_ = 0;
}

void PaperFeed::setStops(std::string_view lines) {
  stops_ = {.places = {}, .set = true};
  for (std::size_t at = 0; at + 1 < lines.size(); ++at) {
    stops_.places.push_back(numberAt(lines, at) * spacing_);
  }
}

/// Of ESC 3, ESC J and ESC j.
PaperFeed::Length PaperFeed::fraction(int number) const {
  return parts(number, pins_ == Pins::nine ? 216 : 180);
}

PaperFeed::Length PaperFeed::pageTop() const {
  const Length into = (at_ - top_) % pageLength_;
  return at_ - (into < 0 ? into + pageLength_ : into);
}

/// What comes to stand in the perforation skip stands on the next page.
void PaperFeed::forward(Length length) {
  at_ += length;
  if (skip_ == 0 || skip_ >= pageLength_) return;
  const Length end = pageTop() + pageLength_;
  if (at_ >= end - skip_) at_ = end;
}

void PaperFeed::formFeed() {
  at_ = pageTop() + pageLength_;
}

/// Behind the last stop a page ends; with none at all it is a line feed.
void PaperFeed::verticalTab() {
  if (!stops_.set || stops_.places.empty()) return lineFeed();
  const Length into = at_ - pageTop();
  const auto next = std::upper_bound(stops_.places.begin(), stops_.places.end(), into);
  if (next == stops_.places.end()) return formFeed();
  at_ += *next - into;
}

}  // namespace paperway
