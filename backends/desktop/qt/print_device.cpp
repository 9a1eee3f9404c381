#include "backends/desktop/qt/print_device.h"

#include <QColor>
#include <QFont>
#include <QFontMetricsF>
#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>
#include <algorithm>
#include <optional>

#include "backends/desktop/qt/document_sink.h"
#include "backends/desktop/qt/paper_font.h"
#include "backends/desktop/qt/sheet_files.h"
#include "util/paper.h"

namespace paperway::qt {
namespace {

constexpr int kDotsPerInch = 7200;  // fonts have whole sizes in dots
constexpr double kLinesPerInch = 6;
constexpr double kMargin = 0.25;     // inches, where the paper has them to spare
constexpr double kPaperUnit = 2540;  // to the inch

class SpoolerSink : public DocumentSink {
 public:
  explicit SpoolerSink(std::unique_ptr<PrintJob> job) : job_(std::move(job)) {}
  void take(std::string_view bytes) override { job_->write(bytes); }
  void finish() override { job_->end(); }

 private:
  std::unique_ptr<PrintJob> job_;
};

QPageLayout layoutOf(const PageSettings& settings) {
  const Paper* paper = paperByNumber(settings.PaperSize);
  if (paper == nullptr) paper = paperByNumber(PageSettings{}.PaperSize);
  const QPageSize size(QSizeF(paper->width, paper->height) / kPaperUnit, QPageSize::Inch,
                       QString::fromUtf8(paper->name), QPageSize::ExactMatch);
  const auto orientation =
      settings.Orientation == 2 ? QPageLayout::Landscape : QPageLayout::Portrait;
  return {size, orientation, QMarginsF()};
}

double margin(double paper, double content) {
  return std::clamp((paper - content) / 2, 0.0, kMargin);
}

class PdfJob : public StyledJob {
 public:
  PdfJob(const StyledDocument& document, std::unique_ptr<DocumentSink> sink)
      : document_(document), sink_(std::move(sink)) {
    sink_->open(QIODevice::WriteOnly | QIODevice::Unbuffered);
  }

  // A writer writes its end when it goes.
  ~PdfJob() override { sink_->drop(); }

  void page(const PrintedPage& lines) override;
  void end() override;

 private:
  void begin();
  void draw(const PrintedText& piece, double baseline);
  const QFont& font(const PrintedText& piece);

  const StyledDocument document_;
  std::unique_ptr<DocumentSink> sink_;
  std::unique_ptr<QPdfWriter> writer_;
  std::unique_ptr<QPainter> painter_;
  QFont font_;
  double pointsPerInch_ = 0;  // size of a font with one character to the inch
  double left_ = 0;           // of the text, in inches
  double top_ = 0;
  double height_ = 0;  // of the paper
};

void PdfJob::begin() {
  writer_ = std::make_unique<QPdfWriter>(sink_.get());
  writer_->setTitle(QString::fromStdString(document_.name));
  writer_->setCreator(QStringLiteral("Paperway"));
  writer_->setResolution(kDotsPerInch);
  const QPageLayout layout = layoutOf(document_.settings);
  writer_->setPageLayout(layout);
  const QSizeF paper = layout.fullRect(QPageLayout::Inch).size();
  left_ = margin(paper.width(), document_.width);
  top_ = margin(paper.height(), document_.height);
  height_ = paper.height();
  font_ = paperFont();
  constexpr double kReference = 100;  // points
  font_.setPointSizeF(kReference);
  const double advance = QFontMetricsF(font_, writer_.get()).horizontalAdvance(QLatin1Char('0'));
  pointsPerInch_ = kReference * kDotsPerInch / advance;
  painter_ = std::make_unique<QPainter>(writer_.get());
}

void PdfJob::page(const PrintedPage& lines) {
  if (painter_) {
    writer_->newPage();
  } else {
    begin();
  }
  const double ascent = 0.8 / kLinesPerInch;
  double top = top_;
  for (const PrintedLine& line : lines) {
    if (top > height_) break;
    for (const PrintedText& piece : line) draw(piece, top + ascent);
    top += 1 / kLinesPerInch;
  }
  sink_->raiseFailure();
}

const QFont& PdfJob::font(const PrintedText& piece) {
  font_.setPointSizeF(pointsPerInch_ / piece.cpi);
  font_.setBold(piece.bold);
  font_.setUnderline(piece.underline);
  return font_;
}

void PdfJob::draw(const PrintedText& piece, double baseline) {
  painter_->setFont(font(piece));
  painter_->setPen(QColor(static_cast<int>(piece.color & 0xFF),
                          static_cast<int>(piece.color >> 8 & 0xFF),
                          static_cast<int>(piece.color >> 16 & 0xFF)));
  painter_->drawText(QPointF((left_ + piece.left) * kDotsPerInch, baseline * kDotsPerInch),
                     QString::fromStdString(piece.text));
}

void PdfJob::end() {
  if (!painter_) return;
  painter_->end();
  sink_->raiseFailure();
  sink_->finish();
}

}  // namespace

std::unique_ptr<StyledJob> PrintDevice::start(const StyledDocument& document) {
  if (!document.file.empty()) {
    return std::make_unique<PdfJob>(
        document,
        std::make_unique<FileSink>(storage_, document.file, document.sources, "PrintExport"));
  }
  if (document.printer.empty()) {
    throw AutomationError(AutomationError::kPathNotFound, "PrintExport", "There is no printer.");
  }
  auto job = spooler_.open(document.printer);
  if (!job) throw SpoolError(document.printer, "There is no such printer");
  job->start(document.name, DocumentFormat::pdf);
  return std::make_unique<PdfJob>(document, std::make_unique<SpoolerSink>(std::move(job)));
}

std::unique_ptr<SheetJob> PrintDevice::startSheets(const SheetDocument& document) {
  return startSheetFile(storage_, document);
}

}  // namespace paperway::qt
