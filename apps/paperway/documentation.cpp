#include <iostream>

#include "apps/paperway/command_help.h"
#include "apps/paperway/commands.h"
#include "apps/paperway/completion.h"
#include "apps/paperway/manual.h"

namespace paperway::command {

void addDocumentation(CLI::App& app) {
  app.footer(
      "Exit codes: 0 when it is done; 1 when it failed, with the reason on standard error; 2 when "
      "the command line is wrong; 128 and the number of the signal when it was stopped.");
  app.add_flag_callback("--manual",
                        [&app] {
                          std::cout << manualPage(describe(app), app.version());
                          throw CLI::Success();
                        })
      ->group("");
  app.add_option_function<std::string>("--completion",
                                       [&app](const std::string& shell) {
                                         std::cout << completionScript(shell, describe(app));
                                         throw CLI::Success();
                                       })
      ->check(CLI::IsMember({"bash", "zsh", "fish"}))
      ->group("");
}

}  // namespace paperway::command
