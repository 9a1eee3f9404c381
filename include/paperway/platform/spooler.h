#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "paperway/automation_error.h"
#include "paperway/export.h"

namespace paperway {

/// Why a printer did not take a job, or no more of it, and how far the job had come.
class PAPERWAY_API SpoolError : public AutomationError {
 public:
  SpoolError(const std::string& printer, const std::string& reason, std::uint64_t accepted = 0);

  /// Names neither the printer nor the document: "Connection refused".
  const std::string& reason() const { return reason_; }
  /// Bytes handed over before the failure.
  std::uint64_t accepted() const { return accepted_; }

 private:
  std::string reason_;
  std::uint64_t accepted_;
};

/// What the bytes of a document are.
enum class DocumentFormat {
  raw,  // the printer's own language, handed on as it is
  pdf,
};

/// One document on its way to one printer. Each call returns when the bytes are handed over, or
/// raises a SpoolError: the printer refuses, goes away, or makes no progress for the time-out that
/// the implementation states. A job that dies before end() has returned is cancelled, so that what
/// has not been printed is not printed.
class PAPERWAY_API PrintJob {
 public:
  virtual ~PrintJob() = default;

  /// Before the start: the files that the document is made of. A printer that would replace one of
  /// them refuses the document.
  virtual void setSources(std::vector<std::filesystem::path> /*files*/) {}
  /// Once, before the first write. The name (UTF-8) is for people who look at the queue.
  virtual void start(const std::string& documentName, DocumentFormat format) = 0;
  virtual void write(std::string_view bytes) = 0;
  /// Nothing follows. A document without any bytes prints nothing and is no failure.
  virtual void end() = 0;
};

/// The way to the printers.
class PAPERWAY_API Spooler {
 public:
  virtual ~Spooler() = default;

  /// Nothing when there is no printer of that DeviceName. A SpoolError when that cannot be found
  /// out.
  virtual std::unique_ptr<PrintJob> open(const std::string& printer) = 0;
};

}  // namespace paperway
