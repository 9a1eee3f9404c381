#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <system_error>
#include <vector>

#include "paperway/automation_error.h"
#include "paperway/export.h"
#include "paperway/platform.h"
#include "paperway/platform/browser.h"
#include "paperway/platform/clipboard.h"
#include "paperway/platform/clock.h"
#include "paperway/platform/dialogs.h"
#include "paperway/platform/file_system.h"
#include "paperway/platform/folders.h"
#include "paperway/platform/message_boxes.h"
#include "paperway/platform/page_setup.h"
#include "paperway/platform/print_device.h"
#include "paperway/platform/printers.h"
#include "paperway/platform/shell.h"
#include "paperway/platform/spooler.h"
#include "paperway/platform/storage.h"
#include "paperway/platform/system_names.h"
#include "paperway/platform/user_store.h"
#include "paperway/platform/windows.h"
#include "paperway/platform/workbook.h"

namespace paperway::headless {

/// Shows the same moment until it is set to another.
class PAPERWAY_API Clock : public paperway::Clock {
 public:
  Date now() override { return time; }

  Date time{2006, 3, 5, 14, 7, 9};
};

class PAPERWAY_API SystemNames : public paperway::SystemNames {
 public:
  std::string computerName() override { return computer; }
  std::string userName() override { return user; }
  std::filesystem::path printerPort() override { return port; }
  std::string programName() override { return program; }

  std::string computer = "HEADLESS";
  std::string user = "nobody";
  std::filesystem::path port = "printer_port";
  std::string program = "paperway";
};

/// Hands each step on to another storage, counts it, and fails one on demand.
class PAPERWAY_API Storage : public paperway::Storage {
 public:
  /// Files by the standard library alone: replaced in one step, but neither synced nor locked, and
  /// without the owner of what they replace. A host that keeps what it makes hands over a real one.
  Storage();
  /// A real one (paperway/storage.h), which outlives the object.
  explicit Storage(paperway::Storage& real) : real_(real) {}

  std::size_t steps = 0;   // that have begun
  std::size_t failAt = 0;  // number of the step that fails, from 1; 0: none
  std::string failed;      // its name, "write"
  std::error_code failure = std::make_error_code(std::errc::no_space_on_device);

  /// A step of that name begins.
  void note(const char* step);

  FileStatus status(const Path& path) override;
  bool isSame(const Path& one, const Path& other) override;
  Path behindLinks(const Path& path) override;
  std::unique_ptr<StoredFile> openToRead(const Path& path) override;
  std::unique_ptr<StoredFile> openToAppend(const Path& path) override;
  std::unique_ptr<StoredFile> openToChange(const Path& path, FileAccess access) override;
  std::unique_ptr<StoredFile> create(const Path& path, FileAccess access) override;
  void rename(const Path& from, const Path& to) override;
  void remove(const Path& path) override;
  void removeAbandoned(const Path& path) override;
  void syncFolder(const Path& folder) override;
  std::vector<Path> names(const Path& folder) override;
  void makeWritable(const Path& path) override;

 private:
  std::unique_ptr<paperway::Storage> own_;
  paperway::Storage& real_;
};

/// Works on real files, so that what it makes can be opened; names and dates come from a script.
class PAPERWAY_API FileSystem : public paperway::FileSystem {
 public:
  explicit FileSystem(std::filesystem::path temporary) : temporary_(std::move(temporary)) {}

  std::string GetSpecialFolder(SpecialFolder folder) override;
  std::string GetTempName() override;
  File GetFile(const std::string& path) override;
  bool FolderExists(const std::string& path) override;
  void createFolder(const std::string& path) override;
  void append(const std::string& path, std::string_view bytes) override;

  std::vector<std::string> calls;          // "append /folder/file"
  std::map<std::string, Date> modified;    // by path; other files were last changed in 2006
  std::optional<AutomationError> failure;  // raised by every call but FolderExists

 private:
  void note(const std::string& call);

  std::filesystem::path temporary_;
  int tempNames_ = 0;
};

/// Keeps its texts in memory.
class PAPERWAY_API UserStore : public paperway::UserStore {
 public:
  std::string get(std::string_view application, std::string_view section, std::string_view key,
                  std::string_view fallback) override;
  void saveAll(std::string_view application, std::string_view section,
               std::span<const Text> texts) override;

  std::map<std::vector<std::string>, std::string> values;  // by lower-case address
  std::optional<AutomationError> failure;                  // raised by every call
};

/// Keeps the set-up in memory.
class PAPERWAY_API PageSetupStore : public paperway::PageSetupStore {
 public:
  PageSetup read() override;
  void write(const PageSetup& setup) override;

  PageSetup kept;
  std::optional<AutomationError> failure;       // raised by every call
  std::optional<AutomationError> writeFailure;  // raised by write()
};

/// Printers by a list. The first is the default one.
class PAPERWAY_API Printers : public paperway::Printers {
 public:
  std::vector<PrinterInfo> list() override { return infos; }
  std::string current() override;
  void setCurrent(const std::string& printer) override;
  std::optional<PageSettings> settings(const std::string& printer) override;
  void keep(const std::string& printer, const PageSettings& settings) override;
  std::string sendCommand(const std::string& printer, const std::filesystem::path& file) override;

  const PrinterInfo* find(const std::string& printer) const;

  std::vector<PrinterInfo> infos{{"Dot Matrix", "headless", true}, {"Laser", "headless", false}};
  std::string currentPrinter;
  std::map<std::string, PageSettings> kept{{"Laser", {}}};  // printers that keep settings
  std::vector<std::string> calls;                           // "keep Laser 2 9"
  std::optional<AutomationError> failure;                   // raised by keep()
};

/// Keeps the documents that it gets for the printers of a list.
class PAPERWAY_API Spooler : public paperway::Spooler {
 public:
  struct Job {
    enum class State { open, ended, cancelled };

    std::string printer;
    std::string documentName;
    DocumentFormat format = DocumentFormat::raw;
    std::string bytes;
    State state = State::open;
  };

  explicit Spooler(const Printers& printers) : printers_(printers) {}

  std::unique_ptr<PrintJob> open(const std::string& printer) override;

  std::vector<std::shared_ptr<Job>> jobs;    // of started documents, newest last
  std::optional<std::uint64_t> breaksAfter;  // bytes that a job takes before the printer goes away
  bool answers = true;                       // false: no print service

 private:
  const Printers& printers_;
};

/// Keeps the pages drawn. Printers of the list that are raw refuse them.
class PAPERWAY_API PrintDevice : public paperway::PrintDevice {
 public:
  struct Drawn {
    StyledDocument document;
    std::vector<PrintedPage> pages;
    bool ended = false;
  };

  explicit PrintDevice(const Printers& printers) : printers_(printers) {}

  struct Pictured {
    SheetDocument document;
    std::vector<Sheet> sheets;
    bool ended = false;
  };

  std::unique_ptr<StyledJob> start(const StyledDocument& document) override;
  std::unique_ptr<SheetJob> startSheets(const SheetDocument& document) override;

  std::vector<std::shared_ptr<Drawn>> documents;    // newest last
  std::vector<std::shared_ptr<Pictured>> pictures;  // the same

 private:
  const Printers& printers_;
};

/// Keeps what was said; answers from a script, and with the last button once that is used up.
class PAPERWAY_API MessageBoxes : public paperway::MessageBoxes {
 public:
  struct Shown {
    std::string text;
    std::string title;
    Buttons buttons;
    Icon icon;
  };

  Answer show(std::string_view text, std::string_view title, Buttons buttons, Icon icon) override;

  std::vector<Shown> shown;
  std::vector<Answer> answers;  // taken from the front
};

/// Keeps the forms that were shown, newest last, and brings each to the front as a desktop would.
class PAPERWAY_API Windows : public paperway::Windows {
 public:
  void show(std::shared_ptr<Form> form) override;
  ScreenSize screen() override { return screenSize; }
  void doEvents() override;
  void repaint() override;

  std::vector<std::shared_ptr<Form>> forms;
  ScreenSize screenSize{15360, 11520};
  std::function<void()> waitingEvents;  // what doEvents lets run
  std::function<void()> repainted;      // a look at the screen at that moment
};

class PAPERWAY_API Clipboard : public paperway::Clipboard {
 public:
  std::string text() override { return content; }
  void setText(std::string_view text) override { content = text; }

  std::string content;
};

/// Keeps the questions; answers from a script, and is cancelled once that is used up.
class PAPERWAY_API Dialogs : public paperway::Dialogs {
 public:
  FileAnswer askForFiles(const FileQuestion& question) override;
  std::optional<std::uint32_t> color(std::uint32_t start) override;

  std::vector<FileQuestion> questions;
  std::vector<FileAnswer> answers;                          // taken from the front
  std::vector<std::optional<std::filesystem::path>> files;  // likewise, after the answers
  std::vector<std::optional<std::uint32_t>> colors;         // taken from the front
};

/// Keeps the commands that would have been started.
class PAPERWAY_API Shell : public paperway::Shell {
 public:
  void start(const std::vector<std::string>& command) override;
  std::optional<std::vector<std::string>> calculator() override { return calculatorCommand; }
  std::filesystem::path scriptName(std::string_view stem) override;
  std::string scriptText(std::string_view purpose, std::string_view line) override;
  std::string copyLine(const std::filesystem::path& file,
                       const std::filesystem::path& device) override;
  void startScript(const std::filesystem::path& script) override { start({script.string()}); }

  std::vector<std::vector<std::string>> started;
  std::optional<std::vector<std::string>> calculatorCommand{{"calculator"}};
  bool fails = false;
};

/// Shows nothing, and keeps what it was asked for. A document is complete at once unless the script
/// holds it.
class PAPERWAY_API Browser : public paperway::Browser {
 public:
  std::unique_ptr<BrowserPage> open(BrowserEvents& events) override;

  /// Says that the document of the page that was opened last can be read.
  void complete();

  std::vector<std::string> calls;  // "Navigate /folder/file", "print", "setZoom 3"
  bool holds = false;              // documents wait for complete()
  int zoom = 2;                    // of pages, and what was last set
  bool landscape = false;          // likewise
  bool contextMenu = true;         // likewise
  std::string failing;             // the name of the operation that fails; empty: none

 private:
  class Page;

  void note(const std::string& operation, const std::string& argument = "");

  BrowserEvents* events_ = nullptr;
};

/// Keeps the workbooks that were saved, newest last. Makes no files.
class PAPERWAY_API Workbooks : public paperway::Workbooks {
 public:
  struct Cell {
    Value value;            // of a sum, too
    std::string formula{};  // in the notation of rows and columns relative to the cell
    CellFormat format{};
  };

  struct Book {
    std::filesystem::path file;
    SheetPlan plan;
    std::vector<std::vector<Cell>> rows;
  };

  std::filesystem::path fileNamed(const std::filesystem::path& name) override { return name; }
  std::unique_ptr<Workbook> create(const WorkbookTarget& target, const SheetPlan& plan) override;

  std::vector<Book> books;
  std::optional<AutomationError> failure;  // raised when a workbook is saved

 private:
  class Writer;
};

/// Folders below one root.
class PAPERWAY_API Folders : public paperway::Folders {
 public:
  explicit Folders(std::filesystem::path root) : root_(std::move(root)) {}
  std::filesystem::path work() override;
  std::filesystem::path program() override;
  std::filesystem::path temporary() override;

 private:
  std::filesystem::path folder(const char* name) const;
  std::filesystem::path root_;
};

/// A machine without a screen: for tests and servers.
struct PAPERWAY_API Headless {
  explicit Headless(const std::filesystem::path& root) : folders(root), files(root / "temporary") {}
  /// With files that last: a real storage (paperway/storage.h), which outlives the object.
  Headless(const std::filesystem::path& root, paperway::Storage& real)
      : folders(root), storage(real), files(root / "temporary") {}

  MessageBoxes messageBox;
  Browser browser;  // outlives the forms that the windows keep
  Windows windows;
  Folders folders;
  Clipboard clipboard;
  Dialogs dialogs;
  Shell shell;
  Storage storage;
  FileSystem files;
  Clock clock;
  SystemNames names;
  UserStore userStore;
  PageSetupStore pageSetup;
  Printers printers;
  Spooler spooler{printers};
  PrintDevice printDevice{printers};
  Workbooks workbooks;

  Platform platform() {
    return {messageBox, windows,     folders,   clipboard, dialogs,   shell,
            storage,    files,       clock,     names,     userStore, spooler,
            printers,   printDevice, pageSetup, &browser,  &workbooks};
  }
};

}  // namespace paperway::headless
