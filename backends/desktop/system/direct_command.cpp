#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include "backends/desktop/system/direct_job.h"

namespace paperway::desktop {
namespace {

class CommandJob : public DirectJob {
 public:
  CommandJob(DirectJobPrinter printer, std::string command)
      : DirectJob(std::move(printer)), command_(std::move(command)) {}
  ~CommandJob() override { stop(); }

 protected:
  void connect() override;
  ssize_t writeSome(std::string_view bytes) override { return writeQuietly(fd_, bytes); }
  std::string reasonFor(int error) override;
  void finish() override;

 private:
  int spawn(int input);
  /// True when the command has ended by then; its status is in status_.
  bool endedBy(Clock::time_point until);
  std::string ending() const;
  void stop();

  const std::string command_;
  pid_t pid_ = 0;
  int status_ = 0;
};

int CommandJob::spawn(int input) {
  posix_spawn_file_actions_t files;
  posix_spawnattr_t attributes;
  posix_spawn_file_actions_init(&files);
  posix_spawnattr_init(&attributes);
  posix_spawn_file_actions_adddup2(&files, input, STDIN_FILENO);
  posix_spawn_file_actions_addopen(&files, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
  // A group of its own, so that all of a pipeline can be stopped.
  posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETPGROUP);
  std::string words[] = {"sh", "-c", command_};
  char* const arguments[] = {words[0].data(), words[1].data(), words[2].data(), nullptr};
  const int error = posix_spawn(&pid_, "/bin/sh", &files, &attributes, arguments, environ);
  if (error != 0) pid_ = 0;
  posix_spawn_file_actions_destroy(&files);
  posix_spawnattr_destroy(&attributes);
  return error;
}

void CommandJob::connect() {
  int ends[2];
  if (pipe2(ends, O_CLOEXEC) != 0) fail(systemReason(errno));
  fd_ = ends[1];
  fcntl(fd_, F_SETFL, O_NONBLOCK);
  const int error = spawn(ends[0]);
  close(ends[0]);
  if (error != 0) fail("Its command cannot be started: " + systemReason(error));
}

bool CommandJob::endedBy(Clock::time_point until) {
  constexpr int kStep = 5;  // milliseconds
  while (pid_ != 0) {
    if (waitpid(pid_, &status_, WNOHANG) != 0) {
      pid_ = 0;
    } else if (Clock::now() >= until) {
      return false;
    } else {
      poll(nullptr, 0, kStep);
    }
  }
  return true;
}

std::string CommandJob::ending() const {
  if (WIFSIGNALED(status_)) {
    return "Its command was ended by signal " + std::to_string(WTERMSIG(status_));
  }
  return "Its command ended with status " + std::to_string(WEXITSTATUS(status_));
}

std::string CommandJob::reasonFor(int error) {
  if (error != EPIPE) return systemReason(error);
  const auto soon = Clock::now() + std::chrono::seconds(1);
  return endedBy(soon) && status_ != 0 ? ending() : "Its command stopped reading";
}

void CommandJob::finish() {
  closeDescriptor();
  const auto until = deadline();
  while (!endedBy(Clock::now() + std::chrono::milliseconds(millisecondsToLook(until)))) {
    failIfOver(until);
  }
  if (status_ != 0) fail(ending());
}

// First the signal, then the end of its input: a document cut short must not look like a whole one.
void CommandJob::stop() {
  if (pid_ == 0) return;
  const pid_t group = -pid_;
  kill(group, SIGTERM);
  closeDescriptor();
  if (endedBy(Clock::now() + std::chrono::seconds(1))) return;
  kill(group, SIGKILL);
  waitpid(pid_, &status_, 0);
}

}  // namespace

std::unique_ptr<PrintJob> commandJob(DirectJobPrinter printer, const DirectTarget& target) {
  return std::make_unique<CommandJob>(std::move(printer), target.place);
}

}  // namespace paperway::desktop
