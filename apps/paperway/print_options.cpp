#include "apps/paperway/print_options.h"

#include <stdexcept>

namespace paperway::command {

void requirePages(const PrintOptions& options, std::int64_t count) {
  const auto missing = options.chosen.missing(count);
  if (!missing) return;
  throw std::runtime_error(options.file + " has " + std::to_string(count) + " pages, and no page " +
                           std::to_string(*missing + 1) + ".");
}

PrintFileArguments rawArguments(const PrintOptions& options, const std::filesystem::path& file,
                                const std::string& source) {
  return {.fileName = file,
          .printerName = options.printer,
          .paperHeight = static_cast<std::int16_t>(options.paper),
          .cond = options.pitch == 17 ? std::uint8_t{1} : std::uint8_t{0},
          .semiCond = options.pitch == 12 ? std::uint8_t{1} : std::uint8_t{0},
          .copies = static_cast<std::uint8_t>(options.copies),
          .linesIn = static_cast<std::uint8_t>(options.tear[0]),
          .linesOut = static_cast<std::uint8_t>(options.tear[1]),
          .sources = {source}};
}

FileToPrint::FileToPrint(const PrintOptions& options, Storage& storage, Folders& folders)
    : path_(options.file) {
  if (options.pages.empty() || !std::filesystem::exists(path_)) return;
  part_.emplace(folders, path_.filename().string());
  path_ = part_->path();
  requirePages(options, writePages(storage, options.file, options.chosen, path_));
}

}  // namespace paperway::command
