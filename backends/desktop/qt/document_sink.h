#pragma once

#include <QIODevice>
#include <exception>
#include <filesystem>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/output_file.h"

namespace paperway::qt {

/// Where a document goes that Qt writes. An exception cannot pass through Qt: it is kept and raised
/// afterwards.
class DocumentSink : public QIODevice {
 public:
  void raiseFailure() {
    if (failure_) std::rethrow_exception(std::exchange(failure_, nullptr));
  }

  /// What still comes goes nowhere.
  void drop() { dropped_ = true; }

  virtual void take(std::string_view bytes) = 0;
  virtual void finish() = 0;

  bool isSequential() const override { return true; }

 protected:
  qint64 readData(char* /*bytes*/, qint64 /*size*/) override { return -1; }
  qint64 writeData(const char* bytes, qint64 size) override {
    if (failure_) return -1;
    if (dropped_) return size;
    try {
      take({bytes, static_cast<std::size_t>(size)});
      return size;
    } catch (...) {
      failure_ = std::current_exception();
      return -1;
    }
  }

 private:
  std::exception_ptr failure_;
  bool dropped_ = false;
};

/// A file that is there when the document is complete.
class FileSink : public DocumentSink {
 public:
  FileSink(Storage& storage, const std::filesystem::path& file,
           const std::vector<std::filesystem::path>& sources, const std::string& source)
      : file_(storage, file, source, {.inputs = sources}) {}
  void take(std::string_view bytes) override { file_.write(bytes); }
  void finish() override { file_.commit(); }

 private:
  OutputFile file_;
};

}  // namespace paperway::qt
