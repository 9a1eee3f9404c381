#pragma once

#include "apps/paperway/queues.h"
#include "apps/paperway/stop_signals.h"
#include "backends/desktop/system/user_printers.h"

namespace paperway::command {

/// The queues of the machine and the direct printers of the user.
class UserPrinters {
 public:
  /// A wait for a printer ends when `stop` is set.
  explicit UserPrinters(const volatile std::sig_atomic_t* stop = nullptr)
      : queues_(openQueues(stop)),
        user_(*queues_.printers, *queues_.spooler, desktop::DirectPrinters::Unreadable::error,
              stop) {}

 private:
  Queues queues_;
  desktop::UserPrinters user_;

 public:
  Printers& printers = user_.printers;
  Spooler& spooler = user_.spooler;
};

/// The same while Ctrl-C, heard between two pieces of a job and in each wait, cancels the job.
class StoppablePrinters {
 private:
  /// Cuts its documents into pieces, before each of which it looks for a signal.
  class PieceSpooler : public Spooler {
   public:
    explicit PieceSpooler(Spooler& spooler) : spooler_(spooler) {}
    std::unique_ptr<PrintJob> open(const std::string& printer) override;

   private:
    Spooler& spooler_;
  };

  const StopSignals stopSignals_;
  UserPrinters user_{&StopSignals::flag()};

 public:
  Printers& printers = user_.printers;
  PieceSpooler spooler{user_.spooler};
};

}  // namespace paperway::command
