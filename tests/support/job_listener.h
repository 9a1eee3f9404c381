#pragma once

#include <chrono>
#include <gtest/gtest.h>
#include <mutex>
#include <optional>
#include <queue>
#include <semaphore>
#include <string>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>
#include <vector>

#include "support/free_port.h"

namespace paperway {

/// A network printer on loopback that keeps the jobs that it gets, one connection a job.
class JobListener {
 public:
  enum class Manner { takesAll, hangsUpAfterMegabyte, neverReads };

  explicit JobListener(Manner manner = Manner::takesAll) : manner_(manner) {
    const BoundSocket bound = bindToLoopback();
    listener_ = bound.descriptor;
    port_ = bound.port;
    const int small = 4096;
    if (manner == Manner::neverReads) {
      setsockopt(listener_, SOL_SOCKET, SO_RCVBUF, &small, sizeof small);
    }
    EXPECT_EQ(listen(listener_, 8), 0);
    thread_ = std::thread([this] { serve(); });
  }

  ~JobListener() {
    shutdown(listener_, SHUT_RDWR);
    thread_.join();
    close(listener_);
  }

  JobListener(const JobListener&) = delete;
  JobListener& operator=(const JobListener&) = delete;

  std::string address() const { return "127.0.0.1:" + std::to_string(port_); }

  /// The next job that came whole.
  std::optional<std::string> take() {
    if (!arrived_.try_acquire_for(std::chrono::seconds(60))) return std::nullopt;
    const std::lock_guard lock(mutex_);
    std::string job = std::move(jobs_.front());
    jobs_.pop();
    return job;
  }

 private:
  void serve() {
    std::vector<int> held;
    for (int peer; (peer = accept(listener_, nullptr, nullptr)) >= 0;) {
      if (manner_ == Manner::neverReads) {
        held.push_back(peer);
      } else {
        receive(peer);
        close(peer);
      }
    }
    for (const int peer : held) close(peer);
  }

  void receive(int peer) {
    std::string job;
    std::vector<char> buffer(1 << 16);
    for (ssize_t size; (size = recv(peer, buffer.data(), buffer.size(), 0)) != 0;) {
      if (size < 0) return;  // cut off
      job.append(buffer.data(), static_cast<std::size_t>(size));
      if (manner_ == Manner::hangsUpAfterMegabyte && job.size() >= 1 << 20) return;
    }
    const std::lock_guard lock(mutex_);
    jobs_.push(std::move(job));
    arrived_.release();
  }

  const Manner manner_;
  int listener_ = -1;
  int port_ = 0;
  std::thread thread_;
  std::mutex mutex_;
  std::counting_semaphore<> arrived_{0};
  std::queue<std::string> jobs_;
};

}  // namespace paperway
