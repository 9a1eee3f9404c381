#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "paperway/platform/storage.h"

namespace paperway {

struct OutputOptions {
  FileAccess access = FileAccess::usual;
  bool lasting = true;  // survives a loss of power as soon as it is committed; work files need not
  /// What the bytes are made of: a target that is one of these files, by any name, is refused.
  std::vector<std::filesystem::path> inputs{};
};

/// A file that appears whole or not at all. The bytes go to a new file beside the target, which
/// commit() puts in the target's place; an OutputFile that dies uncommitted leaves the target as it
/// was. A target that is a stream is written directly. A symbolic link stays and its file is
/// replaced; of a file with several hard links only the target's name gets the new bytes, the
/// others keep the old ones.
///
/// While it is written nobody may read the file who may not read the target; in the end it has the
/// target's permissions and owner, as far as the user may give them. A process that is killed
/// leaves its new file behind, ".paperway-TARGET-NUMBER.part"; the next OutputFile for the same
/// target removes it. Every failure is an AutomationError that names the file and the reason.
class OutputFile {
 public:
  /// `source` names the caller in errors ("Text_Rpt").
  OutputFile(Storage& storage, std::filesystem::path target, std::string source,
             OutputOptions options = {});
  ~OutputFile();
  OutputFile(const OutputFile&) = delete;
  OutputFile& operator=(const OutputFile&) = delete;

  void write(std::string_view bytes);

  /// Completes the file and puts it in place. Nothing may be written afterwards.
  void commit();

 private:
  void removeAbandoned() const;
  void createBeside(FileAccess access);
  void putInPlace();

  Storage& storage_;
  std::filesystem::path target_;
  std::filesystem::path written_;  // the new file; empty when the target is written directly
  const std::string source_;
  const OutputOptions options_;
  std::unique_ptr<StoredFile> file_;
};

/// Removes a regular file in the target's place, if there is one; what an OutputFile would refuse
/// is refused, and a stream stays.
void removeOutput(Storage& storage, const std::filesystem::path& target, const std::string& source,
                  const OutputOptions& options);

/// The target replaced by these bytes in one step.
void replaceFile(Storage& storage, const std::filesystem::path& target, std::string_view bytes,
                 const std::string& source, OutputOptions options = {});

}  // namespace paperway
