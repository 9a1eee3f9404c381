#pragma once

#include <string>

#include "paperway/platform/printers.h"

namespace paperway::command {

/// The printer of a job: the one that was named or, without a name, the current one. Standard error
/// tells which that is when it is the first of several and nobody chose it. A name that is nearly
/// one of the list's is an error that says which; any other is left to the job.
std::string printerFor(const std::string& named, Printers& printers);

/// An error when there is no such printer.
void requirePrinter(const std::string& name, Printers& printers);

/// "There is no printer …", with the one that was probably meant.
std::string noPrinter(const std::string& name, Printers& printers);

}  // namespace paperway::command
