#include "backends/desktop/qt/sheet_files.h"

#include <QBuffer>
#include <QImage>
#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>
#include <vector>

#include "backends/desktop/qt/document_sink.h"
#include "backends/desktop/qt/sheet_painter.h"
#include "paperway/automation_error.h"

namespace paperway::qt {
namespace {

constexpr const char* kSource = "PaperPicture";

/// Sheet by sheet, with text that can be searched.
class SheetPdf : public SheetJob {
 public:
  SheetPdf(Storage& storage, const SheetDocument& document)
      : name_(document.name), sink_(storage, document.file, document.sources, kSource) {
    sink_.open(QIODevice::WriteOnly | QIODevice::Unbuffered);
  }

  // A writer writes its end when it goes.
  ~SheetPdf() override { sink_.drop(); }

  void sheet(const Sheet& sheet) override {
    if (painter_) {
      writer_->newPage();
    } else {
      begin(sheet);
    }
    sheets_.paint(*painter_, sheet, SheetPainter::kDotsPerInch);
    sink_.raiseFailure();
  }

  void end() override {
    if (painter_) painter_->end();
    sink_.raiseFailure();
    sink_.finish();
  }

 private:
  void begin(const Sheet& sheet) {
    writer_ = std::make_unique<QPdfWriter>(&sink_);
    writer_->setTitle(QString::fromStdString(name_));
    writer_->setCreator(QStringLiteral("Paperway"));
    writer_->setResolution(SheetPainter::kDotsPerInch);
    const QPageSize size(QSizeF(sheet.width, sheet.height), QPageSize::Inch, QString(),
                         QPageSize::ExactMatch);
    writer_->setPageLayout({size, QPageLayout::Portrait, QMarginsF()});
    painter_ = std::make_unique<QPainter>(writer_.get());
  }

  const std::string name_;
  FileSink sink_;
  std::unique_ptr<QPdfWriter> writer_;
  std::unique_ptr<QPainter> painter_;
  SheetPainter sheets_;
};

/// The sheets below one another, as they hang out of the printer.
class SheetPng : public SheetJob {
 public:
  SheetPng(Storage& storage, const SheetDocument& document)
      : sink_(storage, document.file, document.sources, kSource) {}

  void sheet(const Sheet& sheet) override { sheets_.push_back(sheet); }

  void end() override {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    if (!buffer.open(QIODevice::WriteOnly) || !picture().save(&buffer, "PNG")) {
      throw AutomationError(AutomationError::kInvalidCall, kSource, "The picture cannot be made.");
    }
    sink_.take({bytes.constData(), static_cast<std::size_t>(bytes.size())});
    sink_.finish();
  }

 private:
  static constexpr int kDotsPerInch = 96;

  QImage picture() const {
    if (sheets_.empty()) return {};
    const int height = qRound(sheets_[0].height * kDotsPerInch);
    QImage image(qRound(sheets_[0].width * kDotsPerInch), height * static_cast<int>(sheets_.size()),
                 QImage::Format_RGB32);
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    SheetPainter sheets;
    for (const Sheet& sheet : sheets_) {
      sheets.paint(painter, sheet, kDotsPerInch);
      painter.translate(0, height);
    }
    return image;
  }

  FileSink sink_;
  std::vector<Sheet> sheets_;
};

}  // namespace

std::unique_ptr<SheetJob> startSheetFile(Storage& storage, const SheetDocument& document) {
  if (document.format == SheetDocument::Format::png) {
    return std::make_unique<SheetPng>(storage, document);
  }
  return std::make_unique<SheetPdf>(storage, document);
}

}  // namespace paperway::qt
