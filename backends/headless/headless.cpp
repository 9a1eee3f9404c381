#include "paperway/headless.h"

#include <algorithm>

#include "controls/form.h"
#include "paperway/automation_error.h"

namespace paperway::headless {
namespace {

template <typename T>
std::optional<T> takeFront(std::vector<std::optional<T>>& answers) {
  if (answers.empty()) return std::nullopt;
  const std::optional<T> answer = answers.front();
  answers.erase(answers.begin());
  return answer;
}

}  // namespace

MessageBoxes::Answer MessageBoxes::show(std::string_view text, std::string_view title,
                                        Buttons buttons, Icon icon) {
  shown.push_back({std::string(text), std::string(title), buttons, icon});
  if (answers.empty()) return buttons == Buttons::ok ? Answer::ok : Answer::no;
  const Answer answer = answers.front();
  answers.erase(answers.begin());
  return answer;
}

void Windows::show(std::shared_ptr<Form> form) {
  if (std::find(forms.begin(), forms.end(), form) == forms.end()) forms.push_back(form);
  form->activate();
}

void Windows::repaint() {
  if (repainted) repainted();
}

void Windows::doEvents() {
  if (waitingEvents) waitingEvents();
}

FileAnswer Dialogs::askForFiles(const FileQuestion& question) {
  questions.push_back(question);
  FileAnswer answer;
  answer.filter = question.filter;
  if (!answers.empty()) {
    answer = answers.front();
    answers.erase(answers.begin());
  } else if (const auto file = takeFront(files)) {
    answer.files = {*file};
  }
  return answer;
}

std::optional<std::uint32_t> Dialogs::color(std::uint32_t) {
  return takeFront(colors);
}

void Shell::start(const std::vector<std::string>& command) {
  if (fails) {
    throw AutomationError(AutomationError::kFileNotFound, "Shell",
                          command.front() + " cannot be started: there is no such program");
  }
  started.push_back(command);
}

std::filesystem::path Shell::scriptName(std::string_view stem) {
  return std::string(stem) + ".script";
}

std::string Shell::scriptText(std::string_view purpose, std::string_view line) {
  return std::string(purpose) + "\n" + std::string(line) + "\n";
}

std::string Shell::copyLine(const std::filesystem::path& file,
                            const std::filesystem::path& device) {
  return "copy \"" + file.string() + "\" \"" + device.string() + "\"";
}

std::filesystem::path Folders::folder(const char* name) const {
  const std::filesystem::path path = root_ / name;
  std::filesystem::create_directories(path);
  return path;
}

std::filesystem::path Folders::work() {
  return folder("work");
}
std::filesystem::path Folders::program() {
  return folder("program");
}
std::filesystem::path Folders::temporary() {
  return folder("temporary");
}

}  // namespace paperway::headless
