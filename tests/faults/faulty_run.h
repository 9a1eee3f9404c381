#pragma once

#include <fcntl.h>
#include <filesystem>
#include <map>
#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

#include "support/files.h"
#include "support/test_folder.h"

namespace paperway {

/// What the preloaded library (preload.c) does to a program.
struct Fault {
  std::string call;  // "write"; empty: nothing fails
  int error = 0;     // errno; 0: the program is killed
  bool stays = false;
  int at = 1;

  static Fault none() { return {}; }
};

struct Outcome {
  int code = 0;  // 128 and more: the number of the signal that ended it
  std::string said;
  std::string complained;
  bool struck = false;  // the fault came to pass
  std::string path;     // on which
};

/// A folder in which programs run that find what they need in it, and the files that they leave.
class FaultyFolder {
 public:
  using Files = std::map<std::string, std::string>;  // what is in each, by its path in the folder
  using Words = std::vector<std::string>;

  std::filesystem::path path() const { return outside_.path / "run"; }

  /// Begins anew with these files.
  void fill(const Files& files) const {
    std::filesystem::remove_all(path());
    std::filesystem::create_directory(path());
    for (const auto& [name, bytes] : files) {
      std::filesystem::create_directories((path() / name).parent_path());
      replaceFile(path() / name, bytes);
    }
  }

  /// With what was written when, and the like, left out.
  Files files() const {
    Files files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(path())) {
      const std::string name = entry.path().lexically_relative(path());
      if (entry.is_regular_file()) files[name] = comparable(readFile(entry.path()));
    }
    return files;
  }

  /// The files that are in the folder just now.
  Outcome run(const Words& words, const Fault& fault, const std::string& input = "") const {
    Outcome outcome;
    outcome.code = wait(start(words, fault, input));
    outcome.said = readFile(outside_.path / "said");
    outcome.complained = readFile(outside_.path / "complained");
    outcome.struck = std::filesystem::exists(outside_.path / "struck");
    if (outcome.struck) outcome.path = readFile(outside_.path / "struck");
    return outcome;
  }

  pid_t start(const Words& words, const Fault& fault, const std::string& input = "") const {
    std::filesystem::remove(outside_.path / "struck");
    Words environment = environmentFor(fault);
    posix_spawn_file_actions_t files;
    posix_spawn_file_actions_init(&files);
    const auto open = [&](int descriptor, const std::filesystem::path& file, int flags) {
      posix_spawn_file_actions_addopen(&files, descriptor, file.c_str(), flags, 0600);
    };
    open(0, input.empty() ? "/dev/null" : path() / input, O_RDONLY);
    open(1, outside_.path / "said", O_WRONLY | O_CREAT | O_TRUNC);
    open(2, outside_.path / "complained", O_WRONLY | O_CREAT | O_TRUNC);
    posix_spawn_file_actions_addchdir_np(&files, path().c_str());
    pid_t process = 0;
    const int error = posix_spawn(&process,
                                  words.front().c_str(),
                                  &files,
                                  nullptr,
                                  pointers(words).data(),
                                  pointers(environment).data());
    posix_spawn_file_actions_destroy(&files);
    if (error != 0) throw std::runtime_error(words.front() + " cannot be started");
    return process;
  }

  static int wait(pid_t process) {
    int status = 0;
    waitpid(process, &status, 0);
    return WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
  }

 private:
  static std::vector<char*> pointers(const Words& words) {
    std::vector<char*> all;
    for (const std::string& word : words) all.push_back(const_cast<char*>(word.c_str()));
    all.push_back(nullptr);
    return all;
  }

  Words environmentFor(const Fault& fault) const {
    const std::string home = path();
    Words words{"PATH=/usr/bin:/bin",
                "HOME=" + home,
                "XDG_DATA_HOME=" + home + "/data",
                "XDG_CONFIG_HOME=" + home + "/config",
                "TMPDIR=" + home,
                "XDG_CACHE_HOME=" + (outside_.path / "cache").string(),
                "CUPS_SERVER=127.0.0.1:1",
                "QT_QPA_PLATFORM=offscreen"};
    if (fault.call.empty()) return words;
    for (const std::string& word : {"LD_PRELOAD=" + std::string(PAPERWAY_PRELOAD),
                                    "FAULT_CALL=" + fault.call,
                                    "FAULT_AT=" + std::to_string(fault.at),
                                    "FAULT_ERROR=" + std::to_string(fault.error),
                                    "FAULT_BELOW=" + home + "/",
                                    "FAULT_REPORT=" + (outside_.path / "struck").string()}) {
      words.push_back(word);
    }
    if (fault.stays) words.emplace_back("FAULT_STAYS=1");
    return words;
  }

  /// Two PDFs of the same pages differ in when they were made, and in their names.
  static std::string comparable(const std::string& bytes) {
    if (!bytes.starts_with("%PDF") || !bytes.ends_with("%%EOF\n")) return bytes;
    return "PDF of " + std::to_string(bytes.size()) + " bytes";
  }

  TestFolder outside_;
};

}  // namespace paperway
