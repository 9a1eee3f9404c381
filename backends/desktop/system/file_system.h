#pragma once

#include "paperway/platform/file_system.h"
#include "paperway/platform/folders.h"

namespace paperway::desktop {

class FileSystem : public paperway::FileSystem {
 public:
  /// `folders` says where temporary files go; it outlives the object.
  explicit FileSystem(Folders& folders) : folders_(folders) {}

  std::string GetSpecialFolder(SpecialFolder folder) override;
  std::string GetTempName() override;
  File GetFile(const std::string& path) override;
  bool FolderExists(const std::string& path) override;
  void createFolder(const std::string& path) override;
  void append(const std::string& path, std::string_view bytes) override;

 private:
  Folders& folders_;
};

}  // namespace paperway::desktop
