#pragma once

#include <ostream>
#include <streambuf>
#include <string>
#include <string_view>

namespace paperway::command {

/// A text of one line with its control characters as symbols, so that a terminal shows what data
/// holds and obeys none of it: U+241B for ESC, U+240A for a line end, U+FFFD for U+0080 to U+009F.
std::string visible(std::string_view text);

/// While it lives, whatever is written to the stream has its control characters, but for tabs and
/// line ends, as symbols. std::clog is left to those who move the cursor.
class VisibleControls : private std::streambuf {
 public:
  explicit VisibleControls(std::ostream& stream) : stream_(stream), before_(stream.rdbuf(this)) {}
  ~VisibleControls() override { stream_.rdbuf(before_); }
  VisibleControls(const VisibleControls&) = delete;
  VisibleControls& operator=(const VisibleControls&) = delete;

 private:
  int_type overflow(int_type character) override;
  std::streamsize xsputn(const char* text, std::streamsize size) override;
  int sync() override { return before_->pubsync(); }

  std::ostream& stream_;
  std::streambuf* const before_;
  bool held_ = false;  // the first byte of what may be a control character
};

}  // namespace paperway::command
