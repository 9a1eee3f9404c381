// In place of desk_qt.cpp in the program without windows: the one with windows, which stands beside
// it, takes over.

#include <cerrno>
#include <cstring>
#include <stdexcept>
#include <unistd.h>
#include <vector>

#include "apps/paperway/desk.h"
#include "paperway/storage.h"
#include "platform/input_file.h"

namespace paperway::command {

std::unique_ptr<Desk> Desk::open(const Options& /*options*/) {
  const auto program =
      std::filesystem::read_symlink("/proc/self/exe").parent_path() / "paperway-desk";
  desktop::Storage storage;
  std::string line =
      readFile(storage, "/proc/self/cmdline", "paperway");  // each word ends in a zero
  std::vector<char*> words;
  for (std::size_t at = 0; at < line.size(); at += std::strlen(&line[at]) + 1) {
    words.push_back(&line[at]);
  }
  words.push_back(nullptr);
  execv(program.c_str(), words.data());
  throw std::runtime_error(program.string() + " cannot be started: " + std::strerror(errno));
}

}  // namespace paperway::command
