#include "backends/desktop/web/page_setup_dialog.h"

#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>
#include <array>

namespace paperway::web {
namespace {

constexpr double kWidestMargin = 5;  // inches
constexpr double kLeastRoom = 1;     // inches that margins leave on a sheet, either way

struct MarginBox {
  const char* label;
  const char* name;
  double PageSetup::*inches;
  QDoubleSpinBox* box = nullptr;
};

class PageSetupDialog : public QDialog {
 public:
  PageSetupDialog(QWidget* parent, const PageChoices& choices, const std::string& paper,
                  double width, double height)
      : QDialog(parent), width_(width), height_(height) {
    setObjectName(QStringLiteral("PageSetup"));
    setWindowTitle(QStringLiteral("Page Setup"));
    auto* rows = new QVBoxLayout(this);
    rows->setSpacing(12);
    rows->addWidget(paperBox(paper));
    rows->addWidget(marginBox());
    rows->addWidget(textBox());
    trouble_->setWordWrap(true);
    rows->addWidget(trouble_);
    rows->addWidget(&buttons_);
    connect(&buttons_, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(&buttons_, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(buttons_.button(QDialogButtonBox::RestoreDefaults), &QPushButton::clicked, this,
            [this] { show(PageSetup()); });
    show(choices.setup);
    (choices.landscape ? landscape_ : portrait_)->setChecked(true);
    (choices.landscape ? landscape_ : portrait_)->setFocus();
  }

  PageChoices choices() const {
    PageChoices chosen;
    for (const MarginBox& margin : margins_) chosen.setup.*margin.inches = margin.box->value();
    chosen.setup.textSize = static_cast<std::uint8_t>(size_->currentIndex());
    chosen.setup.header = header_->text().toStdString();
    chosen.setup.footer = footer_->text().toStdString();
    chosen.landscape = landscape_->isChecked();
    return chosen;
  }

 private:
  QWidget* paperBox(const std::string& paper) {
    auto* group = new QGroupBox(QStringLiteral("Paper"));
    auto* rows = new QVBoxLayout(group);
    rows->addWidget(new QLabel(QString::fromStdString(paper)));
    auto* row = new QHBoxLayout;
    row->addWidget(portrait_);
    row->addWidget(landscape_);
    row->addStretch();
    rows->addLayout(row);
    connect(landscape_, &QRadioButton::toggled, this, [this] { judge(); });
    return group;
  }

  QWidget* marginBox() {
    auto* group = new QGroupBox(QStringLiteral("Margins (inches)"));
    auto* grid = new QGridLayout(group);
    grid->setHorizontalSpacing(12);
    int at = 0;
    for (MarginBox& margin : margins_) {
      auto* label = new QLabel(QString::fromLatin1(margin.label));
      margin.box = new QDoubleSpinBox;
      margin.box->setObjectName(QString::fromLatin1(margin.name));
      margin.box->setRange(0, kWidestMargin);
      margin.box->setDecimals(3);
      margin.box->setSingleStep(0.05);
      label->setBuddy(margin.box);
      grid->addWidget(label, at / 2, at % 2 * 2);
      grid->addWidget(margin.box, at / 2, at % 2 * 2 + 1);
      connect(margin.box, &QDoubleSpinBox::valueChanged, this, [this] { judge(); });
      ++at;
    }
    grid->setColumnStretch(1, 1);
    grid->setColumnStretch(3, 1);
    return group;
  }

  QWidget* textBox() {
    auto* group = new QGroupBox(QStringLiteral("Text"));
    auto* form = new QFormLayout(group);
    form->setHorizontalSpacing(12);
    size_->addItems({"Smallest", "Smaller", "Medium", "Larger", "Largest"});
    form->addRow(QStringLiteral("Text &size:"), size_);
    form->addRow(QStringLiteral("&Header:"), header_);
    form->addRow(QStringLiteral("&Footer:"), footer_);
    auto* codes = new QLabel(
        QStringLiteral("&p page, &P pages, &w document, &u its address, &d &D date, &t &T time,\n"
                       "&b what follows stands at the right, twice: middle and right, && for &"));
    codes->setTextFormat(Qt::PlainText);
    form->addRow(codes);
    header_->setObjectName(QStringLiteral("header"));
    footer_->setObjectName(QStringLiteral("footer"));
    return group;
  }

  void show(const PageSetup& setup) {
    for (const MarginBox& margin : margins_) margin.box->setValue(setup.*margin.inches);
    size_->setCurrentIndex(setup.textSize);
    header_->setText(QString::fromStdString(setup.header));
    footer_->setText(QString::fromStdString(setup.footer));
  }

  /// Margins that leave nothing to print on are not taken.
  void judge() {
    const PageSetup setup = choices().setup;
    const double across = setup.marginLeft + setup.marginRight;
    const double along = setup.marginTop + setup.marginBottom;
    const double narrow = std::min(width_, height_);
    const bool fits = across + kLeastRoom <= narrow && along + kLeastRoom <= narrow;
    trouble_->setText(fits ? QString()
                           : QStringLiteral("These margins leave less than an inch of "
                                            "the paper."));
    trouble_->setVisible(!fits);
    buttons_.button(QDialogButtonBox::Ok)->setEnabled(fits);
  }

  const double width_;
  const double height_;
  QRadioButton* portrait_ = new QRadioButton(QStringLiteral("P&ortrait"));
  QRadioButton* landscape_ = new QRadioButton(QStringLiteral("L&andscape"));
  std::array<MarginBox, 4> margins_{{{"&Left:", "left", &PageSetup::marginLeft},
                                     {"&Right:", "right", &PageSetup::marginRight},
                                     {"&Top:", "top", &PageSetup::marginTop},
                                     {"&Bottom:", "bottom", &PageSetup::marginBottom}}};
  QComboBox* size_ = new QComboBox;
  QLineEdit* header_ = new QLineEdit;
  QLineEdit* footer_ = new QLineEdit;
  QLabel* trouble_ = new QLabel;
  QDialogButtonBox buttons_{QDialogButtonBox::Ok | QDialogButtonBox::Cancel |
                            QDialogButtonBox::RestoreDefaults};
};

}  // namespace

bool askPageSetup(QWidget* parent, PageChoices& choices, const std::string& paper, double width,
                  double height) {
  PageSetupDialog dialog(parent, choices, paper, width, height);
  if (dialog.exec() != QDialog::Accepted) return false;
  choices = dialog.choices();
  return true;
}

}  // namespace paperway::web
