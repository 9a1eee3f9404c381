#include "apps/paperway/report_input.h"

#include <array>
#include <cerrno>
#include <fstream>
#include <iostream>
#include <system_error>
#include <unistd.h>

namespace paperway::command {
namespace {

void copyStandardInput(const std::filesystem::path& target) {
  std::array<char, 1 << 16> block;
  std::ofstream file(target, std::ios::binary);
  while (std::cin.read(block.data(), block.size()) || std::cin.gcount() > 0) {
    file.write(block.data(), std::cin.gcount());
  }
  file.close();
  if (file && !std::cin.bad()) return;
  throw std::system_error(errno, std::generic_category(),
                          "Standard input cannot be copied to \"" + target.string() + "\"");
}

}  // namespace

ReportInput::ReportInput(const std::string& name, Folders& folders) : ReportInput(name) {
  if (name != "-") return;
  folder_ = folders.temporary() / ("input-" + std::to_string(getpid()));
  std::filesystem::create_directories(folder_);
  const std::filesystem::path copy = folder_ / "standard input";
  path_ = copy.string();
  copyStandardInput(copy);
}

ReportInput::~ReportInput() {
  std::error_code ignored;
  if (!folder_.empty()) std::filesystem::remove_all(folder_, ignored);
}

}  // namespace paperway::command
