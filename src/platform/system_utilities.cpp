#include "platform/system_utilities.h"

#include <filesystem>

#include "paperway/platform/clock.h"
#include "paperway/platform/file_system.h"
#include "paperway/platform/system_names.h"
#include "util/code_page.h"
#include "util/path_text.h"
#include "util/text.h"
#include "util/value_text.h"

namespace paperway {
namespace {

constexpr std::uint8_t kBothExist = 255;

std::string cleanName(std::string_view name) {
  std::string clean(trimBlanks(name));
  std::erase(clean, '\0');
  return clean;
}

}  // namespace

std::string ShowShortPath(FileSystem& files, ValueView filespec) {
  return files.GetFile(defaultText(filespec)).ShortPath;
}

bool DirExists(FileSystem& files, const std::string& OrigFile) {
  return files.FolderExists(OrigFile);
}

std::string TempFolder(FileSystem& files) {
  return files.GetSpecialFolder(FileSystem::SpecialFolder::temporary);
}

std::string TempFile(FileSystem& files) {
  const std::filesystem::path folder = pathOf(TempFolder(files)) / "TempDir";
  files.createFolder(textOf(folder));
  return textOf(folder / pathOf(files.GetTempName()));
}

std::string UNIQFile(Clock& clock) {
  const Date now = clock.now();
  std::string name;
  for (const int part : {int{now.day}, int{now.month}, int{now.year}, int{now.hour},
                         int{now.minute}, int{now.second}}) {
    name += std::to_string(part);
  }
  return name + ".zip";
}

void Appendtxt(FileSystem& files, const std::string& FileName, std::string_view Text) {
  files.append(FileName, CodePage::windows1252().encode(Text));
}

std::uint8_t FileCompare_DateLastModified(FileSystem& files, const std::string& f1,
                                          const std::string& f2) {
  files.GetFile(f1);
  files.GetFile(f2);
  return kBothExist;
}

std::string Get_CoputerName(SystemNames& names) {
  return cleanName(names.computerName());
}

std::string Get_UserName(SystemNames& names) {
  return cleanName(names.userName());
}

}  // namespace paperway
