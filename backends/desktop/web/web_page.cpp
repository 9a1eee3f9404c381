#include "backends/desktop/web/web_page.h"

#include <QContextMenuEvent>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QFileInfo>
#include <QMenu>
#include <QProgressDialog>
#include <QTimer>
#include <QWebEngineScript>
#include <QWheelEvent>

#include "backends/desktop/web/page_setup_dialog.h"
#include "backends/desktop/web/pdf_pages.h"
#include "backends/desktop/web/preview_window.h"
#include "paperway/automation_error.h"
#include "paperway/platform/clock.h"
#include "paperway/platform/dialogs.h"
#include "paperway/platform/printers.h"
#include "paperway/platform/spooler.h"
#include "platform/input_file.h"
#include "platform/output_file.h"
#include "util/page_marks.h"
#include "util/paper.h"
#include "util/path_text.h"

namespace paperway::web {
namespace {

constexpr double kPaperUnit = 2540;    // to the inch
constexpr double kLineMargin = 0.3;    // inches of a header or footer to the paper's edge
constexpr int kQuietWork = 600;        // milliseconds before its progress is shown
constexpr int kLongestDrawing = 5000;  // milliseconds
constexpr int kFrame = 100;
constexpr int kFirstRows = 100;  // pixels of a document that can be read

std::string noPrinter() {
  return "There is no printer.";
}

}  // namespace

void WebView::watchWheel() {
  if (focusProxy() != nullptr) focusProxy()->installEventFilter(this);
}

/// Left to itself the engine would zoom the page, and with it what is printed.
bool WebView::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::Wheel) return QWebEngineView::eventFilter(watched, event);
  const auto& wheel = static_cast<const QWheelEvent&>(*event);
  if ((wheel.modifiers() & Qt::ControlModifier) == 0) return false;
  const int turn = wheel.angleDelta().y();
  if (turn != 0 && onZoom) onZoom(turn > 0);
  return true;
}

void WebView::showEvent(QShowEvent* event) {
  QWebEngineView::showEvent(event);
  if (onShow) onShow();
}

void WebView::contextMenuEvent(QContextMenuEvent* event) {
  if (!hasMenu) return;
  QMenu menu(this);
  menu.addAction(pageAction(QWebEnginePage::Copy));
  menu.addAction(pageAction(QWebEnginePage::SelectAll));
  menu.exec(event->globalPos());
}

WebPage::WebPage(const Platform& platform, BrowserEvents& events)
    : platform_(platform), events_(events), view_(new WebView) {
  view_->setPage(&page_);
  view_->setAcceptDrops(false);
  view_->onShow = [this] { load(); };
  view_->onZoom = [this](bool larger) { setZoom(zoom_ + (larger ? 1 : -1)); };
  setZoom(platform_.pageSetup.read().textSize);
  watch();
}

WebPage::~WebPage() {
  delete view_;
}

void WebPage::watch() {
  QObject::connect(&page_, &QWebEnginePage::loadFinished, &page_, [this] { complete(); });
  QObject::connect(&page_, &QWebEnginePage::contentsSizeChanged, &page_, [this](QSizeF size) {
    if (size.height() > kFirstRows) complete();
  });
  QObject::connect(&page_, &QWebEnginePage::renderProcessTerminated, &page_,
                   [this](QWebEnginePage::RenderProcessTerminationStatus status) {
                     if (status == QWebEnginePage::NormalTerminationStatus) return;
                     complete();
                     if (!act_) return;
                     act_([this] {
                       throw AutomationError(
                           AutomationError::kApplicationDefined, "Navigate",
                           "\"" + textOf(file_) +
                               "\" cannot be shown any more: the renderer of the page has ended.");
                     });
                   });
}

void WebPage::Navigate(const std::filesystem::path& file) {
  const InputFile readable(platform_.storage, file, "Navigate");
  file_ = file;
  waiting_ = profile_.scheme.serve(QFile::decodeName(file.c_str()));
  events_.BeforeNavigate2();
  if (view_->isVisible()) load();
}

void WebPage::load() {
  if (waiting_.isEmpty()) return;
  completing_ = true;
  page_.open(std::exchange(waiting_, {}));
}

void WebPage::complete() {
  if (!std::exchange(completing_, false)) return;
  view_->watchWheel();
  const auto tell = [this] { events_.DocumentComplete(); };
  act_ ? act_(tell) : tell();
}

QWidget* WebPage::keyTarget() {
  return view_->focusProxy();
}

/// Two frames of the page behind one another are drawn, and a moment later they are in the widget.
void WebPage::waitUntilDrawn() {
  QElapsedTimer time;
  time.start();
  const auto drawn = std::make_shared<bool>(false);  // an answer may come late
  const auto ask = [&](const char* script) {
    page_.runJavaScript(QString::fromLatin1(script), QWebEngineScript::ApplicationWorld,
                        [drawn](const QVariant& answer) { *drawn = answer.toBool(); });
    QEventLoop loop;
    QTimer frame;
    QObject::connect(&frame, &QTimer::timeout, &loop, &QEventLoop::quit);
    frame.start(kFrame);
    loop.exec();
  };
  ask("window.drawn = false;"
      "requestAnimationFrame(() => requestAnimationFrame(() => { window.drawn = true; })); false");
  while (!*drawn && time.elapsed() < kLongestDrawing) ask("window.drawn");
  ask("true");
}

void WebPage::tellWithin(std::function<void(const std::function<void()>&)> act) {
  act_ = std::move(act);
}

void WebPage::setZoom(int level) {
  zoom_ = std::clamp(level, 0, 4);
  page_.setTextSize(zoom_);
}

void WebPage::offerContextMenu(bool offered) {
  view_->hasMenu = offered;
}

std::string WebPage::name() const {
  const std::string title = page_.title().toStdString();
  return title.empty() || title == page_.url().toString().toStdString() ||
                 page_.title().startsWith(QLatin1String("paperway:"))
             ? textOf(file_.filename())
             : title;
}

WebPage::Sheet WebPage::sheet(const PageSetup& setup) {
  const std::string printer = platform_.printers.current();
  const PageSettings own = platform_.printers.settings(printer).value_or(PageSettings{});
  const Paper* paper = paperByNumber(own.PaperSize);
  if (paper == nullptr) paper = paperByNumber(PageSettings{}.PaperSize);
  Sheet sheet;
  sheet.paper = std::string(paper->name) + (printer.empty() ? "" : ", the paper of " + printer);
  sheet.landscape = landscape_.value_or(own.Orientation == 2);
  const QPageSize size(QSizeF(paper->width, paper->height) / kPaperUnit, QPageSize::Inch,
                       QString::fromUtf8(paper->name), QPageSize::ExactMatch);
  QMarginsF margins(setup.marginLeft, setup.marginTop, setup.marginRight, setup.marginBottom);
  // Who chooses landscape here turns the sheet with its margins.
  const bool isTurned = sheet.landscape && own.Orientation != 2;
  if (isTurned) {
    margins = {setup.marginBottom, setup.marginLeft, setup.marginTop, setup.marginRight};
  }
  sheet.layout = QPageLayout(size, sheet.landscape ? QPageLayout::Landscape : QPageLayout::Portrait,
                             margins, QPageLayout::Inch);
  return sheet;
}

void WebPage::pageSetup(bool suggestLandscape) {
  PageChoices choices{.setup = platform_.pageSetup.read()};
  const PageSetup before = choices.setup;
  const Sheet now = sheet(before);
  choices.landscape = landscape_.value_or(now.landscape || suggestLandscape);
  const QSizeF paper = now.layout.fullRect(QPageLayout::Inch).size();
  if (!askPageSetup(view_, choices, now.paper, paper.width(), paper.height())) return;
  landscape_ = choices.landscape;
  if (choices.setup == before) return;
  platform_.pageSetup.write(choices.setup);
  if (choices.setup.textSize != before.textSize) setZoom(choices.setup.textSize);
}

/// Printed anew when anything that they were made of has changed.
const std::vector<std::string>& WebPage::pieces(const PageSetup& setup) {
  const QPageLayout layout = sheet(setup).layout;
  const std::string document = readFile(platform_.storage, file_, "Print");
  std::string key = document;
  for (const double value :
       {layout.margins().left(), layout.margins().top(), layout.margins().right(),
        layout.margins().bottom(), layout.fullRect().width(), layout.fullRect().height(),
        static_cast<double>(zoom_)}) {
    key += '\0' + std::to_string(value);
  }
  const std::string digest = std::to_string(std::hash<std::string>()(key));
  if (printed_.key == digest) return printed_.pieces;

  std::optional<QProgressDialog> shown;
  if (view_->isVisible()) {
    shown.emplace(QStringLiteral("Preparing the pages\u2026"), QStringLiteral("Cancel"), 0, 1,
                  view_);
    shown->setWindowTitle(view_->window()->windowTitle());
    shown->setWindowModality(Qt::ApplicationModal);
    shown->setMinimumDuration(kQuietWork);
  }
  const auto progress = [&](std::size_t piece, std::size_t count) {
    if (!shown) return true;
    shown->setMaximum(static_cast<int>(count));
    shown->setValue(static_cast<int>(piece));
    return !shown->wasCanceled();
  };
  printed_.pieces = printedPieces(profile_, document, zoom_, layout, progress);
  printed_.key = digest;
  return printed_.pieces;
}

/// The pages as they go out.
std::string WebPage::printed() {
  const PageSetup setup = platform_.pageSetup.read();
  const std::vector<std::string>& bare = pieces(setup);
  MarkedPage page{.title = name(), .address = textOf(file_), .now = platform_.clock.now()};
  page.count = 0;
  for (const std::string& piece : bare) page.count += static_cast<std::int64_t>(pageCount(piece));
  const QMarginsF margins = sheet(setup).layout.margins(QPageLayout::Inch);
  const auto lines = [&](std::size_t number) {
    page.number = static_cast<std::int64_t>(number);
    return PageLines{pageMarks(setup.header, page), pageMarks(setup.footer, page)};
  };
  return joinedPdf(bare, name(), {kLineMargin, kLineMargin, margins.left(), margins.right()},
                   lines);
}

void WebPage::printPreview() {
  const std::string pdf = printed();
  const auto savePdf = [this, pdf] {
    FileQuestion question;
    question.filters = {{"PDF", {"*.pdf"}}};
    question.start = std::filesystem::path(file_).replace_extension(".pdf");
    if (const auto target = platform_.dialogs.saveFile(question)) save(*target, pdf);
  };
  showPreview(view_, name(), pdf, {.print = [this, pdf] { send(pdf); }, .savePdf = savePdf});
}

void WebPage::print() {
  const std::string printer = platform_.printers.current();
  if (printer.empty()) throw AutomationError(AutomationError::kPathNotFound, "Print", noPrinter());
  if (!platform_.spooler.open(printer)) throw SpoolError(printer, "There is no such printer");
  send(printed());
}

void WebPage::send(const std::string& pdf) {
  const std::string printer = platform_.printers.current();
  if (printer.empty()) throw AutomationError(AutomationError::kPathNotFound, "Print", noPrinter());
  const auto job = platform_.spooler.open(printer);
  if (!job) throw SpoolError(printer, "There is no such printer");
  job->start(name(), DocumentFormat::pdf);
  job->write(pdf);
  job->end();
}

void WebPage::savePdf(const std::filesystem::path& file) {
  save(file, printed());
}

void WebPage::save(const std::filesystem::path& file, const std::string& pdf) {
  replaceFile(platform_.storage, file, pdf, "Print", {.inputs = {file_}});
}

}  // namespace paperway::web
