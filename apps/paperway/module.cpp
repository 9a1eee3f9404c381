#include "apps/paperway/module.h"

#include <dlfcn.h>
#include <stdexcept>
#include <string>

namespace paperway::command {

std::filesystem::path moduleFile(const char* name) {
  const auto folder = std::filesystem::read_symlink("/proc/self/exe").parent_path();
  for (const char* place : {PAPERWAY_MODULES, "."}) {
    const std::filesystem::path module = folder / place / (std::string("paperway-") + name + ".so");
    if (std::filesystem::exists(module)) return module;
  }
  return {};
}

void* moduleSymbol(const std::filesystem::path& module, const char* symbol) {
  void* const handle = dlopen(module.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (handle == nullptr) throw std::runtime_error(dlerror());
  void* const found = dlsym(handle, symbol);
  if (found == nullptr) throw std::runtime_error(dlerror());
  return found;
}

}  // namespace paperway::command
