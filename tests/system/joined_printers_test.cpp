#include "backends/desktop/system/joined_printers.h"

#include <gtest/gtest.h>

#include "paperway/headless.h"

namespace paperway::desktop {
namespace {

TEST(JoinedPrinters, AreQueuesAndDirectPrintersInOneList) {
  headless::Printers queues;
  headless::Printers direct;
  queues.infos = {{"Laser", "queue", false}, {"Twin", "queue", false}};
  direct.infos = {{"Matrix", "direct", true}, {"Twin", "direct", true}};
  direct.kept.clear();
  headless::Spooler queueSpooler(queues);
  headless::Spooler directSpooler(direct);
  JoinedPrinters printers(queues, direct);
  JoinedSpooler spooler(queueSpooler, directSpooler);

  std::string names;
  for (const PrinterInfo& printer : printers.list()) {
    names += printer.DeviceName + " " + printer.description + ", ";
    spooler.open(printer.DeviceName)->start("report", DocumentFormat::raw);
  }
  EXPECT_EQ(names, "Laser queue, Matrix direct, Twin direct, ");
  EXPECT_EQ(queueSpooler.jobs.size(), 1U);
  EXPECT_EQ(directSpooler.jobs.size(), 2U);
  EXPECT_EQ(printers.current(), "Laser");
  printers.keep("Laser", {2, 5});
  EXPECT_EQ(queues.kept["Laser"], (PageSettings{2, 5}));
  EXPECT_FALSE(printers.settings("Matrix"));
  queues.infos.clear();
  EXPECT_EQ(printers.current(), "Matrix");
}

}  // namespace
}  // namespace paperway::desktop
