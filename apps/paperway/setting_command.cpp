#include <filesystem>
#include <iostream>
#include <memory>
#include <string>

#include "apps/paperway/commands.h"
#include "backends/desktop/system/folders.h"
#include "paperway/automation_error.h"
#include "paperway/storage.h"
#include "session/settings_store.h"
#include "util/path_text.h"

namespace paperway::command {
namespace {

struct SettingOptions {
  std::string section;
  std::string key;
  std::string value;
  std::string file;
  std::string company;

  void addTo(CLI::App& app);
  std::filesystem::path path() const;
};

void SettingOptions::addTo(CLI::App& app) {
  app.add_option("section", section, "Section, as in \"[section]\"")
      ->type_name("SECTION")
      ->required();
  app.add_option("key", key, "Key below it")->type_name("KEY")->required();
  CLI::Option* fileOption =
      app.add_option("--file", file, "Settings file; without it, the one of report windows")
          ->type_name("PATH");
  app.add_option("--company", company, "Company or installation number that the file belongs to")
      ->type_name("N")
      ->excludes(fileOption);
}

std::filesystem::path SettingOptions::path() const {
  if (!file.empty()) return pathOf(file);
  desktop::Folders folders;
  return settingsPath(folders, company);
}

[[noreturn]] void raiseMissing(const std::string& what) {
  throw AutomationError(AutomationError::kItemNotFound, "setting", "There is no " + what + ".");
}

void printSetting(const SettingOptions& options) {
  constexpr char kNone[] = "\r";  // no value holds a line end
  const std::filesystem::path path = options.path();
  if (!options.file.empty() && !std::filesystem::exists(path))
    raiseMissing("file \"" + textOf(path) + "\"");
  desktop::Storage storage;
  const std::string value = ReadIniValue(storage, path, options.section, options.key, kNone);
  if (value == kNone) {
    raiseMissing("key \"" + options.key + "\" in section \"" + options.section + "\" of \"" +
                 textOf(path) + "\"");
  }
  std::cout << value << std::endl;
}

void writeSetting(const SettingOptions& options) {
  desktop::Storage storage;
  WriteIniValue(storage, options.path(), options.section, options.key, options.value);
}

}  // namespace

void addSetting(CLI::App& app) {
  CLI::App* setting = app.add_subcommand("setting", "Read or write a setting of a settings file");
  setting->require_subcommand(1);
  setting->footer(
      "Example:\n"
      "  paperway setting set ReportView Bold 255\n"
      "  paperway setting get ReportView Bold --company 7");

  CLI::App* get = setting->add_subcommand("get", "Print the value of a key");
  const auto wanted = std::make_shared<SettingOptions>();
  wanted->addTo(*get);
  get->callback([wanted] { printSetting(*wanted); });

  CLI::App* set = setting->add_subcommand("set", "Give a key a value");
  const auto given = std::make_shared<SettingOptions>();
  given->addTo(*set);
  set->add_option("value", given->value, "Value; may be empty")->type_name("VALUE")->required();
  set->callback([given] { writeSetting(*given); });
}

}  // namespace paperway::command
