#include "platform/copy_file.h"

#include "platform/input_file.h"
#include "platform/output_file.h"

namespace paperway {

void copyFile(Storage& storage, const std::filesystem::path& from, const std::filesystem::path& to,
              const std::string& source) {
  OutputFile copy(storage, to, source, {.inputs = {from}});
  readBlocks(storage, from, source, [&copy](std::string_view block) { copy.write(block); });
  copy.commit();
}

}  // namespace paperway
