#include "backends/desktop/system/user_store.h"

#include <array>
#include <map>
#include <optional>

#include "backends/desktop/system/user_directories.h"
#include "paperway/automation_error.h"
#include "paperway/storage.h"
#include "platform/change_file.h"
#include "platform/file_error.h"
#include "platform/input_file.h"
#include "util/text.h"

namespace paperway::desktop {
namespace {

constexpr char kSource[] = "UserStore";
constexpr std::string_view kHeading = "paperway store 1\n";
constexpr std::string_view kEscaped = "\t\n\r\\";
constexpr std::string_view kEscapes = "tnr\\";

using Address = std::array<std::string, 3>;  // application, section, key in lower case
using Texts = std::map<Address, std::string>;

Address address(std::string_view application, std::string_view section, std::string_view key) {
  return {lowerCase(application), lowerCase(section), lowerCase(key)};
}

std::filesystem::path storeFolder() {
  return userDirectory("XDG_CONFIG_HOME", ".config") / "paperway";
}

void appendEscaped(std::string& out, std::string_view text) {
  for (const char c : text) {
    const std::size_t escape = kEscaped.find(c);
    if (escape == kEscaped.npos) {
      out += c;
    } else {
      out += '\\';
      out += kEscapes[escape];
    }
  }
}

std::optional<std::string> unescaped(std::string_view text) {
  std::string out;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\\') {
      out += text[i];
      continue;
    }
    const std::size_t escape = ++i < text.size() ? kEscapes.find(text[i]) : kEscapes.npos;
    if (escape == kEscapes.npos) return std::nullopt;
    out += kEscaped[escape];
  }
  return out;
}

std::string format(const Texts& texts) {
  std::string bytes(kHeading);
  for (const auto& [key, value] : texts) {
    for (const std::string& part : key) {
      appendEscaped(bytes, part);
      bytes += '\t';
    }
    appendEscaped(bytes, value);
    bytes += '\n';
  }
  return bytes;
}

bool parseLine(std::string_view line, Texts& texts) {
  std::array<std::string, 4> fields;
  for (std::size_t i = 0; i < fields.size(); ++i) {
    const bool last = i + 1 == fields.size();
    const std::size_t end = last ? line.size() : line.find('\t');
    if (end == line.npos || line.substr(0, end).find('\t') != line.npos) return false;
    auto field = unescaped(line.substr(0, end));
    if (!field) return false;
    fields[i] = std::move(*field);
    if (!last) line.remove_prefix(end + 1);
  }
  texts[address(fields[0], fields[1], fields[2])] = std::move(fields[3]);
  return true;
}

/// Number of the first line that cannot be read; 0 when all can.
int parse(std::string_view bytes, Texts& texts) {
  if (!bytes.starts_with(kHeading)) return 1;
  bytes.remove_prefix(kHeading.size());
  for (int line = 2; !bytes.empty(); ++line) {
    const std::size_t end = bytes.find('\n');
    if (end == bytes.npos || !parseLine(bytes.substr(0, end), texts)) return line;
    bytes.remove_prefix(end + 1);
  }
  return 0;
}

/// A file that is still empty holds nothing.
Texts textsIn(const std::string& bytes, const std::filesystem::path& path) {
  Texts texts;
  const int line = bytes.empty() ? 0 : parse(bytes, texts);
  if (line == 0) return texts;
  throw AutomationError(AutomationError::kPathFileAccess, kSource,
                        "Line " + std::to_string(line) + " of \"" + path.string() +
                            "\" cannot be read; mend or remove the file.");
}

Texts load(const std::filesystem::path& path) {
  Storage storage;
  const FileStatus status =
      withFileError("read", path, kSource, [&] { return storage.status(path); });
  if (status.kind == FileStatus::Kind::none) return {};
  return textsIn(readFile(storage, path, kSource), path);
}

}  // namespace

std::string UserStore::get(std::string_view application, std::string_view section,
                           std::string_view key, std::string_view fallback) {
  const Texts texts = load(storeFolder() / "store.txt");
  const auto found = texts.find(address(application, section, key));
  return found == texts.end() ? std::string(fallback) : found->second;
}

void UserStore::saveAll(std::string_view application, std::string_view section,
                        std::span<const Text> texts) {
  Storage storage;
  const auto path = makePrivateFolder(storeFolder()) / "store.txt";
  changeFile(storage, path, kSource, FileAccess::owner, [&](const std::string& bytes) {
    Texts stored = textsIn(bytes, path);
    for (const Text& text : texts) stored[address(application, section, text.key)] = text.value;
    return format(stored);
  });
}

}  // namespace paperway::desktop
