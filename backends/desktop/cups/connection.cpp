#include "backends/desktop/cups/connection.h"

namespace paperway::desktop {
namespace {

int giveUp(http_t* /*connection*/, void* /*data*/) {
  return 0;
}

// A service that wants a password gets none: nobody may be there to type it.
const char* noPassword(const char* /*prompt*/, http_t* /*connection*/, const char* /*method*/,
                       const char* /*resource*/, void* /*data*/) {
  return nullptr;
}

}  // namespace

CupsConnection connectToCups(std::chrono::milliseconds timeout) {
  cupsSetPasswordCB2(noPassword, nullptr);
  CupsConnection connection(httpConnect2(cupsServer(), ippPort(), nullptr, AF_UNSPEC,
                                         cupsEncryption(), 1, static_cast<int>(timeout.count()),
                                         nullptr));
  if (connection) {
    httpSetTimeout(connection.get(), std::chrono::duration<double>(timeout).count(), giveUp,
                   nullptr);
  }
  return connection;
}

std::string cupsReason() {
  const char* reason = cupsLastErrorString();
  return reason == nullptr || reason[0] == '\0' ? ippErrorString(cupsLastError()) : reason;
}

CupsQueues::CupsQueues(http_t* connection) {
  if (connection != nullptr) count_ = cupsGetDests2(connection, &queues_);
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

bool isRaw(const cups_dest_t& queue) {
  return optionOf(queue, "printer-make-and-model").find("Raw Printer") != std::string::npos;
}

}  // namespace paperway::desktop
