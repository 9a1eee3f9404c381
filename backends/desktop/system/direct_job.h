#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <sys/types.h>

#include "backends/desktop/system/direct_printers.h"
#include "paperway/platform/spooler.h"
#include "platform/patience.h"

namespace paperway::desktop {

struct DirectJobPrinter {
  std::string name;
  Patience patience;
};

/// A job that writes to one descriptor which does not block.
class DirectJob : public PrintJob {
 public:
  explicit DirectJob(DirectJobPrinter printer) : printer_(std::move(printer)) {}
  DirectJob(const DirectJob&) = delete;
  DirectJob& operator=(const DirectJob&) = delete;
  ~DirectJob() override;

  void start(const std::string& documentName, DocumentFormat format) override;
  void write(std::string_view bytes) override;
  void end() override;

 protected:
  using Clock = std::chrono::steady_clock;

  /// Opens fd_.
  virtual void connect() = 0;
  /// write(2) with errors in errno, and no signal.
  virtual ssize_t writeSome(std::string_view bytes) = 0;
  /// After a write that succeeded.
  virtual void written() { accepted_ = written_; }
  /// The reason for a write that failed.
  virtual std::string reasonFor(int error);
  /// Waits until the printer has taken what was written.
  virtual void finish() = 0;

  [[noreturn]] void fail(const std::string& reason) const;
  /// Fails the job when its wait has come to an end: at the deadline, or by the user's wish.
  void failIfOver(Clock::time_point until) const;
  Clock::time_point deadline() const { return Clock::now() + printer_.patience.timeout; }
  /// Until one of the events (poll) has come.
  void wait(short events, Clock::time_point until) const;
  void closeDescriptor();

  const DirectJobPrinter printer_;
  int fd_ = -1;
  std::uint64_t written_ = 0;   // given to the system
  std::uint64_t accepted_ = 0;  // known to have left it
};

inline constexpr const char* kRawAlone = "It is written to directly and takes raw text alone";

std::string systemReason(int error);
/// How long to wait before looking again whether to go on waiting; 0 when it is time.
int millisecondsToLook(std::chrono::steady_clock::time_point until);

/// write(2) without the signal of a broken pipe.
ssize_t writeQuietly(int fd, std::string_view bytes);

std::unique_ptr<PrintJob> socketJob(DirectJobPrinter printer, const DirectTarget& target);
std::unique_ptr<PrintJob> fileJob(DirectJobPrinter printer, const DirectTarget& target);
std::unique_ptr<PrintJob> commandJob(DirectJobPrinter printer, const DirectTarget& target);

}  // namespace paperway::desktop
