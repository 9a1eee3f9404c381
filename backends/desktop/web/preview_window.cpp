#include "backends/desktop/web/preview_window.h"

#include <QAction>
#include <QBuffer>
#include <QComboBox>
#include <QDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QMessageBox>
#include <QPainter>
#include <QPdfDocument>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSpinBox>
#include <QVBoxLayout>
#include <array>
#include <cmath>

namespace paperway::web {
namespace {

constexpr double kDotsPerPoint = 96 / 72.0;
constexpr int kRim = 16;                                           // pixels round a page
constexpr std::array kZooms{0.5, 0.75, 1.0, 1.25, 1.5, 2.0, 3.0};  // behind the two that fit

/// The picture of one page, on a desk.
class PagePicture : public QWidget {
 public:
  explicit PagePicture(QPdfDocument& pages) : pages_(pages) {}

  void show(int page, double scale) {
    page_ = page;
    scale_ = scale;
    const QSizeF size = pages_.pagePointSize(page) * kDotsPerPoint * scale;
    paper_ = size.toSize();
    picture_ = {};
    setMinimumSize(paper_ + QSize(2 * kRim, 2 * kRim));
    update();
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Dark));
    if (page_ < 0) return;
    if (picture_.isNull() || picture_.devicePixelRatio() != devicePixelRatioF()) draw();
    const QRect sheet(QPoint(std::max(kRim, (width() - paper_.width()) / 2),
                             std::max(kRim, (height() - paper_.height()) / 2)),
                      paper_);
    painter.fillRect(sheet.translated(3, 3), QColor(0, 0, 0, 90));
    painter.drawImage(sheet.topLeft(), picture_);
  }

 private:
  /// A page's paper is not in its PDF.
  void draw() {
    const double ratio = devicePixelRatioF();
    const QImage ink = pages_.render(page_, (QSizeF(paper_) * ratio).toSize());
    picture_ = QImage(ink.size(), QImage::Format_RGB32);
    picture_.fill(Qt::white);
    QPainter(&picture_).drawImage(0, 0, ink);
    picture_.setDevicePixelRatio(ratio);
  }

  QPdfDocument& pages_;
  int page_ = -1;
  double scale_ = 1;
  QSize paper_;
  QImage picture_;
};

class PreviewWindow : public QDialog {
 public:
  PreviewWindow(QWidget* parent, const std::string& title, const std::string& pdf,
                PreviewCommands commands)
      : QDialog(parent), commands_(std::move(commands)) {
    setObjectName(QStringLiteral("PrintPreview"));
    setWindowTitle(QStringLiteral("Print Preview \u2013 ") + QString::fromStdString(title));
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    setAttribute(Qt::WA_DeleteOnClose);
    setModal(true);
    bytes_.setData(QByteArray::fromStdString(pdf));
    bytes_.open(QIODevice::ReadOnly);
    pages_.load(&bytes_);
    build();
    resize(parent == nullptr ? QSize(900, 700) : parent->window()->size() * 0.92);
    goTo(0);
    zoom_->setFocus();
  }

 protected:
  void resizeEvent(QResizeEvent* event) override {
    QDialog::resizeEvent(event);
    showPage();
  }

  void keyPressEvent(QKeyEvent* event) override {
    const bool ctrl = (event->modifiers() & Qt::ControlModifier) != 0;
    switch (event->key()) {
      case Qt::Key_PageUp:
        return goTo(page_ - 1);
      case Qt::Key_PageDown:
        return goTo(page_ + 1);
      case Qt::Key_Home:
        return goTo(0);
      case Qt::Key_End:
        return goTo(pages_.pageCount() - 1);
      case Qt::Key_Plus:
      case Qt::Key_Minus:
        if (ctrl) return zoomBy(event->key() == Qt::Key_Plus ? 1 : -1);
        break;
      default:
        break;
    }
    QDialog::keyPressEvent(event);
  }

 private:
  QPushButton* button(const QString& text, const QString& name, std::function<void()> press) {
    auto* made = new QPushButton(text);
    made->setObjectName(name);
    made->setAutoDefault(false);
    connect(made, &QPushButton::clicked, this, [press = std::move(press)] { press(); });
    row_->addWidget(made);
    return made;
  }

  void build() {
    auto* rows = new QVBoxLayout(this);
    rows->addLayout(row_);
    first_ = button("&First", "first", [this] { goTo(0); });
    previous_ = button("Pre&vious", "previous", [this] { goTo(page_ - 1); });
    number_->setObjectName(QStringLiteral("page"));
    number_->setRange(1, std::max(1, pages_.pageCount()));
    number_->setAccessibleName(QStringLiteral("Page"));
    number_->setKeyboardTracking(false);
    connect(number_, &QSpinBox::valueChanged, this, [this](int number) { goTo(number - 1); });
    row_->addWidget(number_);
    row_->addWidget(new QLabel(QStringLiteral("of %1").arg(pages_.pageCount())));
    next_ = button("&Next", "next", [this] { goTo(page_ + 1); });
    last_ = button("&Last", "last", [this] { goTo(pages_.pageCount() - 1); });
    row_->addSpacing(12);
    auto* label = new QLabel(QStringLiteral("&Zoom:"));
    label->setBuddy(zoom_);
    row_->addWidget(label);
    zoom_->setObjectName(QStringLiteral("zoom"));
    zoom_->addItems({QStringLiteral("Whole page"), QStringLiteral("Page width")});
    for (const double zoom : kZooms) zoom_->addItem(QStringLiteral("%1 %").arg(zoom * 100));
    connect(zoom_, &QComboBox::currentIndexChanged, this, [this] { showPage(); });
    row_->addWidget(zoom_);
    row_->addStretch();
    button("&Print", "print", [this] { run(commands_.print); });
    button("&Save as PDF\u2026", "save", [this] { run(commands_.savePdf); });
    button("&Close", "close", [this] { close(); });
    desk_->setWidgetResizable(true);
    desk_->setWidget(picture_);
    desk_->setFrameShape(QFrame::NoFrame);
    rows->addWidget(desk_, 1);
  }

  void run(const std::function<void()>& command) {
    try {
      command();
    } catch (const std::exception& error) {
      QMessageBox::critical(this, windowTitle(), QString::fromUtf8(error.what()));
    }
  }

  void goTo(int page) {
    if (page < 0 || page >= pages_.pageCount()) return;
    page_ = page;
    const QSignalBlocker quiet(number_);
    number_->setValue(page + 1);
    for (QPushButton* back : {first_, previous_}) back->setEnabled(page > 0);
    for (QPushButton* on : {next_, last_}) on->setEnabled(page + 1 < pages_.pageCount());
    showPage();
    desk_->verticalScrollBar()->setValue(0);
  }

  void zoomBy(int steps) {
    zoom_->setCurrentIndex(std::clamp(zoom_->currentIndex() + steps, 0, zoom_->count() - 1));
  }

  double scale() const {
    const int index = zoom_->currentIndex();
    if (index > 1) return kZooms.at(static_cast<std::size_t>(index - 2));
    const QSizeF page = pages_.pagePointSize(page_) * kDotsPerPoint;
    const int bar = desk_->verticalScrollBar()->sizeHint().width();
    const double across = (desk_->width() - 2 * kRim - (index == 1 ? bar : 0)) / page.width();
    const double along = (desk_->height() - 2 * kRim) / page.height();
    return std::max(0.1, index == 1 ? across : std::min(across, along));
  }

  void showPage() {
    if (pages_.pageCount() > 0) picture_->show(page_, scale());
  }

  const PreviewCommands commands_;
  QBuffer bytes_;
  QPdfDocument pages_;
  int page_ = 0;
  QHBoxLayout* row_ = new QHBoxLayout;
  QPushButton* first_ = nullptr;
  QPushButton* previous_ = nullptr;
  QPushButton* next_ = nullptr;
  QPushButton* last_ = nullptr;
  QSpinBox* number_ = new QSpinBox;
  QComboBox* zoom_ = new QComboBox;
  QScrollArea* desk_ = new QScrollArea;
  PagePicture* picture_ = new PagePicture(pages_);
};

}  // namespace

void showPreview(QWidget* parent, const std::string& title, const std::string& pdf,
                 PreviewCommands commands) {
  (new PreviewWindow(parent, title, pdf, std::move(commands)))->open();
}

}  // namespace paperway::web
