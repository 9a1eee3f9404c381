#pragma once

#include <string>

#include "util/automation_error.h"

namespace paperway {

/// What an action fails with; "no error" when it does not.
template <class Action>
std::string errorOf(Action action) {
  try {
    action();
  } catch (const AutomationError& error) {
    return error.description();
  }
  return "no error";
}

}  // namespace paperway
