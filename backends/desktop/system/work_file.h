#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "backends/desktop/system/descriptor_file.h"
#include "paperway/platform/folders.h"

namespace paperway::desktop {

/// The place of a file that a piece of work needs: alone in a folder below the temporary one, which
/// is nobody else's to read. Both go with the object; those of a process that was killed go when
/// the next is made. An AutomationError when there can be none.
class WorkFile {
 public:
  WorkFile(paperway::Folders& folders, const std::string& name);
  ~WorkFile();
  WorkFile(const WorkFile&) = delete;
  WorkFile& operator=(const WorkFile&) = delete;

  const std::filesystem::path& path() const { return path_; }

 private:
  void makeFolder(const std::filesystem::path& parent, const std::string& name);

  std::filesystem::path folder_;
  std::filesystem::path path_;
  std::unique_ptr<DescriptorFile> inUse_;  // the folder, with the lock that says so
};

}  // namespace paperway::desktop
