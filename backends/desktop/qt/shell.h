#pragma once

#include "paperway/platform/shell.h"

namespace paperway::qt {

class Shell : public paperway::Shell {
 public:
  void start(const std::vector<std::string>& command) override;
  std::optional<std::vector<std::string>> calculator() override;
  std::filesystem::path scriptName(std::string_view stem) override;
  std::string scriptText(std::string_view purpose, std::string_view line) override;
  std::string copyLine(const std::filesystem::path& file,
                       const std::filesystem::path& device) override;
  void startScript(const std::filesystem::path& script) override;
};

}  // namespace paperway::qt
