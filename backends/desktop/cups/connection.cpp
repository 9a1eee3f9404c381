#include "backends/desktop/cups/connection.h"

#include <csignal>
#include <mutex>
#include <type_traits>

namespace paperway::desktop {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds kLook{100};

/// The server that last let a question go unanswered.
class Silence {
 public:
  bool holds() {
    const std::lock_guard lock(mutex_);
    return Clock::now() < until_ && server_ == name();
  }
  void begin() {
    const std::lock_guard lock(mutex_);
    until_ = Clock::now() + std::chrono::seconds(5);
    server_ = name();
  }

 private:
  static std::string name() { return cupsServer() + (":" + std::to_string(ippPort())); }

  std::mutex mutex_;
  Clock::time_point until_;
  std::string server_;
} silence;

// A service that wants a password gets none: nobody may be there to type it.
const char* noPassword(const char* /*prompt*/, http_t* /*connection*/, const char* /*method*/,
                       const char* /*resource*/, void* /*data*/) {
  return nullptr;
}

// CUPS only reads what it takes as an int.
int* stopFlagOf(const Patience& patience) {
  static_assert(std::is_same_v<std::sig_atomic_t, int>);
  return const_cast<int*>(patience.stop);
}

}  // namespace

struct CupsWait {
  explicit CupsWait(const Patience& given) : patience(given) {}

  /// Asked each time a call has seen nothing of the server for kLook.
  bool goesOn() {
    const auto now = Clock::now();
    if (now - asked > 3 * kLook) begun = now - kLook;  // something has come in between
    asked = now;
    return !patience.isOver() && now - begun < patience.timeout;
  }

  const Patience patience;
  Clock::time_point asked;
  Clock::time_point begun;
};

CloseConnection::CloseConnection() = default;
CloseConnection::CloseConnection(const Patience& patience)
    : wait(std::make_unique<CupsWait>(patience)) {}
CloseConnection::CloseConnection(CloseConnection&&) noexcept = default;
CloseConnection& CloseConnection::operator=(CloseConnection&&) noexcept = default;
CloseConnection::~CloseConnection() = default;

CupsConnection connectToCups(const Patience& patience) {
  if (silence.holds()) return nullptr;
  cupsSetPasswordCB2(noPassword, nullptr);
  const auto begun = Clock::now();
  CupsConnection connection(
      httpConnect2(cupsServer(), ippPort(), nullptr, AF_UNSPEC, cupsEncryption(), 1,
                   static_cast<int>(patience.timeout.count()), stopFlagOf(patience)),
      CloseConnection(patience));
  if (connection) {
    const auto goOn = [](http_t*, void* wait) {
      return static_cast<CupsWait*>(wait)->goesOn() ? 1 : 0;
    };
    httpSetTimeout(connection.get(), std::chrono::duration<double>(kLook).count(), goOn,
                   connection.get_deleter().wait.get());
  } else {
    connection.get_deleter().refused =
        !patience.isOver() && Clock::now() - begun < patience.timeout;
  }
  return connection;
}

std::string cupsReason() {
  const char* reason = cupsLastErrorString();
  return reason == nullptr || reason[0] == '\0' ? ippErrorString(cupsLastError()) : reason;
}

CupsQueues::CupsQueues(http_t* connection) {
  if (connection == nullptr) return;
  count_ = cupsGetDests2(connection, &queues_);
  const ipp_status_t status = cupsLastError();
  failed_ =
      count_ == 0 && status > IPP_STATUS_OK_CONFLICTING && status != IPP_STATUS_ERROR_NOT_FOUND;
  if (failed_) silence.begin();
}

cups_dest_t* CupsQueues::find(const std::string& name) const {
  for (cups_dest_t& queue : *this) {
    if (nameOf(queue) == name) return &queue;
  }
  return nullptr;
}

std::string nameOf(const cups_dest_t& queue) {
  const std::string name = queue.name;
  return queue.instance == nullptr ? name : name + "/" + queue.instance;
}

std::string optionOf(const cups_dest_t& queue, const char* option) {
  const char* value = cupsGetOption(option, queue.num_options, queue.options);
  return value == nullptr ? "" : value;
}

std::string mediaOf(const cups_dest_t& queue) {
  const std::string media = optionOf(queue, "media");
  return media.empty() ? optionOf(queue, "PageSize") : media;
}

bool isRaw(const cups_dest_t& queue) {
  return optionOf(queue, "printer-make-and-model").find("Raw Printer") != std::string::npos;
}

}  // namespace paperway::desktop
