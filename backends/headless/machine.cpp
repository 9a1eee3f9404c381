#include <fstream>

#include "paperway/headless.h"
#include "util/text.h"

namespace paperway::headless {
namespace {

void requireFile(const std::string& path) {
  std::error_code ignored;
  if (std::filesystem::is_regular_file(path, ignored)) return;
  throw AutomationError(AutomationError::kFileNotFound, "FileSystem",
                        "There is no file \"" + path + "\".");
}

std::vector<std::string> address(std::string_view application, std::string_view section,
                                 std::string_view key) {
  return {lowerCase(application), lowerCase(section), lowerCase(key)};
}

}  // namespace

void FileSystem::note(const std::string& call) {
  calls.push_back(call);
  if (failure) throw AutomationError(*failure);
}

std::string FileSystem::GetSpecialFolder(SpecialFolder /*folder*/) {
  note("GetSpecialFolder");
  std::filesystem::create_directories(temporary_);
  return temporary_.string();
}

std::string FileSystem::GetTempName() {
  note("GetTempName");
  return "temp" + std::to_string(++tempNames_) + ".tmp";
}

FileSystem::File FileSystem::GetFile(const std::string& path) {
  note("GetFile " + path);
  requireFile(path);
  const auto date = modified.find(path);
  return {std::filesystem::canonical(path).string(),
          date == modified.end() ? Date{2006, 1, 1} : date->second};
}

bool FileSystem::FolderExists(const std::string& path) {
  calls.push_back("FolderExists " + path);
  std::error_code ignored;
  return std::filesystem::is_directory(path, ignored);
}

void FileSystem::createFolder(const std::string& path) {
  note("createFolder " + path);
  std::filesystem::create_directory(path);
}

void FileSystem::append(const std::string& path, std::string_view bytes) {
  note("append " + path);
  requireFile(path);
  std::ofstream(path, std::ios::binary | std::ios::app) << bytes;
}

std::string UserStore::get(std::string_view application, std::string_view section,
                           std::string_view key, std::string_view fallback) {
  if (failure) throw AutomationError(*failure);
  const auto found = values.find(address(application, section, key));
  return found == values.end() ? std::string(fallback) : found->second;
}

void UserStore::saveAll(std::string_view application, std::string_view section,
                        std::span<const Text> texts) {
  if (failure) throw AutomationError(*failure);
  for (const Text& text : texts) values[address(application, section, text.key)] = text.value;
}

PageSetup PageSetupStore::read() {
  if (failure) throw AutomationError(*failure);
  return kept;
}

void PageSetupStore::write(const PageSetup& setup) {
  if (failure) throw AutomationError(*failure);
  if (writeFailure) throw AutomationError(*writeFailure);
  kept = setup;
}

}  // namespace paperway::headless
