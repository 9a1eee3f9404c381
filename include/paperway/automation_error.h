#pragma once

#include <stdexcept>
#include <string>

#include "paperway/export.h"

namespace paperway {

/// The failure that reaches a host: a number of the automation platform, the part of the library
/// that raised it, and a sentence (UTF-8) that names the thing and the reason.
class PAPERWAY_API AutomationError : public std::runtime_error {
 public:
  enum Number : long {
    kObjectDefined = -0x7FFC0000,  // hexadecimal 80040000 in 32 bits
    kInvalidCall = 5,
    kOverflow = 6,
    kOutOfMemory = 7,
    kSubscript = 9,
    kTypeMismatch = 13,
    kFileNotFound = 53,
    kDeviceIo = 57,
    kDiskFull = 61,
    kPermissionDenied = 70,
    kPathFileAccess = 75,
    kPathNotFound = 76,
    kInvalidUseOfNull = 94,
    kApplicationDefined = 1000,
    kNoCurrentRow = 3021,
    kItemNotFound = 3265,
    kDataProvider = 3704,
  };

  AutomationError(long errorNumber, std::string errorSource, const std::string& description)
      : std::runtime_error(description), number_(errorNumber), source_(std::move(errorSource)) {}

  long number() const { return number_; }
  const std::string& source() const { return source_; }
  const char* description() const { return what(); }

 private:
  long number_;
  std::string source_;
};

}  // namespace paperway
