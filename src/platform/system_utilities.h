#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "paperway/value.h"

namespace paperway {

class Clock;
class FileSystem;
class SystemNames;

/// The members of Class1 by these names: the utility functions that ask the machine.

std::string ShowShortPath(FileSystem& files, ValueView filespec);
bool DirExists(FileSystem& files, const std::string& OrigFile);
std::string TempFolder(FileSystem& files);
std::string TempFile(FileSystem& files);
std::string UNIQFile(Clock& clock);
void Appendtxt(FileSystem& files, const std::string& FileName, std::string_view Text);
std::uint8_t FileCompare_DateLastModified(FileSystem& files, const std::string& f1,
                                          const std::string& f2);
std::string Get_CoputerName(SystemNames& names);
std::string Get_UserName(SystemNames& names);

}  // namespace paperway
