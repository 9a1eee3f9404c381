#pragma once

#include <string>

#include "paperway/automation_error.h"

namespace paperway {

/// The description of the AutomationError that the call raises.
template <class Call>
std::string errorOf(Call call) {
  try {
    call();
  } catch (const AutomationError& error) {
    return error.description();
  }
  return "no error";
}

}  // namespace paperway
