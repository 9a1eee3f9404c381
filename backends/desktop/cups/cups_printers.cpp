#include "backends/desktop/cups/cups_printers.h"

#include <algorithm>
#include <cups/pwg.h>

#include "backends/desktop/shell_quote.h"
#include "paperway/automation_error.h"
#include "util/paper.h"

namespace paperway::desktop {
namespace {

const char* orientationOption(std::int16_t orientation) {
  return orientation == 2 ? "4" : "3";
}

std::int16_t orientationOf(const cups_dest_t& queue) {
  const std::string option = optionOf(queue, "orientation-requested");
  return option == "4" || option == "5" || option == "landscape" ? 2 : 1;
}

/// What the server takes when nothing is asked for.
std::string defaultMedia(http_t* connection, cups_dest_t& queue) {
  cups_dinfo_t* const information = cupsCopyDestInfo(connection, &queue);
  if (information == nullptr) return "";
  ipp_attribute_t* const media = cupsFindDestDefault(connection, &queue, information, CUPS_MEDIA);
  const char* const name = media == nullptr ? nullptr : ippGetString(media, 0, nullptr);
  const std::string copy = name == nullptr ? "" : name;
  cupsFreeDestInfo(information);
  return copy;
}

/// The name is that of the standards or that of the printer's driver ("A4"), with trays and the
/// like behind a comma.
std::optional<std::int16_t> paperNamed(std::string name) {
  name.resize(std::min(name.find(','), name.size()));
  const pwg_media_t* media = pwgMediaForPWG(name.c_str());
  if (media == nullptr) media = pwgMediaForPPD(name.c_str());
  if (media == nullptr) media = pwgMediaForLegacy(name.c_str());
  const Paper* const paper = media == nullptr ? nullptr : paperByMediaName(media->pwg);
  return paper == nullptr ? std::nullopt : std::optional(paper->number);
}

std::int16_t paperOf(http_t* connection, cups_dest_t& queue) {
  std::string name = mediaOf(queue);
  if (name.empty()) name = defaultMedia(connection, queue);
  return paperNamed(name).value_or(PageSettings{}.PaperSize);
}

void setOption(cups_dest_t& queue, const char* name, const char* value) {
  queue.num_options = cupsAddOption(name, value, queue.num_options, &queue.options);
}

std::string describe(const cups_dest_t& queue) {
  const std::string info = optionOf(queue, "printer-info");
  const std::string model = optionOf(queue, "printer-make-and-model");
  if (info.empty() || info == queue.name) return model;
  return model.empty() ? info : info + ", " + model;
}

}  // namespace

std::vector<PrinterInfo> CupsPrinters::list() {
  const CupsConnection connection = connectToCups(patience_);
  std::vector<PrinterInfo> infos;
  for (const cups_dest_t& queue : CupsQueues(connection.get())) {
    infos.push_back({nameOf(queue), describe(queue), isRaw(queue), queue.is_default != 0});
  }
  return infos;
}

std::string CupsPrinters::current() {
  if (!current_.empty()) return current_;
  const CupsConnection connection = connectToCups(patience_);
  const CupsQueues queues(connection.get());
  for (const cups_dest_t& queue : queues) {
    if (queue.is_default != 0) return nameOf(queue);
  }
  return queues.count() == 0 ? "" : nameOf(*queues.begin());
}

std::optional<PageSettings> CupsPrinters::settings(const std::string& printer) {
  const CupsConnection connection = connectToCups(patience_);
  const CupsQueues queues(connection.get());
  cups_dest_t* const queue = queues.find(printer);
  if (queue == nullptr) return std::nullopt;
  return PageSettings{orientationOf(*queue), paperOf(connection.get(), *queue)};
}

void CupsPrinters::keep(const std::string& printer, const PageSettings& settings) {
  const CupsConnection connection = connectToCups(patience_);
  const CupsQueues queues(connection.get());
  cups_dest_t* const queue = queues.find(printer);
  if (queue == nullptr) {
    throw AutomationError(AutomationError::kPathNotFound, "Printers",
                          "There is no printer \"" + printer + "\".");
  }
  setOption(*queue, "orientation-requested", orientationOption(settings.Orientation));
  if (const Paper* const paper = paperByNumber(settings.PaperSize)) {
    setOption(*queue, "media", paper->mediaName);
    queue->num_options = cupsRemoveOption("PageSize", queue->num_options, &queue->options);
  }
  setOption(*queue, "sides", "one-sided");
  if (cupsSetDests2(connection.get(), queues.count(), queues.begin()) != 0) {
    throw AutomationError(
        AutomationError::kPermissionDenied, "Printers",
        "The settings of \"" + printer + "\" cannot be kept: " + cupsReason() + ".");
  }
}

std::string CupsPrinters::sendCommand(const std::string& printer,
                                      const std::filesystem::path& file) {
  const CupsConnection connection = connectToCups(patience_);
  if (CupsQueues(connection.get()).find(printer) == nullptr) return "";
  return "lp -d " + shellQuoted(printer) + " -o raw -- " + shellQuoted(file.string());
}

}  // namespace paperway::desktop
