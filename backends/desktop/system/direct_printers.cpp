#include "backends/desktop/system/direct_printers.h"

#include <algorithm>
#include <charconv>

#include "backends/desktop/shell_quote.h"
#include "backends/desktop/system/user_directories.h"
#include "paperway/automation_error.h"
#include "paperway/storage.h"
#include "platform/change_file.h"
#include "platform/file_error.h"
#include "platform/input_file.h"

namespace paperway::desktop {
namespace {

constexpr char kSource[] = "Printers";
constexpr std::string_view kSocket = "socket://";
constexpr std::string_view kFile = "file://";

[[noreturn]] void refuse(const std::string& what) {
  throw AutomationError(AutomationError::kInvalidCall, kSource, what);
}

DirectTarget parseSocket(const std::string& target) {
  DirectTarget parsed{DirectTarget::Kind::socket, target.substr(kSocket.size()), "9100"};
  while (parsed.place.ends_with('/')) parsed.place.pop_back();
  const std::size_t colon = parsed.place.rfind(':');
  if (colon != std::string::npos && parsed.place.find(']', colon) == std::string::npos) {
    parsed.port = parsed.place.substr(colon + 1);
    parsed.place.resize(colon);
  }
  if (parsed.place.starts_with('[') && parsed.place.ends_with(']')) {
    parsed.place = parsed.place.substr(1, parsed.place.size() - 2);
  }
  const bool isNumber =
      !parsed.port.empty() && parsed.port.find_first_not_of("0123456789") == std::string::npos;
  if (parsed.place.empty() || !isNumber) {
    refuse("\"" + target + "\" names no socket: it takes socket://host:port.");
  }
  return parsed;
}

/// The text up to the mark, which is taken off it; all of it when it has none.
std::string_view takeUpTo(char mark, std::string_view& text) {
  const std::size_t end = std::min(text.find(mark), text.size());
  const std::string_view part = text.substr(0, end);
  text.remove_prefix(std::min(end + 1, text.size()));
  return part;
}

std::optional<DirectPrinter> parseLine(std::string_view line) {
  if (line.starts_with('#')) return std::nullopt;
  DirectPrinter printer;
  printer.name = takeUpTo('\t', line);
  printer.target = takeUpTo('\t', line);
  if (printer.target.empty()) return std::nullopt;
  int seconds = 0;
  std::from_chars(line.data(), line.data() + line.size(), seconds);
  if (seconds > 0) printer.timeout = std::chrono::seconds(seconds);
  return printer;
}

std::vector<std::string> linesIn(std::string_view text) {
  std::vector<std::string> lines;
  while (!text.empty()) {
    std::string_view line = takeUpTo('\n', text);
    if (line.ends_with('\r')) line.remove_suffix(1);
    lines.emplace_back(line);
  }
  return lines;
}

std::string textOf(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + "\n";
  return text;
}

std::string lineOf(const DirectPrinter& printer) {
  std::string line = printer.name + "\t" + printer.target;
  if (printer.timeout.count() > 0) line += "\t" + std::to_string(printer.timeout.count());
  return line;
}

auto namesPrinter(const std::string& name) {
  return [name](const std::string& line) {
    const auto printer = parseLine(line);
    return printer && printer->name == name;
  };
}

bool holdsControl(const std::string& text) {
  return std::any_of(text.begin(), text.end(),
                     [](char c) { return static_cast<unsigned char>(c) < ' '; });
}

}  // namespace

DirectTarget parseTarget(const std::string& target) {
  if (target.starts_with(kSocket)) return parseSocket(target);
  if (target.starts_with(kFile) && target.size() > kFile.size() + 1 &&
      target[kFile.size()] == '/') {
    return {DirectTarget::Kind::file, target.substr(kFile.size()), ""};
  }
  if (target.starts_with('|') && target.find_first_not_of("| ") != std::string::npos) {
    return {DirectTarget::Kind::command, target.substr(1), ""};
  }
  refuse("\"" + target +
         "\" is no direct printer: it takes socket://host:port, file:///path or |command.");
}

DirectPrinterFile DirectPrinterFile::ofUser() {
  return DirectPrinterFile(userDirectory("XDG_CONFIG_HOME", ".config") / "paperway" / "printers");
}

std::vector<std::string> DirectPrinterFile::lines() const {
  Storage storage;
  const FileStatus status =
      withFileError("read", path_, kSource, [&] { return storage.status(path_); });
  if (status.kind == FileStatus::Kind::none) return {};
  return linesIn(readFile(storage, path_, kSource));
}

/// Its commands are the user's own: nobody else reads or writes the file.
void DirectPrinterFile::change(
    const std::function<void(std::vector<std::string>& lines)>& change) const {
  makePrivateFolder(path_.parent_path());
  Storage storage;
  changeFile(storage, path_, kSource, FileAccess::owner, [&](const std::string& text) {
    std::vector<std::string> kept = linesIn(text);
    change(kept);
    return textOf(kept);
  });
}

std::vector<DirectPrinter> DirectPrinterFile::read() const {
  std::vector<DirectPrinter> printers;
  for (const std::string& line : lines()) {
    if (auto printer = parseLine(line)) printers.push_back(std::move(*printer));
  }
  return printers;
}

std::optional<DirectPrinter> DirectPrinterFile::find(const std::string& name) const {
  for (DirectPrinter& printer : read()) {
    if (printer.name == name) return std::move(printer);
  }
  return std::nullopt;
}

void DirectPrinterFile::add(const DirectPrinter& printer) const {
  parseTarget(printer.target);
  if (printer.name.empty() || printer.name.starts_with('#') || holdsControl(printer.name)) {
    refuse("\"" + printer.name + "\" cannot be the name of a printer.");
  }
  if (holdsControl(printer.target))
    refuse("A target cannot hold a tab or another control character.");
  change([&](std::vector<std::string>& kept) {
    const auto place = std::find_if(kept.begin(), kept.end(), namesPrinter(printer.name));
    if (place != kept.end()) {
      *place = lineOf(printer);
    } else {
      kept.push_back(lineOf(printer));
    }
  });
}

bool DirectPrinterFile::remove(const std::string& name) const {
  if (!find(name)) return false;
  bool removed = false;
  change([&](std::vector<std::string>& kept) {
    removed = std::erase_if(kept, namesPrinter(name)) > 0;
  });
  return removed;
}

std::vector<PrinterInfo> DirectPrinters::list() {
  std::vector<PrinterInfo> infos;
  try {
    for (const DirectPrinter& printer : file_.read()) {
      infos.push_back({printer.name, printer.target, true});
    }
  } catch (const AutomationError&) {
    if (unreadable_ == Unreadable::error) throw;
  }
  return infos;
}

std::string DirectPrinters::current() {
  if (!current_.empty()) return current_;
  const auto printers = list();
  return printers.empty() ? "" : printers.front().DeviceName;
}

std::optional<PageSettings> DirectPrinters::settings(const std::string& /*printer*/) {
  return std::nullopt;
}

void DirectPrinters::keep(const std::string& printer, const PageSettings& /*settings*/) {
  refuse("The printer \"" + printer + "\" keeps no settings: it is written to directly.");
}

std::string DirectPrinters::sendCommand(const std::string& printer,
                                        const std::filesystem::path& file) {
  const auto found = file_.find(printer);
  if (!found) return "";
  const DirectTarget target = parseTarget(found->target);
  const std::string cat = "cat " + shellQuoted(file.string());
  switch (target.kind) {
    case DirectTarget::Kind::socket:
      return "bash -c " +
             shellQuoted(cat + " > " + shellQuoted("/dev/tcp/" + target.place + "/" + target.port));
    case DirectTarget::Kind::file: {
      // The report may be that file; it is not emptied for what it holds already.
      const std::string place = shellQuoted(target.place);
      return "[ -f " + place + " ] && cmp -s " + shellQuoted(file.string()) + " " + place + " || " +
             cat + " > " + place;
    }
    case DirectTarget::Kind::command:
      return cat + " | sh -c " + shellQuoted(target.place);  // as a job starts it
  }
  return "";
}

}  // namespace paperway::desktop
