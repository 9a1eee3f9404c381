#include <cerrno>
#include <fcntl.h>
#include <optional>
#include <poll.h>
#include <system_error>
#include <unistd.h>

#include "backends/desktop/system/direct_job.h"
#include "paperway/storage.h"
#include "platform/output_file.h"

namespace paperway::desktop {
namespace {

class DeviceJob : public DirectJob {
 public:
  DeviceJob(DirectJobPrinter printer, std::string path)
      : DirectJob(std::move(printer)), path_(std::move(path)) {}

 protected:
  void connect() override {
    fd_ = open(path_.c_str(), O_WRONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    if (fd_ < 0) fail(path_ + ": " + systemReason(errno));
  }
  ssize_t writeSome(std::string_view bytes) override { return writeQuietly(fd_, bytes); }

  // A printer on the USB drops at the close what it is still taking; it is ready for more when it
  // has taken it.
  void finish() override {
    if (written_ > 0) wait(POLLOUT, deadline());
    const int fd = fd_;
    fd_ = -1;
    if (close(fd) != 0) fail(systemReason(errno));
  }

 private:
  const std::string path_;
};

class FileJob : public PrintJob {
 public:
  FileJob(DirectJobPrinter printer, std::string path)
      : printer_(std::move(printer)), path_(std::move(path)) {}

  void setSources(std::vector<std::filesystem::path> files) override {
    sources_ = std::move(files);
  }
  void start(const std::string& /*documentName*/, DocumentFormat format) override {
    if (format != DocumentFormat::raw) throw SpoolError(printer_.name, kRawAlone);
    guarded([&] {
      file_.emplace(storage_, path_, "Spooler", OutputOptions{.inputs = std::move(sources_)});
    });
  }
  void write(std::string_view bytes) override {
    guarded([&] { file_->write(bytes); });
    accepted_ += bytes.size();
  }
  void end() override {
    if (accepted_ == 0) return;
    guarded([&] { file_->commit(); });
  }

 private:
  template <typename Action>
  void guarded(const Action& action) const {
    try {
      action();
    } catch (const AutomationError& error) {
      std::string reason = error.description();
      if (reason.ends_with('.')) reason.pop_back();
      throw SpoolError(printer_.name, reason, accepted_);
    }
  }

  const DirectJobPrinter printer_;
  const std::string path_;
  std::vector<std::filesystem::path> sources_;
  Storage storage_;
  std::optional<OutputFile> file_;
  std::uint64_t accepted_ = 0;
};

/// A device that is away has no file until it is back: what is missing below /dev is one, but for
/// /dev/shm, which holds files.
bool isPlaceOfDevice(std::string_view path) {
  return path.starts_with("/dev/") && !path.starts_with("/dev/shm/");
}

bool isDevice(const DirectJobPrinter& printer, const std::string& path) {
  try {
    const FileStatus::Kind kind = Storage().status(path).kind;
    return kind == FileStatus::Kind::none ? isPlaceOfDevice(path)
                                          : kind == FileStatus::Kind::stream;
  } catch (const std::system_error& error) {
    throw SpoolError(printer.name, path + ": " + error.code().message());
  }
}

}  // namespace

std::unique_ptr<PrintJob> fileJob(DirectJobPrinter printer, const DirectTarget& target) {
  if (isDevice(printer, target.place)) {
    return std::make_unique<DeviceJob>(std::move(printer), target.place);
  }
  return std::make_unique<FileJob>(std::move(printer), target.place);
}

}  // namespace paperway::desktop
