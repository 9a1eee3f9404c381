#include "backends/desktop/system/direct_spooler.h"
#include "contract/spooler_contract.h"
#include "paperway/headless.h"
#include "support/files.h"
#include "support/job_listener.h"
#include "support/test_folder.h"

namespace paperway {
namespace {

class HeadlessDesk {
 public:
  HeadlessDesk() { printers_.infos = {{"P", "", true}}; }
  Spooler& spooler() { return spooler_; }
  std::string take() {
    while (spooler_.jobs.at(next_)->state != headless::Spooler::Job::State::ended) ++next_;
    return spooler_.jobs.at(next_++)->bytes;
  }

 private:
  headless::Printers printers_;
  headless::Spooler spooler_{printers_};
  std::size_t next_ = 0;
};

class DirectDesk {
 public:
  Spooler& spooler() { return spooler_; }

 protected:
  void printTo(const std::string& target) { file_.add({"P", target}); }

  TestFolder folder_;

 private:
  desktop::DirectPrinterFile file_{folder_.path / "printers"};
  desktop::DirectSpooler spooler_{file_};
};

class SocketDesk : public DirectDesk {
 public:
  SocketDesk() { printTo("socket://" + listener_.address()); }
  auto take() { return listener_.take(); }

 private:
  JobListener listener_;
};

struct FileDesk : DirectDesk {
  FileDesk() { printTo("file://" + (folder_.path / "out").string()); }
  std::string take() { return readFile(folder_.path / "out", "test"); }
};

struct CommandDesk : FileDesk {
  CommandDesk() { printTo("|cd " + folder_.path.string() + " && cat > part && mv part out"); }
};

using Desks = testing::Types<HeadlessDesk, SocketDesk, FileDesk, CommandDesk>;
INSTANTIATE_TYPED_TEST_SUITE_P(Direct, SpoolerContract, Desks);

}  // namespace
}  // namespace paperway
