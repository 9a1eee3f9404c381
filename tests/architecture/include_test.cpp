#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <regex>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;
using Includes = std::map<std::string, std::vector<std::string>>;  // file: the files it includes

const fs::path kRoot = PAPERWAY_SOURCE_DIR;

/// The files that one includes: by a path from the root when they are the project's, else as they
/// stand, with their brackets or quotes.
std::vector<std::string> includesOf(const fs::path& path) {
  static const std::regex kInclude("^\\s*#include [<\"]([^>\"]+)[>\"]");
  std::vector<std::string> included;
  std::ifstream file(path);
  std::smatch match;
  for (std::string line; std::getline(file, line);) {
    if (!std::regex_search(line, match, kInclude)) continue;
    const std::string name = match[1];
    const bool inSource = fs::exists(kRoot / "src" / name);
    included.push_back(inSource ? "src/" + name : fs::exists(kRoot / name) ? name : match[0].str());
  }
  return included;
}

Includes allIncludes() {
  Includes found;
  for (const char* folder : {"src", "backends", "apps", "examples"}) {
    for (const auto& entry : fs::recursive_directory_iterator(kRoot / folder)) {
      const auto extension = entry.path().extension();
      if (extension != ".h" && extension != ".cpp") continue;
      found[fs::relative(entry.path(), kRoot).string()] = includesOf(entry.path());
    }
  }
  return found;
}

const Includes kIncludes = allIncludes();

std::string folderOf(const std::string& file) {
  return fs::path(file).parent_path().string();
}

/// Height of a file in the house; a file includes none that stands higher.
int floorOf(const std::string& file) {
  static const std::regex kGroundFloor("src/facade/(run_state|recordset|settings_store)\\..*");
  if (std::regex_match(file, kGroundFloor)) return 1;
  static const std::map<std::string, int> kFloors = {
      {"src/util", 0},       {"src/platform", 1}, {"src/controls", 2}, {"src/report", 2},
      {"src/textreport", 3}, {"src/preview", 3},  {"src/printing", 3}, {"src/html", 3},
      {"src/excel", 3},      {"src/sticker", 3},  {"src/facade", 5}};
  const auto found = kFloors.find(folderOf(file));
  if (found != kFloors.end()) return found->second;
  return file.starts_with("backends/") ? 4 : 6;
}

/// "backends/desktop/qt": what stands behind one interface or a few, of one library.
std::string backendOf(const std::string& file) {
  return file.starts_with("backends/") ? folderOf(file) : "";
}

TEST(Includes, RunDownwardBackendsApartAndTheCoreOnTheStandardLibrary) {
  static const std::regex kAllowedInCore("src/.*|#include <[a-z_]+>");
  for (const auto& [file, included] : kIncludes) {
    for (const std::string& other : included) {
      if (file.starts_with("src/")) {
        EXPECT_TRUE(std::regex_match(other, kAllowedInCore)) << file << " includes " << other;
      }
      if (!kIncludes.contains(other)) continue;
      EXPECT_LE(floorOf(other), floorOf(file)) << file << " includes " << other;
      if (backendOf(other).empty() || backendOf(file).empty()) continue;
      EXPECT_EQ(backendOf(other), backendOf(file)) << file << " includes " << other;
    }
  }
}

TEST(Includes, RunInNoCircle) {
  Includes left = kIncludes;  // without the files that include nothing of what is left
  const auto stands = [&](const std::string& file) { return left.contains(file); };
  const auto includesNothingLeft = [&](const auto& each) {
    return std::none_of(each.second.begin(), each.second.end(), stands);
  };
  while (std::erase_if(left, includesNothingLeft) > 0) continue;
  for (const auto& [file, included] : left) ADD_FAILURE() << file << " is on a circle or above one";
}

}  // namespace
