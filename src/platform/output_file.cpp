#include "platform/output_file.h"

#include <algorithm>
#include <charconv>
#include <random>
#include <system_error>

#include "paperway/automation_error.h"
#include "platform/file_error.h"
#include "util/path_text.h"

namespace paperway {
namespace {

constexpr char kVerb[] = "write";
constexpr std::string_view kEnding = ".part";

std::string hex(std::uint64_t number) {
  char digits[16];
  return {digits, std::to_chars(digits, digits + sizeof digits, number, 16).ptr};
}

/// Begins the names of all new files for a target. It is short, so that the target's own name may
/// be as long as the file system allows.
std::string prefixFor(const std::filesystem::path& target) {
  std::uint64_t hash = 14695981039346656037U;  // FNV-1a
  for (const char c : textOf(target.filename())) {
    hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211U;
  }
  return ".paperway-" + hex(hash) + "-";
}

std::filesystem::path folderOf(const std::filesystem::path& target) {
  return target.has_parent_path() ? target.parent_path() : ".";
}

[[noreturn]] void raiseNoNeighbour(const std::filesystem::path& target, std::error_code error,
                                   const std::string& source) {
  throw AutomationError(errorNumber(error), source,
                        "Cannot write \"" + textOf(target) + "\": no new file can be made in \"" +
                            textOf(folderOf(target)) + "\": " + error.message() + ".");
}

void refuseInputs(Storage& storage, const std::filesystem::path& target, const std::string& source,
                  const OutputOptions& options) {
  for (const std::filesystem::path& input : options.inputs) {
    if (!storage.isSame(target, input)) continue;
    throw AutomationError(AutomationError::kPathFileAccess, source,
                          "Cannot write \"" + textOf(target) +
                              "\": it is read for what would be written" +
                              (target == input ? "." : ", as \"" + textOf(input) + "\"."));
  }
}

}  // namespace

OutputFile::OutputFile(Storage& storage, std::filesystem::path target, std::string source,
                       OutputOptions options)
    : storage_(storage),
      target_(std::move(target)),
      source_(std::move(source)),
      options_(std::move(options)) {
  if (target_.empty()) {
    throw AutomationError(AutomationError::kPathNotFound, source_,
                          "Cannot write a file without a name.");
  }
  withFileError(kVerb, target_, source_, [&] {
    refuseInputs(storage_, target_, source_, options_);
    const FileStatus::Kind kind = storage_.status(target_).kind;
    if (kind == FileStatus::Kind::stream) {
      file_ = storage_.openToAppend(target_);
      return;
    }
    if (kind == FileStatus::Kind::folder) {
      throw std::system_error(std::make_error_code(std::errc::is_a_directory));
    }
    target_ = storage_.behindLinks(target_);
    removeAbandoned();
    const bool isNew = kind == FileStatus::Kind::none;
    const bool isUsual = options_.access == FileAccess::usual;
    createBeside(isUsual && !isNew ? FileAccess::owner : options_.access);
  });
}

/// A folder that may not be listed, or a file of another user's, is left alone.
void OutputFile::removeAbandoned() const {
  const std::string prefix = prefixFor(target_);
  try {
    for (const std::filesystem::path& name : storage_.names(folderOf(target_))) {
      const std::string text = textOf(name);
      if (!text.starts_with(prefix) || !text.ends_with(kEnding)) continue;
      storage_.removeAbandoned(target_.parent_path() / name);
    }
  } catch (const std::system_error&) {
  }
}

void OutputFile::createBeside(FileAccess access) {
  constexpr int kTries = 10;
  std::random_device random;
  for (int i = 1; file_ == nullptr; ++i) {
    auto path = target_.parent_path() / (prefixFor(target_) + hex(random()) + std::string(kEnding));
    try {
      file_ = storage_.create(path, access);
      written_ = std::move(path);
    } catch (const std::system_error& error) {
      if (error.code() == std::errc::file_exists && i < kTries) continue;
      raiseNoNeighbour(target_, error.code(), source_);
    }
  }
}

OutputFile::~OutputFile() {
  if (written_.empty()) return;
  try {
    storage_.remove(written_);
  } catch (const std::system_error&) {
    // The next one for this target tries again.
  }
}

void OutputFile::write(std::string_view bytes) {
  withFileError(kVerb, target_, source_, [&] { file_->write(bytes); });
}

void OutputFile::commit() {
  withFileError(kVerb, target_, source_, [&] {
    if (written_.empty()) {
      file_->finish();
    } else {
      putInPlace();
    }
  });
  file_.reset();
}

/// The new file is closed last: while it is open, nobody takes it for an abandoned one.
void OutputFile::putInPlace() {
  const bool replaces = storage_.status(target_).kind != FileStatus::Kind::none;
  if (replaces && options_.access == FileAccess::usual) file_->takeAccessOf(target_);
  if (options_.lasting) file_->sync();
  file_->finish();
  storage_.rename(written_, target_);
  written_.clear();
  if (options_.lasting) storage_.syncFolder(folderOf(target_));
}

void removeOutput(Storage& storage, const std::filesystem::path& target, const std::string& source,
                  const OutputOptions& options) {
  withFileError(kVerb, target, source, [&] {
    refuseInputs(storage, target, source, options);
    const FileStatus::Kind kind = storage.status(target).kind;
    if (kind == FileStatus::Kind::folder) {
      throw std::system_error(std::make_error_code(std::errc::is_a_directory));
    }
    if (kind == FileStatus::Kind::regular) storage.remove(target);
  });
}

void replaceFile(Storage& storage, const std::filesystem::path& target, std::string_view bytes,
                 const std::string& source, OutputOptions options) {
  OutputFile file(storage, target, source, std::move(options));
  file.write(bytes);
  file.commit();
}

}  // namespace paperway
