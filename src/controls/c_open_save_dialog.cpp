#include "controls/c_open_save_dialog.h"

#include <algorithm>

#include "controls/filter_text.h"
#include "platform/dialog_failure.h"
#include "util/path_text.h"

namespace paperway {
namespace {

namespace fs = std::filesystem;
using Purpose = FileQuestion::Purpose;

constexpr char kItemEnd = '\0';

/// What a file dialog leaves in its buffer: the path, or the folder and the names of several files,
/// each with a code 0 behind it.
struct Chosen {
  explicit Chosen(const std::vector<fs::path>& files);

  std::u32string buffer;
  std::u32string title;
  std::size_t fileOffset = 0;
  std::size_t extensionOffset = 0;
};

std::u32string ended(const fs::path& path) {
  return DialogBuffer::charactersOf(textOf(path)) + U'\0';
}

Chosen::Chosen(const std::vector<fs::path>& files) {
  const fs::path& first = files.front();
  if (files.size() > 1) {
    const fs::path folder = first.parent_path();
    buffer = ended(folder);
    fileOffset = buffer.size();
    for (const fs::path& file : files) {
      buffer += ended(file.parent_path() == folder ? file.filename() : file);
    }
    buffer += U'\0';
    return;
  }
  buffer = ended(first);
  title = ended(first.filename());
  fileOffset = buffer.size() - title.size();
  const std::size_t point = title.rfind(U'.');
  if (point != std::u32string::npos) extensionOffset = fileOffset + point + 1;
}

}  // namespace

bool cOpenSaveDialog::ShowOpen(std::int32_t ownerHwnd) {
  return show(ownerHwnd, Purpose::read);
}

bool cOpenSaveDialog::ShowSave(std::int32_t ownerHwnd) {
  return show(ownerHwnd, Purpose::write);
}

bool cOpenSaveDialog::show(std::int32_t owner, Purpose purpose) {
  required_ = 0;
  file_.allocate();
  title_.allocate();
  const FileAnswer answer = dialogs_.askForFiles(question(owner, purpose));
  std::uint32_t failure = answer.failure;
  if (failure == 0 && !answer.files.empty()) {
    if (take(answer)) return true;
    failure = kFileBufferTooSmall;
  }
  if (failure == 0 && !CancelError) return false;
  if (failure == kFileBufferTooSmall) {
    required_ = file_.length() > 4 ? static_cast<std::int32_t>(file_.front() & 0xFFFF) : -1;
  }
  throw dialogFailure(failure, purpose);
}

/// False when the buffer is too small, whose first character then is the size that would do.
bool cOpenSaveDialog::take(const FileAnswer& answer) {
  const Chosen chosen(answer.files);
  if (chosen.buffer.size() > file_.length()) {
    file_.put(std::u32string(1, static_cast<char32_t>(chosen.buffer.size() & 0xFFFF)));
    return false;
  }
  file_.put(chosen.buffer);
  title_.put(chosen.title.substr(0, title_.length() - 1) + U'\0');
  fileOffset_ = chosen.fileOffset;
  extensionOffset_ = chosen.extensionOffset;
  if (filter_) filterIndex_ = static_cast<std::int32_t>(answer.filter) + 1;
  return true;
}

FileQuestion cOpenSaveDialog::question(std::int32_t owner, Purpose purpose) const {
  const std::int32_t flags = flagsFor(purpose);
  FileQuestion question;
  question.title = dialogTitle_;
  question.filters = filtersOf(filter_.value_or(""), kItemEnd);
  question.start = start();
  question.purpose = purpose;
  question.filter = static_cast<std::size_t>(std::max(filterIndex_, 1) - 1);
  question.extension = defaultExt_;
  question.multiple = (flags & kAllowMultiSelect) != 0;
  question.confirmReplace = (flags & kOverwritePrompt) != 0;
  question.fileMustExist = (flags & kFileMustExist) != 0;
  question.folderMustExist = (flags & kPathMustExist) != 0;
  question.owner = static_cast<std::uint32_t>(owner);
  return question;
}

std::int32_t cOpenSaveDialog::flagsFor(Purpose purpose) const {
  if (purpose == Purpose::write) return flags_ & ~kFileMustExist;
  const std::int32_t flags = flags_ & ~kOverwritePrompt;
  return (flags & kFileMustExist) != 0 ? flags | kPathMustExist : flags;
}

/// InitDir, its backslash made this system's own, with the name that is in the buffer.
fs::path cOpenSaveDialog::start() const {
  const fs::path name = pathOf(file_.textFrom(0));
  if (!initDir_) return name;
  fs::path folder = pathOf(initDir_->substr(0, initDir_->size() - 1));
  folder += fs::path::preferred_separator;
  return name.empty() ? folder : folder / name;
}

void cOpenSaveDialog::Clear() {
  CancelError = false;
  FlagsEx = CustomHookData = CustomHookProc = 0;
  file_ = DialogBuffer(520);
  title_ = DialogBuffer(260);
  fileOffset_ = extensionOffset_ = 0;
  initDir_ = filter_ = defaultExt_ = std::nullopt;
  dialogTitle_.clear();
  flags_ = filterIndex_ = customFilterSize_ = required_ = 0;
}

std::string cOpenSaveDialog::fileName() const {
  if (fileOffset_ == 0) return file_.textFrom(0);
  const std::size_t length = file_.end(fileOffset_ - 1).value_or(0);
  return file_.text(0, length == 0 ? file_.length() : length);
}

std::string cOpenSaveDialog::filePath() const {
  return fileOffset_ == 0 ? "" : file_.text(0, fileOffset_ - 1);
}

std::string cOpenSaveDialog::FileExtension() const {
  return extensionOffset_ == 0 ? "" : file_.textFrom(extensionOffset_);
}

void cOpenSaveDialog::setInitDir(Text folder) {
  initDir_ = std::move(folder);
  if (initDir_ && (initDir_->empty() || initDir_->back() != '\\')) *initDir_ += '\\';
}

std::string cOpenSaveDialog::filter() const {
  std::string text = filter_.value_or("");
  const std::size_t listEnd = text.find(std::string(2, kItemEnd));
  if (listEnd != 0 && listEnd != std::string::npos) text.resize(listEnd);
  std::replace(text.begin(), text.end(), kItemEnd, '|');
  return text;
}

void cOpenSaveDialog::setFilter(Text filter) {
  filter_ = std::move(filter);
  if (!filter_) return;
  std::replace(filter_->begin(), filter_->end(), '|', kItemEnd);
  *filter_ += kItemEnd;
}

void cOpenSaveDialog::setFlags(std::int32_t flags) {
  if (flags >= 0) flags_ = flags & ~kExtensionDifferent;
}

}  // namespace paperway
