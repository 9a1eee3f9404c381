#pragma once

#include <cstdio>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace paperway {

/// Raises the AutomationError that says "Cannot VERB "PATH": REASON." for a number of errno.
[[noreturn]] void raiseFileError(const char* verb, const std::filesystem::path& path, int error,
                                 const std::string& source);

/// A file that appears whole or not at all. The bytes go to a new file beside the target, which
/// commit() puts in the target's place; an OutputFile that dies uncommitted leaves the target as it
/// was. A target that is not a regular file (a device, a pipe), or lies in /dev, is written
/// directly. A symbolic link stays and its file is replaced; of a file with several hard links only
/// the target's name gets the new bytes, the others keep the old ones. A process that is killed can
/// leave its new file behind, ".paperway-NUMBER.part". Every failure is an AutomationError that
/// names the file and the reason.
class OutputFile {
 public:
  /// `source` names the caller in errors ("Text_Rpt").
  OutputFile(std::filesystem::path target, std::string source);
  ~OutputFile();
  OutputFile(const OutputFile&) = delete;
  OutputFile& operator=(const OutputFile&) = delete;

  void write(std::string_view bytes);

  /// Closes the file and puts it in place. Nothing may be written afterwards.
  void commit();

 private:
  struct Closer {
    void operator()(std::FILE* file) const { std::fclose(file); }
  };

  [[noreturn]] void fail(int error) const;

  std::filesystem::path target_;
  std::filesystem::path written_;  // the new file; empty when the target is written directly
  std::string source_;
  std::unique_ptr<std::FILE, Closer> file_;
};

/// The target replaced by these bytes in one step.
void replaceFile(const std::filesystem::path& target, std::string_view bytes,
                 const std::string& source);

/// An empty file where there is none; what is there stays as it is.
void makeSureOfFile(const std::filesystem::path& path, const std::string& source);

}  // namespace paperway
