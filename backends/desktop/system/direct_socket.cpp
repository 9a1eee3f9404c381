#include <cerrno>
#include <linux/sockios.h>
#include <netdb.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>

#include "backends/desktop/system/direct_job.h"

namespace paperway::desktop {
namespace {

class SocketJob : public DirectJob {
 public:
  SocketJob(DirectJobPrinter printer, DirectTarget target)
      : DirectJob(std::move(printer)), target_(std::move(target)) {}

  // What the printer has not taken yet must not be sent on behind our back.
  ~SocketJob() override {
    const linger atOnce{1, 0};
    if (fd_ >= 0) setsockopt(fd_, SOL_SOCKET, SO_LINGER, &atOnce, sizeof atOnce);
  }

 protected:
  void connect() override;
  ssize_t writeSome(std::string_view bytes) override {
    return send(fd_, bytes.data(), bytes.size(), MSG_NOSIGNAL);
  }
  void written() override { accepted_ = written_ - unsent(); }
  std::string reasonFor(int error) override {
    return error == EPIPE || error == ECONNRESET ? "It closed the connection" : systemReason(error);
  }
  void finish() override;

 private:
  /// 0, or the error of this address.
  int tryAddress(const addrinfo& address, Clock::time_point until);
  /// Bytes that the printer's side has not confirmed.
  std::uint64_t unsent() const;
  /// Reads away what the printer says; an error of the connection fails the job.
  void readAway();

  const DirectTarget target_;
};

int SocketJob::tryAddress(const addrinfo& address, Clock::time_point until) {
  fd_ = socket(address.ai_family, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
  if (fd_ < 0) return errno;
  int error = ::connect(fd_, address.ai_addr, address.ai_addrlen) == 0 ? 0 : errno;
  if (error == EINPROGRESS) {
    pollfd waiting{fd_, POLLOUT, 0};
    socklen_t size = sizeof error;
    while (poll(&waiting, 1, millisecondsToLook(until)) <= 0 && Clock::now() < until) {
      if (printer_.patience.isOver()) failIfOver(until);
    }
    getsockopt(fd_, SOL_SOCKET, SO_ERROR, &error, &size);
    if (error == 0 && waiting.revents == 0) error = ETIMEDOUT;
  }
  if (error != 0) closeDescriptor();
  return error;
}

void SocketJob::connect() {
  addrinfo wanted{};
  wanted.ai_socktype = SOCK_STREAM;
  wanted.ai_flags = AI_NUMERICSERV;
  addrinfo* found = nullptr;
  const int status = getaddrinfo(target_.place.c_str(), target_.port.c_str(), &wanted, &found);
  if (status != 0) fail("Cannot find \"" + target_.place + "\": " + gai_strerror(status));
  const std::unique_ptr<addrinfo, void (*)(addrinfo*)> addresses(found, freeaddrinfo);
  const auto until = deadline();
  int error = 0;
  for (const addrinfo* address = found; address != nullptr; address = address->ai_next) {
    error = tryAddress(*address, until);
    if (error == 0) return;
  }
  fail(target_.place + " port " + target_.port + ": " + systemReason(error));
}

std::uint64_t SocketJob::unsent() const {
  int bytes = 0;
  return ioctl(fd_, SIOCOUTQ, &bytes) == 0 ? static_cast<std::uint64_t>(bytes) : 0;
}

void SocketJob::readAway() {
  char status[1024];
  ssize_t size = 0;
  do {
    size = recv(fd_, status, sizeof status, 0);
  } while (size > 0 || (size < 0 && errno == EINTR));
  if (size < 0 && errno != EAGAIN && errno != EWOULDBLOCK) fail(reasonFor(errno));
}

// A printer need not close the connection when it has all, so its confirmations are what counts.
void SocketJob::finish() {
  constexpr int kStep = 5;  // milliseconds
  shutdown(fd_, SHUT_WR);
  auto until = deadline();
  for (std::uint64_t before = UINT64_MAX, left = unsent(); left > 0; left = unsent()) {
    readAway();
    if (left < before) until = deadline();
    before = left;
    accepted_ = written_ - left;
    failIfOver(until);
    poll(nullptr, 0, kStep);
  }
  readAway();
  closeDescriptor();
}

}  // namespace

std::unique_ptr<PrintJob> socketJob(DirectJobPrinter printer, const DirectTarget& target) {
  return std::make_unique<SocketJob>(std::move(printer), target);
}

}  // namespace paperway::desktop
