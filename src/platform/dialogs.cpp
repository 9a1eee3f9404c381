#include "paperway/platform/dialogs.h"

#include "platform/dialog_failure.h"

namespace paperway {
namespace {

std::optional<std::filesystem::path> oneFile(Dialogs& dialogs, const FileQuestion& question) {
  const FileAnswer answer = dialogs.askForFiles(question);
  if (answer.failure != 0) throw dialogFailure(answer.failure, question.purpose);
  if (answer.files.empty()) return std::nullopt;
  return answer.files.front();
}

}  // namespace

std::optional<std::filesystem::path> Dialogs::openFile(FileQuestion question) {
  question.purpose = FileQuestion::Purpose::read;
  question.fileMustExist = true;
  return oneFile(*this, question);
}

std::optional<std::filesystem::path> Dialogs::saveFile(FileQuestion question) {
  question.purpose = FileQuestion::Purpose::write;
  question.extension = "";
  question.confirmReplace = true;
  question.folderMustExist = true;
  return oneFile(*this, question);
}

}  // namespace paperway
