#include "backends/data/odbc/odbc_watch.h"

#include <chrono>
#include <condition_variable>
#include <mutex>

namespace paperway {
namespace {

constexpr auto kBetweenQuestions = std::chrono::milliseconds(50);

void watch(const std::stop_token& end, SQLHSTMT statement, bool (*asked)()) {
  std::mutex mutex;
  std::condition_variable_any ended;
  std::unique_lock lock(mutex);
  while (!ended.wait_for(lock, end, kBetweenQuestions, [&end] { return end.stop_requested(); })) {
    if (asked()) SQLCancel(statement);
  }
}

}  // namespace

OdbcWatch::OdbcWatch(const OdbcHandle& statement, bool (*asked)())
    : thread_([handle = statement.get(), asked](const std::stop_token& end) {
        watch(end, handle, asked);
      }) {}

}  // namespace paperway
