#include "backends/desktop/system/direct_job.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <ctime>
#include <poll.h>
#include <system_error>
#include <unistd.h>

namespace paperway::desktop {

std::string systemReason(int error) {
  return std::generic_category().message(error);
}

int millisecondsToLook(std::chrono::steady_clock::time_point until) {
  constexpr int kLook = 100;
  const auto left =
      std::chrono::ceil<std::chrono::milliseconds>(until - std::chrono::steady_clock::now());
  return static_cast<int>(std::clamp<std::chrono::milliseconds::rep>(left.count(), 0, kLook));
}

ssize_t writeQuietly(int fd, std::string_view bytes) {
  sigset_t pipe;
  sigset_t before;
  sigset_t pending;
  sigemptyset(&pipe);
  sigaddset(&pipe, SIGPIPE);
  sigpending(&pending);
  pthread_sigmask(SIG_BLOCK, &pipe, &before);
  const ssize_t size = ::write(fd, bytes.data(), bytes.size());
  const int error = errno;
  if (size < 0 && error == EPIPE && sigismember(&pending, SIGPIPE) == 0) {
    const timespec now{};
    sigtimedwait(&pipe, nullptr, &now);
  }
  pthread_sigmask(SIG_SETMASK, &before, nullptr);
  errno = error;
  return size;
}

DirectJob::~DirectJob() {
  closeDescriptor();
}

void DirectJob::closeDescriptor() {
  if (fd_ >= 0) ::close(fd_);
  fd_ = -1;
}

void DirectJob::fail(const std::string& reason) const {
  throw SpoolError(printer_.name, reason, accepted_);
}

void DirectJob::failIfOver(Clock::time_point until) const {
  if (printer_.patience.isOver()) fail("The job was stopped");
  if (Clock::now() < until) return;
  const auto seconds = std::chrono::duration<double>(printer_.patience.timeout).count();
  char text[64];
  std::snprintf(text, sizeof text, "It took nothing for %g seconds", seconds);
  fail(text);
}

void DirectJob::wait(short events, Clock::time_point until) const {
  pollfd waiting{fd_, events, 0};
  while (true) {
    const int ready = poll(&waiting, 1, millisecondsToLook(until));
    if (ready > 0) return;
    if (ready < 0 && errno != EINTR) fail(systemReason(errno));
    failIfOver(until);
  }
}

std::string DirectJob::reasonFor(int error) {
  return systemReason(error);
}

void DirectJob::start(const std::string& /*documentName*/, DocumentFormat format) {
  if (format != DocumentFormat::raw) fail(kRawAlone);
  connect();
}

void DirectJob::write(std::string_view bytes) {
  auto until = deadline();
  while (!bytes.empty()) {
    const ssize_t size = writeSome(bytes);
    if (size >= 0) {
      bytes.remove_prefix(static_cast<std::size_t>(size));
      written_ += static_cast<std::uint64_t>(size);
      written();
      until = deadline();
    } else if (errno == EAGAIN || errno == EWOULDBLOCK) {
      wait(POLLOUT, until);
    } else if (errno == EINTR) {
      failIfOver(until);
    } else {
      fail(reasonFor(errno));
    }
  }
}

void DirectJob::end() {
  finish();
  accepted_ = written_;
}

}  // namespace paperway::desktop
