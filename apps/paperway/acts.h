#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

namespace paperway {
class Form;
}

namespace paperway::command {

/// The option --do: what a user does on a window before its picture is taken.
CLI::Option* addActs(CLI::App& command, std::vector<std::string>& acts);

/// "NAME" clicks a control, "NAME=TEXT" types a text and Enter into it. A std::runtime_error says
/// why it cannot be.
void perform(Form& form, const std::string& act);

/// A line for each control of the form that --do can act on.
std::string controlsToActOn(const Form& form);

}  // namespace paperway::command
