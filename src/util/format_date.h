#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "paperway/value.h"
#include "util/format_symbols.h"

namespace paperway {

/// A compiled date pattern.
class DateFormat {
 public:
  explicit DateFormat(Symbols pattern);

  void append(std::string& out, const ValueView& value) const;
  void append(std::string& out, const Date& date) const;

 private:
  struct Part;

  /// A part of the date or, without one, the literal texts_[text, text + length). The words for the
  /// halves of the day stand there too, one behind the other.
  struct Step {
    const Part* part = nullptr;
    std::uint32_t text = 0;
    std::uint32_t length = 0;
  };

  std::size_t readLetters(Symbols rest);
  std::size_t readHalfOfDay(Symbols rest);
  void addLiteral(char c);
  void add(const Part& part);
  bool followsHour() const;
  void useTwelveHours();

  static const Part kParts[];

  std::vector<Step> steps_;
  std::string texts_;
  std::size_t room_ = 0;  // bytes that the longest date takes
};

/// Whether a date symbol begins there.
bool beginsDateSymbol(Symbols rest);

}  // namespace paperway
