#pragma once

#include <chrono>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "paperway/platform/printers.h"

namespace paperway::desktop {

/// A printer that is written to without any print service.
struct DirectPrinter {
  std::string name;
  /// "socket://host:9100", "file:///dev/usb/lp0" or "|command": the network socket of a printer, a
  /// device or file, a program that reads the job from its standard input.
  std::string target;
  std::chrono::seconds timeout{0};  // how long it may stand still; 0: as the spooler says
};

/// Parts of a target.
struct DirectTarget {
  enum class Kind { socket, file, command };

  Kind kind = Kind::file;
  std::string place;  // host, path or command
  std::string port;   // of a socket
};

/// An AutomationError that says what is wrong with the target.
DirectTarget parseTarget(const std::string& target);

/// The user's direct printers: a text file (UTF-8) with a line "name<TAB>target", or
/// "name<TAB>target<TAB>seconds", for each; empty lines and lines that start with "#" are left
/// alone. The file is read anew at each call. Failures are AutomationErrors.
class DirectPrinterFile {
 public:
  explicit DirectPrinterFile(std::filesystem::path path) : path_(std::move(path)) {}
  /// "printers" in $XDG_CONFIG_HOME/paperway (~/.config/paperway).
  static DirectPrinterFile ofUser();

  /// A line that cannot be read is left out.
  std::vector<DirectPrinter> read() const;
  std::optional<DirectPrinter> find(const std::string& name) const;
  /// Takes the place of an earlier printer of that name.
  void add(const DirectPrinter& printer) const;
  /// False when there is none of that name.
  bool remove(const std::string& name) const;

  const std::filesystem::path& path() const { return path_; }

 private:
  std::vector<std::string> lines() const;
  /// One program at a time.
  void change(const std::function<void(std::vector<std::string>& lines)>& change) const;
  std::filesystem::path path_;
};

/// Direct printers keep no settings; each of them is raw.
class DirectPrinters : public paperway::Printers {
 public:
  /// What a file that cannot be read is taken for.
  enum class Unreadable {
    empty,  // told when a job looks for its printer; a report can be read without any
    error,
  };

  explicit DirectPrinters(DirectPrinterFile file, Unreadable unreadable = Unreadable::empty)
      : file_(std::move(file)), unreadable_(unreadable) {}

  std::vector<PrinterInfo> list() override;
  std::string current() override;
  void setCurrent(const std::string& printer) override { current_ = printer; }
  std::optional<PageSettings> settings(const std::string& printer) override;
  void keep(const std::string& printer, const PageSettings& settings) override;
  std::string sendCommand(const std::string& printer, const std::filesystem::path& file) override;

 private:
  DirectPrinterFile file_;
  Unreadable unreadable_;
  std::string current_;
};

}  // namespace paperway::desktop
