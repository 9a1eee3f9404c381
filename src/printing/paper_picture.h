#pragma once

#include <cstdint>
#include <functional>
#include <optional>

#include "paperway/platform/printers.h"
#include "platform/input_file.h"
#include "printing/paper_sheets.h"
#include "printing/print_stream.h"

namespace paperway {

/// The paper that a dot-matrix printer is set to, when that is continuous; otherwise narrow fanfold
/// of this height.
PaperShape paperShape(const std::optional<PageSettings>& settings, double height);

/// Sheets of this size, on which a printer prints as wide as it can.
PaperShape fanfold(double width, double height);

/// A job, and the printer and paper that it goes to.
struct PaperJob {
  TextSource text;
  PrintStreamSettings stream;
  PaperPrinter printer;
  PaperShape shape;
};

/// Takes the sheets in their order; false for no more.
using SheetSink = std::function<bool(Sheet)>;

/// Reads the stream that would be sent, and lays it out on sheets. Nothing is found of a job that
/// the sink leaves before its end. Memory does not grow with the job.
std::optional<PaperFindings> layOutPaper(const PaperJob& job, const SheetSink& sink);

}  // namespace paperway
