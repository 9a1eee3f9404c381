#include "apps/paperway/user_printers.h"

#include <algorithm>

#include "apps/paperway/commands.h"

namespace paperway::command {
namespace {

class PieceJob : public PrintJob {
 public:
  explicit PieceJob(std::unique_ptr<PrintJob> job) : job_(std::move(job)) {}

  void setSources(std::vector<std::filesystem::path> files) override {
    job_->setSources(std::move(files));
  }
  void start(const std::string& documentName, DocumentFormat format) override {
    job_->start(documentName, format);
  }
  void write(std::string_view bytes) override {
    for (; !bytes.empty(); bytes.remove_prefix(std::min(kPiece, bytes.size()))) {
      throwIfStopped();
      job_->write(bytes.substr(0, kPiece));
    }
  }
  void end() override {
    throwIfStopped();
    job_->end();
  }

 private:
  static constexpr std::size_t kPiece = 2 << 10;  // a slow printer takes seconds for more

  static void throwIfStopped() {
    if (StopSignals::raised() != 0) throw Interrupted();
  }

  const std::unique_ptr<PrintJob> job_;
};

}  // namespace

std::unique_ptr<PrintJob> StoppablePrinters::PieceSpooler::open(const std::string& printer) {
  auto job = spooler_.open(printer);
  return job ? std::make_unique<PieceJob>(std::move(job)) : nullptr;
}

}  // namespace paperway::command
