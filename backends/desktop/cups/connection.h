#pragma once

#include <chrono>
#include <cups/cups.h>
#include <memory>
#include <string>
#include <vector>

#include "platform/patience.h"

namespace paperway::desktop {

/// How long the print service may stand still: with a job, and when it is asked about its printers
/// while somebody looks at a window.
inline constexpr std::chrono::milliseconds kPrintServiceTimeout{30'000};
inline constexpr std::chrono::milliseconds kPrintQueryTimeout{5'000};

struct CupsWait;

/// Closes a connection, and keeps what the library asks while it waits on it.
struct CloseConnection {
  CloseConnection();
  explicit CloseConnection(const Patience& patience);
  CloseConnection(CloseConnection&&) noexcept;
  CloseConnection& operator=(CloseConnection&&) noexcept;
  ~CloseConnection();
  void operator()(http_t* connection) const { httpClose(connection); }

  std::unique_ptr<CupsWait> wait;
  bool refused = false;  // nobody takes connections at the server's address
};
using CupsConnection = std::unique_ptr<http_t, CloseConnection>;

/// To the server that CUPS is set up for ($CUPS_SERVER). Nothing when it does not answer, nor for
/// some seconds after it has let a question about its queues go unanswered: one act of the user
/// asks several times.
CupsConnection connectToCups(const Patience& patience);

/// Why the last call failed.
std::string cupsReason();

/// The queues of the server, with the user's options for each.
class CupsQueues {
 public:
  explicit CupsQueues(http_t* connection);
  ~CupsQueues() { cupsFreeDests(count_, queues_); }
  CupsQueues(const CupsQueues&) = delete;
  CupsQueues& operator=(const CupsQueues&) = delete;

  /// "queue", or "queue/instance".
  cups_dest_t* find(const std::string& name) const;
  cups_dest_t* begin() const { return queues_; }
  cups_dest_t* end() const { return queues_ + count_; }
  int count() const { return count_; }
  /// The server did not say; there are none then.
  bool failed() const { return failed_; }

 private:
  cups_dest_t* queues_ = nullptr;
  int count_ = 0;
  bool failed_ = true;
};

std::string nameOf(const cups_dest_t& queue);
/// Empty when it is not set.
std::string optionOf(const cups_dest_t& queue, const char* option);
/// The paper that the user has chosen for it.
std::string mediaOf(const cups_dest_t& queue);
/// A queue that hands every document on to its printer as it is.
bool isRaw(const cups_dest_t& queue);

}  // namespace paperway::desktop
