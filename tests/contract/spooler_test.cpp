#include "backends/desktop/system/direct_spooler.h"
#include "contract/spooler_contract.h"
#include "support/job_listener.h"
#include "support/test_folder.h"
#include "util/input_file.h"

namespace paperway {
namespace {

class DirectDesk {
 public:
  explicit DirectDesk(const std::string& target) { file_.add({"P", target}); }
  Spooler& spooler() { return spooler_; }

 private:
  TestFolder config_;
  desktop::DirectPrinterFile file_{config_.path / "printers"};
  desktop::DirectSpooler spooler_{file_};
};

class SocketDesk : public DirectDesk {
 public:
  explicit SocketDesk(std::shared_ptr<JobListener> listener = std::make_shared<JobListener>())
      : DirectDesk("socket://" + listener->address()), listener_(std::move(listener)) {}
  auto take() { return listener_->take(); }

 private:
  std::shared_ptr<JobListener> listener_;
};

class FolderDesk : public DirectDesk {
 public:
  explicit FolderDesk(const std::string& before, const std::string& after = "",
                      std::shared_ptr<TestFolder> folder = std::make_shared<TestFolder>())
      : DirectDesk(before + folder->path.string() + after), folder_(std::move(folder)) {}
  std::string take() { return readFile(folder_->path / "out", "test"); }

 private:
  std::shared_ptr<TestFolder> folder_;
};

struct FileDesk : FolderDesk {
  FileDesk() : FolderDesk("file://", "/out") {}
};

struct CommandDesk : FolderDesk {
  CommandDesk() : FolderDesk("|cd ", " && cat > part && mv part out") {}
};

using Desks = testing::Types<SocketDesk, FileDesk, CommandDesk>;
INSTANTIATE_TYPED_TEST_SUITE_P(Direct, SpoolerContract, Desks);

}  // namespace
}  // namespace paperway
