#include <CLI/CLI.hpp>
#include <algorithm>
#include <iomanip>
#include <iostream>
#include <memory>
#include <stdexcept>
#include <string>

#include "apps/paperway/commands.h"
#include "apps/paperway/machine.h"
#include "apps/paperway/near_miss.h"
#include "apps/paperway/printer_choice.h"
#include "apps/paperway/user_printers.h"
#include "printing/printer_letters.h"
#include "util/control_strings.h"

namespace paperway::command {
namespace {

using desktop::DirectPrinter;
using desktop::DirectPrinterFile;

void list() {
  UserPrinters user;
  const auto printers = user.printers.list();
  const std::string current = user.printers.current();
  std::size_t width = 0;
  for (const PrinterInfo& printer : printers) {
    width = std::max(width, printer.DeviceName.size());
  }
  for (const PrinterInfo& printer : printers) {
    std::cout << (printer.DeviceName == current ? "* " : "  ") << std::left
              << std::setw(static_cast<int>(width)) << printer.DeviceName << "  "
              << (printer.raw ? "raw    " : "pages  ") << printer.description << "\n";
  }
  if (printers.empty()) std::cerr << "There is no printer.\n";
}

void listNames() {
  UserPrinters user;
  for (const PrinterInfo& printer : user.printers.list()) std::cout << printer.DeviceName << "\n";
}

void remove(const std::string& name) {
  if (DirectPrinterFile::ofUser().remove(name)) return;
  std::vector<std::string> names;
  for (const DirectPrinter& printer : DirectPrinterFile::ofUser().read()) {
    names.push_back(printer.name);
  }
  throw std::runtime_error("There is no direct printer \"" + name + "\"." +
                           didYouMean(name, names));
}

/// "none" takes back also what was said of a printer that has gone.
void setCodeTable(const std::string& name, const std::string& table) {
  Machine machine;
  UserPrinters user;
  const int number = table == "none" ? 0 : std::stoi(table);
  UserStore& store = machine.platform().userStore;
  const bool takesBack = number == 0 && keptCodeTable(store, name) != 0;
  if (!takesBack) requirePrinter(name, user.printers);
  keepCodeTable(store, name, number);
}

std::string ruler(const std::string& pitch, int columns, const std::string& title) {
  std::string line = pitch + title + "\r\n";
  for (int column = 1; column <= columns; ++column) {
    line += column % 10 == 0 ? std::to_string(column / 10 % 10) : ".";
  }
  return line + "\r\n";
}

/// A page of rulers: what a dot-matrix printer should print 8 inches wide.
std::string testPage(const std::string& name) {
  const DOSEFONTcHR font;
  return font.C80 + font.Bon + "Paperway test page: " + name + font.Boff + "\r\n\r\n" +
         ruler("", 80, "10 characters to the inch") + ruler(font.C96, 96, "12") +
         ruler(font.C80 + font.Con, 136, "17") + font.Coff + kFormFeed;
}

void test(const std::string& name) {
  StoppablePrinters user;
  const auto job = user.spooler.open(printerFor(name, user.printers));
  if (!job) throw std::runtime_error(noPrinter(name, user.printers));
  const std::string page = testPage(name);
  job->start("Paperway test page", DocumentFormat::raw);
  job->write(page);
  job->end();
  std::cout << name << " took " << page.size() << " bytes.\n";
}

}  // namespace

void addPrinters(CLI::App& app) {
  CLI::App* printers = app.add_subcommand("printers", "List the printers, or change direct ones");
  printers->require_subcommand(0, 1);
  printers->footer(
      "A direct printer is written to without a queue: a network socket, a device or file, a "
      "program.\nExamples:\n"
      "  paperway printers\n"
      "  paperway printers add Counter socket://192.168.1.40:9100\n"
      "  paperway printers add Matrix file:///dev/usb/lp0 --timeout 120\n"
      "  paperway printers add Archive \"|gzip > ~/last-job.gz\"\n"
      "  paperway printers set Matrix --code-table 437\n"
      "  paperway printers test Counter");
  const auto namesAlone = std::make_shared<bool>(false);
  printers->add_subcommand("list", "List the printers; * is the default one")
      ->add_flag("--names", *namesAlone, "Their names alone, one to a line");
  printers->callback([printers, namesAlone] {
    if (*namesAlone) return listNames();
    if (printers->get_subcommands().empty() || printers->got_subcommand("list")) list();
  });

  const auto printer = std::make_shared<DirectPrinter>();
  const auto seconds = std::make_shared<int>(0);
  CLI::App* add = printers->add_subcommand("add", "Add a direct printer, or change it");
  add->add_option("NAME", printer->name, "What it is called")->required();
  add->add_option("TARGET", printer->target, "socket://host:port, file:///path or |command")
      ->required();
  add->add_option("--timeout", *seconds, "How long it may stand still before a job fails")
      ->type_name("SECONDS")
      ->check(CLI::PositiveNumber)
      ->default_str("30");
  add->callback([printer, seconds] {
    printer->timeout = std::chrono::seconds(*seconds);
    DirectPrinterFile::ofUser().add(*printer);
  });

  const auto table = std::make_shared<std::string>();
  CLI::App* set = printers->add_subcommand("set", "Say what letters a printer has");
  set->add_option("NAME", printer->name, "Any printer of the list")
      ->type_name("PRINTER")
      ->required();
  set->add_option("--code-table", *table,
                  "The code table of its letters; text goes to it in those. none: as it is")
      ->check(CLI::IsMember({"437", "850", "858", "860", "863", "865", "1252", "none"}))
      ->required();
  set->callback([printer, table] { setCodeTable(printer->name, *table); });

  CLI::App* take = printers->add_subcommand("remove", "Remove a direct printer");
  take->add_option("NAME", printer->name, "What it is called")->type_name("PRINTER")->required();
  take->callback([printer] { remove(printer->name); });

  CLI::App* tryOut = printers->add_subcommand("test", "Print a test page, raw");
  tryOut->add_option("NAME", printer->name, "Any printer of the list")
      ->type_name("PRINTER")
      ->required();
  tryOut->callback([printer] { test(printer->name); });
}

}  // namespace paperway::command
