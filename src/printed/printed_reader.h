#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "printed/control_codes.h"
#include "printed/pen.h"
#include "util/control_strings.h"

namespace paperway {

/// True when a line is characters alone. Looks at many bytes at a time.
inline bool isPlain(std::string_view bytes) {
  std::uint8_t controls = 0;
  for (const char byte : bytes) controls |= static_cast<std::uint8_t>(isControl(byte));
  return controls == 0;
}

/// Events that a sink has no use for.
struct NoEvents {
  static void text(std::string_view, const Pen&) {}
  static void code(std::string_view, const Pen&) {}
  static bool lineEnd(const Pen&) { return true; }
  static void pageEnd(const Pen&) {}
};

/// Reads a report, or what a printer gets, as events, from blocks of any size. A line ends in CR LF
/// or LF, a page in a form feed. The sink is told
///
///     text(bytes, pen)  characters that stand from pen.left() on, at one pitch, in one style
///     code(bytes, pen)  a code that ends neither line nor page, obeyed by the pen already
///     lineEnd(pen)      the pen stands behind the line; false when the line goes on all the same
///     pageEnd(pen)      the same; the line goes on behind the form feed, from the left again
///
/// Text comes in pieces of any size; a code comes whole.
template <class Sink>
class PrintedReader {
 public:
  explicit PrintedReader(Sink& sink, Pen pen = Pen()) : sink_(sink), pen_(std::move(pen)) {}

  const Pen& pen() const { return pen_; }

  void block(std::string_view bytes) {
    if (!held_.empty() && !completeHeld(bytes)) return;
    while (!bytes.empty()) {
      const std::size_t end = bytes.find('\n');
      std::string_view line = bytes.substr(0, end);
      if (end != std::string_view::npos && line.ends_with('\r')) line.remove_suffix(1);
      if (isPlain(line)) {
        text(line);
        if (end == std::string_view::npos) return;
        lineEnd();
        bytes.remove_prefix(end + 1);
      } else if (!mixedLine(bytes)) {
        return;
      }
    }
  }

  /// The text ends here, if need be in the middle of a code.
  void end() {
    if (!held_.empty()) code(std::exchange(held_, {}));
  }

 private:
  void text(std::string_view bytes) {
    if (bytes.empty()) return;
    sink_.text(bytes, pen_);
    pen_.print(bytes.size());
  }

  void lineEnd() {
    if (sink_.lineEnd(pen_)) pen_.endLine();
  }

  void code(std::string_view bytes) {
    if (bytes[0] == '\n') return lineEnd();
    if (bytes[0] == kFormFeed) {
      sink_.pageEnd(pen_);
      pen_.endLine();
    } else {
      pen_.obey(bytes);
      sink_.code(bytes, pen_);
    }
  }

  /// A line with codes in it, which may reach beyond its end. False when the bytes end before it.
  bool mixedLine(std::string_view& bytes) {
    while (!bytes.empty()) {
      std::size_t length = 0;
      while (length < bytes.size() && !isControl(bytes[length])) ++length;
      text(bytes.substr(0, length));
      bytes.remove_prefix(length);
      if (bytes.empty()) return false;
      length = lengthOfCode(bytes);
      if (length > bytes.size()) {
        held_ = bytes;
        return false;
      }
      const bool endsLine = takeCode(bytes, length);
      if (endsLine) return true;
    }
    return false;
  }

  /// A CR is one with the LF behind it.
  static std::size_t lengthOfCode(std::string_view bytes) {
    if (bytes[0] != '\r') return codeLength(bytes);
    return bytes.size() > 1 && bytes[1] != '\n' ? 1 : 2;
  }

  bool takeCode(std::string_view& bytes, std::size_t length) {
    const std::size_t skipped = bytes[0] == '\r' && length == 2 ? 1 : 0;
    code(bytes.substr(skipped, length - skipped));
    const bool endsLine = bytes[skipped] == '\n';
    bytes.remove_prefix(length);
    return endsLine;
  }

  /// False when the code that is held needs more than these bytes.
  bool completeHeld(std::string_view& bytes) {
    if (bytes.empty()) return false;
    if (held_ == "\r") {
      held_.clear();
      if (bytes[0] != '\n') code("\r");
      return true;
    }
    while (codeLength(held_) > held_.size()) {
      if (bytes.empty()) return false;
      const std::string_view more = bytes.substr(0, codeLength(held_) - held_.size());
      held_ += more;
      bytes.remove_prefix(more.size());
    }
    code(std::exchange(held_, {}));
    return true;
  }

  Sink& sink_;
  Pen pen_;
  std::string held_;  // a code that is not complete
};

}  // namespace paperway
