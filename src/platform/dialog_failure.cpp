#include "platform/dialog_failure.h"

#include <map>

namespace paperway {
namespace {

const std::map<std::uint32_t, const char*> kDescriptions = {
    {0, "Cancel was seleted"},
    {1,
     "The lStructSize member of the initialization structure for the corresponding common dialog "
     "box is invalid."},
    {2, "The common dialog box function failed during initialization."},
    {3,
     "The ENABLETEMPLATE flag was set in the Flags member of the initialization structure for the "
     "corresponding common dialog box, but you failed to provide a corresponding template."},
    {4,
     "The ENABLETEMPLATE flag was set in the Flags member of the initialization structure for the "
     "corresponding common dialog box, but you failed to provide a corresponding instance handle."},
    {5, "The common dialog box function failed to load a specified string."},
    {6, "The common dialog box function failed to find a specified resource."},
    {7, "The common dialog box function failed to find a specified resource."},
    {8, "The common dialog box function failed to lock a specified resource."},
    {9, "The common dialog box function was unable to allocate memory for internal structures."},
    {10, "The common dialog box function was unable to lock the memory associated with a handle."},
    {12,
     "The RegisterWindowMessage function returned an error code when it was called by the common "
     "dialog box function."},
    {12289,
     "An attempt to subclass a list box failed because sufficient memory was not available."},
    {12290, "A file name is invalid."},
    {kFileBufferTooSmall,
     "The PathFileBufferSize is too small for the file name(s) specified by the user."},
    {65535, "The dialog box could not be created"},
};

}  // namespace

AutomationError dialogFailure(std::uint32_t code, FileQuestion::Purpose purpose) {
  const auto known = kDescriptions.find(code);
  const std::string description = known == kDescriptions.end()
                                      ? "Unknown error code of " + std::to_string(code)
                                      : known->second;
  const bool reads = purpose == FileQuestion::Purpose::read;
  const long number = code == 0 ? long{AutomationError::kObjectDefined} : static_cast<long>(code);
  return {number, reads ? "Common Dialog Open" : "Common Dialog Save", description};
}

}  // namespace paperway
