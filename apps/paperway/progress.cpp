#include "apps/paperway/progress.h"

#include <iostream>
#include <unistd.h>

#include "apps/paperway/commands.h"
#include "apps/paperway/visible.h"
#include "util/format_pattern.h"

namespace paperway::command {
namespace {

constexpr auto kBeforeFirstLine = std::chrono::seconds(1);
constexpr auto kBetweenLines = std::chrono::milliseconds(200);

std::string grouped(std::int64_t number) {
  return FormatPattern("#,##0")(ValueView(number));
}

}  // namespace

Progress::Progress() : terminal_(isatty(STDERR_FILENO) != 0) {}

Progress::~Progress() {
  if (onShow_) std::clog << "\r\033[K";
}

void Progress::tell(const ReportProgress& done) {
  done_ = done;
  if (StopSignals::raised() != 0) throw Interrupted();
  if (!terminal_) return;
  const auto now = Clock::now();
  if (now - start_ < kBeforeFirstLine || now - shown_ < kBetweenLines) return;
  shown_ = now;
  onShow_ = true;
  std::clog << "\r\033[K" << line() << std::flush;
}

std::string Progress::line() const {
  const double seconds = std::chrono::duration<double>(Clock::now() - start_).count();
  const double rate = seconds > 0 ? static_cast<double>(done_.rows) / seconds : 0;
  return grouped(done_.rows) + " rows, " + grouped(static_cast<std::int64_t>(rate)) + " rows/s, " +
         grouped(done_.pages) + " pages";
}

void Progress::finish(const std::string& fileName) {
  if (onShow_) std::clog << "\r\033[K" << visible(fileName) << ": " << line() << "\n";
  onShow_ = false;
  if (done_.controlRows == 0) return;
  const bool one = done_.controlRows == 1;
  std::cerr << "Warning: " << grouped(done_.controlRows) << (one ? " row holds" : " rows hold")
            << " control characters, which a printer may obey; "
            << (one ? "it is row " : "the first is row ") << done_.firstControlRow << ".\n";
}

}  // namespace paperway::command
