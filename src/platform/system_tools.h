#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "paperway/value.h"

namespace paperway {

class Clock;
class FileSystem;
class SystemNames;

/// The utility functions that ask the machine. Paths are native; a missing file raises an
/// AutomationError that names it.

/// The canonical path of an existing file.
std::string ShowShortPath(FileSystem& files, ValueView filespec);
bool DirExists(FileSystem& files, const std::string& OrigFile);
std::string TempFolder(FileSystem& files);

/// A new name in the folder "TempDir" below the temporary folder. Makes sure of that folder; does
/// not create the file.
std::string TempFile(FileSystem& files);

/// Day, month, year, hour, minute and second as plain numbers in a row, then ".zip".
std::string UNIQFile(Clock& clock);

/// Adds the text, in windows-1252 and with no line end, to a file that exists.
void Appendtxt(FileSystem& files, const std::string& FileName, std::string_view Text);

/// 255 when both files exist.
std::uint8_t FileCompare_DateLastModified(FileSystem& files, const std::string& f1,
                                          const std::string& f2);

/// Empty when the system gives no name.
std::string Get_CoputerName(SystemNames& names);
std::string Get_UserName(SystemNames& names);

}  // namespace paperway
