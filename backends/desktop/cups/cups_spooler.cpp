#include "backends/desktop/cups/cups_spooler.h"

#include <algorithm>
#include <utility>

namespace paperway::desktop {
namespace {

constexpr std::chrono::milliseconds kLongestFarewell{2'000};

class CupsJob : public PrintJob {
 public:
  CupsJob(std::string printer, std::chrono::milliseconds timeout, CupsConnection connection,
          const cups_dest_t& queue);
  CupsJob(const CupsJob&) = delete;
  CupsJob& operator=(const CupsJob&) = delete;
  ~CupsJob() override;

  void start(const std::string& documentName, DocumentFormat format) override;
  void write(std::string_view bytes) override;
  void end() override;

 private:
  /// The server takes no job without a document, so the first bytes make it.
  void create();
  [[noreturn]] void fail(const std::string& reason) const;
  [[noreturn]] void failAtServer() const;

  const std::string printer_;
  const std::chrono::milliseconds timeout_;
  CupsConnection connection_;
  const std::string queue_;
  const bool raw_;
  const std::string media_;
  const std::string sides_;
  std::string documentName_;
  DocumentFormat format_ = DocumentFormat::raw;
  std::uint64_t accepted_ = 0;
  int job_ = 0;  // its number at the server; 0 before the first bytes and after the end
};

CupsJob::CupsJob(std::string printer, std::chrono::milliseconds timeout, CupsConnection connection,
                 const cups_dest_t& queue)
    : printer_(std::move(printer)),
      timeout_(timeout),
      connection_(std::move(connection)),
      queue_(queue.name),
      raw_(isRaw(queue)),
      media_(mediaOf(queue)),
      sides_(optionOf(queue, "sides")) {}

// The connection may be in the middle of a document, or gone: the server is asked anew. One that
// stands still has been waited for already.
CupsJob::~CupsJob() {
  if (job_ == 0) return;
  connection_.reset();
  const CupsConnection another = connectToCups(std::min(timeout_, kLongestFarewell));
  if (another) cupsCancelJob2(another.get(), queue_.c_str(), job_, 0);
}

void CupsJob::fail(const std::string& reason) const {
  throw SpoolError(printer_, reason, accepted_);
}

void CupsJob::failAtServer() const {
  const bool silent = cupsLastError() <= IPP_STATUS_OK_CONFLICTING;
  fail(silent ? "The print service no longer answers" : cupsReason());
}

void CupsJob::start(const std::string& documentName, DocumentFormat format) {
  if (raw_ && format != DocumentFormat::raw) fail("It is a raw queue, which takes raw text alone");
  documentName_ = documentName;
  format_ = format;
}

void CupsJob::create() {
  cups_option_t* options = nullptr;
  int count = 0;
  if (format_ != DocumentFormat::raw) {
    if (!media_.empty()) count = cupsAddOption("media", media_.c_str(), count, &options);
    if (!sides_.empty()) count = cupsAddOption("sides", sides_.c_str(), count, &options);
  }
  job_ = cupsCreateJob(connection_.get(), queue_.c_str(), documentName_.c_str(), count, options);
  cupsFreeOptions(count, options);
  if (job_ == 0) failAtServer();
  const char* format = format_ == DocumentFormat::raw ? CUPS_FORMAT_RAW : CUPS_FORMAT_PDF;
  if (cupsStartDocument(connection_.get(), queue_.c_str(), job_, documentName_.c_str(), format,
                        1) != HTTP_STATUS_CONTINUE) {
    failAtServer();
  }
}

void CupsJob::write(std::string_view bytes) {
  if (bytes.empty()) return;
  if (job_ == 0) create();
  if (cupsWriteRequestData(connection_.get(), bytes.data(), bytes.size()) != HTTP_STATUS_CONTINUE) {
    failAtServer();
  }
  accepted_ += bytes.size();
}

void CupsJob::end() {
  if (job_ == 0) return;
  // Of a server that says nothing CUPS tells in the state of the connection alone.
  const bool refused =
      cupsFinishDocument(connection_.get(), queue_.c_str()) > IPP_STATUS_OK_CONFLICTING;
  if (refused || httpGetStatus(connection_.get()) != HTTP_STATUS_OK) failAtServer();
  job_ = 0;
}

/// Nothing where CUPS calls silence a success.
std::string whyNot() {
  return cupsLastError() <= IPP_STATUS_OK_CONFLICTING ? "" : " (" + cupsReason() + ")";
}

}  // namespace

std::unique_ptr<PrintJob> CupsSpooler::open(const std::string& printer) {
  if (printer.empty()) return nullptr;
  CupsConnection connection = connectToCups(patience_);
  const CupsQueues queues(connection.get());
  if (connection.get_deleter().refused) return nullptr;  // no print service, no printers
  if (queues.failed()) {
    throw SpoolError(printer, std::string("The print service at ") + cupsServer() +
                                  " does not answer" + whyNot());
  }
  const cups_dest_t* const queue = queues.find(printer);
  if (queue == nullptr) return nullptr;
  return std::make_unique<CupsJob>(printer, patience_.timeout, std::move(connection), *queue);
}

}  // namespace paperway::desktop
