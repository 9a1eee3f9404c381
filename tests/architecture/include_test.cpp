#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;
using Includes = std::map<std::string, std::vector<std::string>>;  // file: the files it includes

const fs::path kRoot = PAPERWAY_SOURCE_DIR;

/// Includes by a path from the root, or from src/, of the files below `folder`.
void collect(const std::string& folder, Includes& includes) {
  static const std::regex kInclude("^\\s*#include \"([^\"]+)\"");
  for (const auto& entry : fs::recursive_directory_iterator(kRoot / folder)) {
    const auto extension = entry.path().extension();
    if (extension != ".h" && extension != ".cpp") continue;
    auto& included = includes[fs::relative(entry.path(), kRoot).string()];
    std::ifstream file(entry.path());
    std::smatch match;
    for (std::string line; std::getline(file, line);) {
      if (!std::regex_search(line, match, kInclude)) continue;
      const std::string name = match[1];
      if (fs::exists(kRoot / "src" / name)) {
        included.push_back("src/" + name);
      } else if (fs::exists(kRoot / name)) {
        included.push_back(name);
      }
    }
  }
}

const Includes& allIncludes() {
  static const Includes includes = [] {
    Includes found;
    for (const char* folder : {"src", "backends", "apps", "examples"}) collect(folder, found);
    return found;
  }();
  return includes;
}

std::string folderOf(const std::string& file) {
  return fs::path(file).parent_path().string();
}

bool isGroundFloor(const std::string& file) {
  const std::string stem = (fs::path(folderOf(file)) / fs::path(file).stem()).string();
  return stem == "src/facade/run_state" || stem == "src/facade/recordset" ||
         stem == "src/facade/settings_store";
}

/// Height of a file in the house; a file includes none that stands higher.
int floorOf(const std::string& file) {
  if (isGroundFloor(file)) return 1;
  static const std::map<std::string, int> kFloors = {
      {"src/util", 0},    {"src/platform", 1}, {"src/controls", 2}, {"src/textreport", 3},
      {"src/preview", 3}, {"src/printing", 3}, {"src/html", 3},     {"src/excel", 3},
      {"src/sticker", 3}, {"src/facade", 5}};
  const auto found = kFloors.find(folderOf(file));
  if (found != kFloors.end()) return found->second;
  return file.starts_with("backends/") ? 4 : 6;
}

/// "backends/desktop/qt": what stands behind one interface or a few, of one library.
std::string backendOf(const std::string& file) {
  return file.starts_with("backends/") ? folderOf(file) : "";
}

TEST(Includes, RunDownward) {
  for (const auto& [file, included] : allIncludes()) {
    for (const std::string& other : included) {
      EXPECT_LE(floorOf(other), floorOf(file)) << file << " includes " << other;
      if (file.starts_with("src/")) {
        EXPECT_FALSE(other.starts_with("backends/")) << file << " includes " << other;
      }
    }
  }
}

TEST(Includes, BackendsStandApart) {
  for (const auto& [file, included] : allIncludes()) {
    for (const std::string& other : included) {
      if (backendOf(file).empty() || backendOf(other).empty()) continue;
      EXPECT_EQ(backendOf(other), backendOf(file)) << file << " includes " << other;
    }
  }
}

void visit(const std::string& file, std::vector<std::string>& path, std::set<std::string>& done) {
  if (done.contains(file) || !allIncludes().contains(file)) return;
  const auto seen = std::find(path.begin(), path.end(), file);
  if (seen != path.end()) {
    std::string circle;
    for (auto step = seen; step != path.end(); ++step) circle += *step + " -> ";
    ADD_FAILURE() << "Files include each other: " << circle << file;
    return;
  }
  path.push_back(file);
  for (const std::string& other : allIncludes().at(file)) visit(other, path, done);
  path.pop_back();
  done.insert(file);
}

TEST(Includes, RunInNoCircle) {
  std::vector<std::string> path;
  std::set<std::string> done;
  for (const auto& [file, included] : allIncludes()) visit(file, path, done);
}

TEST(Includes, CoreNeedsTheStandardLibraryAlone) {
  static const std::regex kSystem("^\\s*#include <([^>]+)>");
  for (const auto& [file, included] : allIncludes()) {
    if (!file.starts_with("src/")) continue;
    std::ifstream text(kRoot / file);
    std::smatch match;
    for (std::string line; std::getline(text, line);) {
      if (!std::regex_search(line, match, kSystem)) continue;
      EXPECT_EQ(match[1].str().find_first_of("./"), std::string::npos)
          << file << " includes <" << match[1] << ">";
    }
  }
}

}  // namespace
