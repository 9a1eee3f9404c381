// Each command of Paperway, while one call after another fails it: what it tells, and what it
// leaves.
#include <cerrno>
#include <cstring>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>

#include "faults/faulty_run.h"

namespace paperway {

namespace {

using Words = FaultyFolder::Words;
using Files = FaultyFolder::Files;

struct Command {
  const char* name;
  bool windows;
  Words words;
  std::string input{};
};

void PrintTo(const Command& command, std::ostream* out) {
  *out << command.name;
}

const std::string kSales = "SELECT * FROM sales";

Words ofRows(const std::string& command, const std::string& columns, const std::string& out) {
  return {command, "--db", "ledger.db", "--data", kSales, "--columns", columns, "--out", out};
}

const Command kCommands[] = {
    {"Text", false, ofRows("text", "columns.csv", "out.txt")},
    {"TextNew", false, ofRows("text", "SELECT * FROM columns", "new.txt")},
    {"Html", false, ofRows("html", "columns.csv", "out.html")},
    {"Sheet", false, ofRows("sheet", "columns.csv", "new.xlsx")},
    {"SheetOld", false, ofRows("sheet", "columns.csv", "old.xls")},
    {"Convert", false, {"convert", "report.txt", "out.html"}},
    {"ConvertTable", false, {"convert", "report.txt", "out.csv", "--save-map", "new.map"}},
    {"ConvertSheet", false, {"convert", "report.txt", "new.xlsx"}},
    {"Stickers", false, {"stickers", "--line", "A shop", "--out", "out.txt"}},
    {"Columns", false, {"columns", "columns.csv"}},
    {"ColumnsFrom", false, {"columns", "--from", kSales, "--db", "ledger.db"}},
    {"SettingSet", false, {"setting", "set", "S", "key", "changed", "--file", "own.ini"}},
    {"SettingSetNew", false, {"setting", "set", "S", "key", "changed", "--company", "7"}},
    {"SettingGet", false, {"setting", "get", "S", "key", "--file", "own.ini"}},
    {"PrintersAdd", false, {"printers", "add", "Next", "|cat"}},
    {"PrintersRemove", false, {"printers", "remove", "File"}},
    {"PrintersList", false, {"printers", "list"}},
    {"PrintersTest", false, {"printers", "test", "File"}},
    {"Print", false, {"print", "report.txt", "--printer", "File"}},
    {"PrintPages", false, {"print", "report.txt", "--printer", "File", "--pages", "2"}},
    {"PrintInput", false, {"print", "-", "--printer", "File", "--pages", "2"}, "report.txt"},
    {"PrintPdf", true, {"print", "report.txt", "--pdf", "old.pdf"}},
    {"PreviewPicture", true, {"preview", "report.txt", "--picture", "old.png"}},
};

class CommandFaults : public testing::TestWithParam<Command> {
 protected:
  CommandFaults() : command_(GetParam()) {
    words_ = {command_.windows ? PAPERWAY_DESK : PAPERWAY_COMMAND};
    words_.insert(words_.end(), command_.words.begin(), command_.words.end());
    fillFirst();
    const Outcome whole = run(Fault::none());
    EXPECT_EQ(whole.code, 0) << whole.complained;
    whole_ = folder_.files();
    wholeOutput_ = whole.said;
  }

  void fillFirst() {
    const std::string out = "file://" + (folder_.path() / "out.prn").string();
    folder_.fill({{"out.txt", "earlier"},
                  {"out.html", "earlier"},
                  {"old.pdf", "earlier"},
                  {"old.png", "earlier"},
                  {"out.prn", "earlier"},
                  {"own.ini", "[S]\r\nkey=value\r\n"},
                  {"columns.csv", readFile(PAPERWAY_SOURCE_DIR "/examples/ledger/columns.csv")},
                  {"config/paperway/printers", "# ours\nFile\t" + out + "\n"}});
    ASSERT_EQ(folder_.run({PAPERWAY_MAKE_LEDGER, "ledger.db", "100"}, Fault::none()).code, 0);
    Words report = ofRows("text", "columns.csv", "report.txt");
    report.insert(report.begin(), PAPERWAY_COMMAND);
    ASSERT_EQ(folder_.run(report, Fault::none()).code, 0);
    before_ = folder_.files();
  }

  Outcome run(const Fault& fault) const { return folder_.run(words_, fault, command_.input); }

  /// From the same beginning each time.
  Outcome runAnew(const Fault& fault) const {
    folder_.fill(before_);
    return run(fault);
  }

  void expectToldAndKept(const Outcome& outcome, const Fault& fault) const;
  void expectWholeFiles(const std::string& what) const;
  void expectNothingElse(const std::string& what) const;
  bool namesThing(const Outcome& outcome) const;

  /// Until the fault no longer comes to pass. The many calls of a window's toolkit are taken in
  /// ever longer strides.
  template <typename Each>
  void forEachCall(Fault fault, int stride, const Each& each) const {
    for (fault.at = 1; !HasFailure(); fault.at += stride + (command_.windows ? fault.at / 4 : 0)) {
      const Outcome outcome = runAnew(fault);
      if (!outcome.struck) return;
      each(outcome, fault);
    }
  }

  const Command& command_;
  FaultyFolder folder_;
  Words words_;
  Files before_;
  Files whole_;
  std::string wholeOutput_;
};

std::string textOf(const Fault& fault, const Outcome& outcome) {
  return fault.call + " number " + std::to_string(fault.at) + " (" + outcome.path + "), " +
         std::strerror(fault.error) + ": exit " + std::to_string(outcome.code) + ", \"" +
         outcome.complained + "\"";
}

/// Each file is what it was, or what it should become.
void CommandFaults::expectWholeFiles(const std::string& what) const {
  const Files files = folder_.files();
  const auto holds = [](const Files& among, const auto& file) {
    const auto found = among.find(file.first);
    return found != among.end() && found->second == file.second;
  };
  for (const auto& file : files) {
    if (before_.contains(file.first) || whole_.contains(file.first)) {
      EXPECT_TRUE(holds(before_, file) || holds(whole_, file) ||
                  (!before_.contains(file.first) && file.second.empty()))
          << file.first << " after " << what;
    }
  }
  for (const auto& file : before_) {
    EXPECT_TRUE(files.contains(file.first) || !whole_.contains(file.first))
        << file.first << " is gone after " << what;
  }
}

void CommandFaults::expectNothingElse(const std::string& what) const {
  for (const auto& file : folder_.files()) {
    EXPECT_TRUE(before_.contains(file.first) || whole_.contains(file.first))
        << file.first << " is left after " << what;
  }
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder_.path())) {
    EXPECT_FALSE(entry.path().filename().native().starts_with("work-"))
        << entry.path() << " is left after " << what;
  }
}

bool CommandFaults::namesThing(const Outcome& outcome) const {
  const auto says = [&](const std::string& name) {
    return name.size() > 2 && outcome.complained.find(name) != std::string::npos;
  };
  const std::filesystem::path struck = outcome.path;
  return says(struck.filename()) || says(struck.parent_path().filename()) ||
         says("standard input") || std::any_of(words_.begin() + 1, words_.end(), says);
}

bool namesReason(const Outcome& outcome, int error) {
  const auto says = [&](const char* reason) {
    return outcome.complained.find(reason) != std::string::npos;
  };
  if (says(std::strerror(error))) return true;
  if (error == ENOMEM) return says("memory");
  return says("database disk image is malformed") || says("disk I/O error");  // SQLite's reasons
}

void CommandFaults::expectToldAndKept(const Outcome& outcome, const Fault& fault) const {
  const std::string what = textOf(fault, outcome);
  expectWholeFiles(what);
  if (outcome.code < 128) expectNothingElse(what);
  if (outcome.code == 0) {
    EXPECT_EQ(outcome.said, wholeOutput_) << what;
    EXPECT_TRUE(folder_.files() == whole_) << "exit code 0 for less than all: " << what;
    return;
  }
  if (command_.windows && fault.call == "malloc") return;  // the windows' toolkit lives on it
  if (outcome.path.find("/screen-") != std::string::npos) return;  // likewise
  EXPECT_EQ(outcome.code, 1) << what;
  EXPECT_TRUE(namesReason(outcome, fault.error)) << "no reason: " << what;
  EXPECT_TRUE(namesThing(outcome)) << "no thing: " << what;
}

TEST_P(CommandFaults, CallThatFailsIsToldAndLeavesTheEarlierFile) {
  for (const Fault& fault : {Fault{"open", EIO},
                             Fault{"open", EACCES},
                             Fault{"open", ENFILE},
                             Fault{"read", EIO},
                             Fault{"write", ENOSPC},
                             Fault{"write", EDQUOT},
                             Fault{"full", ENOSPC, true},
                             Fault{"sync", EIO},
                             Fault{"close", EDQUOT},
                             Fault{"rename", EIO},
                             Fault{"chmod", EIO},
                             Fault{"stat", EIO},
                             Fault{"stat", EACCES},
                             Fault{"lock", ENOLCK},
                             Fault{"mkdir", ENOSPC},
                             {"list", EIO}}) {
    forEachCall(fault, 1, [this](const Outcome& outcome, const Fault& each) {
      expectToldAndKept(outcome, each);
    });
  }
}

TEST_P(CommandFaults, LackOfMemoryIsToldAndLeavesTheEarlierFile) {
  for (const bool stays : {false, true}) {
    const Fault fault{"malloc", ENOMEM, stays};
    forEachCall(
        fault, command_.windows ? 499 : 29, [this](const Outcome& outcome, const Fault& each) {
          expectToldAndKept(outcome, each);
        });
  }
}

TEST_P(CommandFaults, RunThatIsKilledLeavesTheEarlierFileAndTheNextRunClearsUp) {
  forEachCall({"any"}, 1, [this](const Outcome& outcome, const Fault& fault) {
    const std::string what = textOf(fault, outcome);
    EXPECT_EQ(outcome.code, 128 + SIGKILL) << what;
    expectWholeFiles(what);
    const Outcome next = run(Fault::none());
    if (command_.name == std::string("PrintersRemove") && next.code == 1) return;  // it was removed
    EXPECT_EQ(next.code, 0) << what << ", then " << next.complained;
    EXPECT_TRUE(folder_.files() == whole_) << "the next run after " << what;
    expectNothingElse("the run after " + what);
  });
}

INSTANTIATE_TEST_SUITE_P(Each, CommandFaults, testing::ValuesIn(kCommands),
                         [](const auto& of) { return std::string(of.param.name); });

}  // namespace
}  // namespace paperway
