#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>

#include "paperway/platform.h"
#include "preview/frm_report.h"
#include "printing/drawn_report.h"
#include "printing/paper_picture.h"
#include "printing/print_file.h"
#include "printing/print_stream.h"

namespace paperway {

/// What the print panel asks to be drawn; its pages may be such as the report lacks.
DrawnReport drawnByPanel(const FrmReport& form, const PageRange& pages);

/// Inches of paper, as far as a job can hold them.
std::int16_t paperHeightOf(const FrmReport& form);

/// The job that the print panel Frame1 of a report window describes. The user is asked first; what
/// goes wrong is told in a message.
class PanelJob {
 public:
  PanelJob(FrmReport& form, const Platform& platform) : form_(form), platform_(platform) {}

  /// In the modes "Dos" and "Local Dos", for a range that has been checked.
  void printRaw();
  /// In the mode "Windows".
  void printDrawn();
  /// The chosen pages to the current printer, without a question.
  void draw();
  void PrintReport();
  /// Shows the paper of the raw job instead.
  void showPaper();

 private:
  bool isConfirmed();
  void withPanelAway(const std::function<void()>& job);
  void saveChosenPages();
  PrintFileArguments rawArguments() const;
  TextSource rawText() const;
  PaperJob paperJob() const;
  std::filesystem::path keepPart(const char* name, const RichTextBox& box);
  void chooseCurrentPrinter();
  void requirePages(const PageRange& pages) const;

  FrmReport& form_;
  const Platform& platform_;
};

}  // namespace paperway
