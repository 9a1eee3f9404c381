#include <algorithm>
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
    std::string found = match[0];
    for (const char* root : {"include/", "src/", ""}) {
      if (fs::exists(kRoot / (root + name))) found = root + name;
    }
    included.push_back(found);
  }
  return included;
}

Includes allIncludes() {
  Includes found;
  for (const char* folder : {"include", "src", "backends", "apps", "examples"}) {
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

/// Height of a file in the house: it includes none that stands higher, nor one of another room on
/// its own floor.
int floorOf(const std::string& file) {
  if (file == "include/paperway/class1.h") return 7;
  static const std::map<std::string, int> kFloors = {{"src/util", 1},
                                                     {"src/platform", 2},
                                                     {"src/data", 3},
                                                     {"src/session", 3},
                                                     {"src/controls", 4},
                                                     {"src/report", 4},
                                                     {"src/printed", 3},
                                                     {"src/preview", 5},
                                                     {"src/html", 6},
                                                     {"src/textreport", 5},
                                                     {"src/excel", 6},
                                                     {"src/printing", 6},
                                                     {"backends/desktop", 5},
                                                     {"backends/desktop/platform", 7},
                                                     {"src/sticker", 6},
                                                     {"src/facade", 8}};
  const auto found = kFloors.find(folderOf(file));
  if (found != kFloors.end()) return found->second;
  if (file.starts_with("include/")) return 0;
  return file.starts_with("backends/") ? 6 : 9;
}

/// What a host includes needs nothing that is not installed.
bool isAllowed(const std::string& file, const std::string& included) {
  static const std::regex kInPublic("include/.*|#include <[a-z_]+>");
  static const std::regex kInCore("(include|src)/.*|#include <[a-z_]+>");
  if (file.starts_with("include/")) return std::regex_match(included, kInPublic);
  return !file.starts_with("src/") || std::regex_match(included, kInCore);
}

bool isDownward(const std::string& file, const std::string& included) {
  if (folderOf(file) == folderOf(included)) return true;
  if (floorOf(file) == floorOf(included)) return floorOf(file) == 0 || floorOf(file) == 9;
  return floorOf(included) < floorOf(file);
}

TEST(Includes, RunDownwardRoomsApartAndTheCoreOnTheStandardLibrary) {
  for (const auto& [file, included] : kIncludes) {
    for (const std::string& other : included) {
      EXPECT_TRUE(isAllowed(file, other)) << file << " includes " << other;
      if (!kIncludes.contains(other)) continue;
      EXPECT_TRUE(isDownward(file, other)) << file << " includes " << other;
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

TEST(Files, AreNamedAfterTheirHeaders) {
  std::set<std::string> headers;
  for (const auto& [file, included] : kIncludes) {
    if (file.ends_with(".h")) headers.insert(fs::path(file).stem().string());
  }
  for (const auto& [file, included] : kIncludes) {
    if (!file.starts_with("src/")) continue;
    EXPECT_TRUE(headers.contains(fs::path(file).stem().string())) << file;
  }
}

std::set<std::string> wordsOf(const std::string& code) {
  static const std::regex kWord("[A-Za-z_][A-Za-z_0-9]*");
  std::set<std::string> words;
  const std::sregex_iterator end;
  for (std::sregex_iterator at(code.begin(), code.end(), kWord); at != end; ++at) {
    words.insert(at->str());
  }
  return words;
}

/// Calls of one system, names that are macros on another, and roads to files and programs beside
/// those of the platform.
const std::set<std::string> kForeignWords = wordsOf(R"(
    CopyFile CreateFile CreateWindow DeleteFile DrawText GetClassName GetCurrentTime GetJob
    GetMessage GetObject GetUserName LoadString MessageBox MoveFile SendMessage SetPrinter StartDoc
    Yield ALTERNATE BOOL CONST DELETE EOF ERROR FALSE IN NO_ERROR OPAQUE OPTIONAL OUT RGB TRANSPARENT
    TRUE VOID emit far foreach interface linux major minor near signals slots small unix
    environ errno fdopen fileno fork getenv isatty kill mkdtemp mkstemp pclose pid_t popen setenv
    ssize_t system unlink usleep
    create_directories exists fopen fstream ifstream ofstream permissions remove_all)");
const char* const kForeignTexts[] = {"/bin/", "/dev/", "/tmp", "#!", "sh -c"};

void expectNothingForeign(const std::string& file, const std::string& line) {
  static const std::regex kText("\"(\\\\.|[^\"\\\\])*\"");
  for (const std::string& word : wordsOf(std::regex_replace(line, kText, ""))) {
    EXPECT_FALSE(kForeignWords.contains(word)) << file << " has " << word << ": " << line;
  }
  for (const char* text : kForeignTexts) {
    EXPECT_EQ(line.find(text), std::string::npos) << file << " has " << text << ": " << line;
  }
}

TEST(Core, IsReadyForAnotherSystem) {
  for (const auto& [file, included] : kIncludes) {
    if (!file.starts_with("src/") && !file.starts_with("include/")) continue;
    std::ifstream code(kRoot / file);
    for (std::string line; std::getline(code, line);) {
      expectNothingForeign(file, line.substr(0, line.find("//")));
    }
  }
}

}  // namespace
