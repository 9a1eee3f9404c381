#include "backends/desktop/web/page_printer.h"

#include <QEventLoop>
#include <QRectF>
#include <QThread>
#include <QTimer>
#include <QWebEngineScript>
#include <algorithm>
#include <memory>
#include <optional>

#include "paperway/automation_error.h"
#include "util/html_pieces.h"

namespace paperway::web {
namespace {

constexpr std::size_t kPagesOfAPiece = 25;
constexpr int kPatience = 120000;  // milliseconds for one piece
constexpr double kPixelsPerInch = 96;

[[noreturn]] void fail(const char* reason) {
  throw AutomationError(AutomationError::kApplicationDefined, "Print", reason);
}

/// Waits for an answer of the engine's, which is not to be had from a renderer that has ended. One
/// that comes too late goes nowhere.
template <typename Answer>
class Wait {
 public:
  explicit Wait(QWebEnginePage& page) {
    QEventLoop* const loop = &state_->loop;
    QObject::connect(&page, &QWebEnginePage::renderProcessTerminated, loop, [state = state_.get()] {
      state->ended = true;
      state->loop.quit();
    });
    QObject::connect(&timer_, &QTimer::timeout, loop, &QEventLoop::quit);
    timer_.setSingleShot(true);
  }

  /// What the engine calls with its answer.
  auto taker() const {
    return [state = state_](const Answer& answer) {
      state->answer = answer;
      state->loop.quit();
    };
  }
  QObject& context() { return state_->loop; }

  Answer take() {
    timer_.start(kPatience);
    if (!state_->answer && !state_->ended) state_->loop.exec();
    if (state_->answer) return *std::move(state_->answer);
    if (state_->ended) fail("The page's renderer has ended; the document may be too large.");
    fail("The page's renderer does not answer.");
  }

 private:
  struct State {
    QEventLoop loop;
    std::optional<Answer> answer;
    bool ended = false;  // the renderer
  };

  std::shared_ptr<State> state_ = std::make_shared<State>();
  QTimer timer_;
};

/// One page of the engine that nobody sees.
class PieceLoader {
 public:
  PieceLoader(SafeProfile& profile, int textSize) : profile_(profile), page_(profile) {
    page_.setTextSize(textSize);
  }

  void load(const std::string& document) {
    Wait<bool> wait(page_);
    QObject::connect(&page_, &QWebEnginePage::loadFinished, &wait.context(), wait.taker());
    page_.open(profile_.scheme.servePiece(QByteArray::fromStdString(document)));
    wait.take();  // false also when something on the page was refused
  }

  /// In pixels, of what stands on one line.
  double width() { return ask(QStringLiteral("document.documentElement.scrollWidth")); }
  void scale(double factor) { ask(QStringLiteral("document.body.style.zoom = %1").arg(factor)); }

  /// The printing goes on by itself until endPrint() takes its bytes.
  void beginPrint(const QPageLayout& layout) {
    printing_.emplace(page_);
    page_.printToPdf(printing_->taker(), layout);
  }
  std::string endPrint() {
    const QByteArray pdf = printing_->take();
    printing_.reset();
    if (pdf.isEmpty()) fail("The page cannot be printed.");
    return pdf.toStdString();
  }

 private:
  double ask(const QString& script) {
    Wait<QVariant> wait(page_);
    page_.runJavaScript(script, QWebEngineScript::ApplicationWorld, wait.taker());
    return wait.take().toDouble();
  }

  SafeProfile& profile_;
  SafePage page_;
  std::optional<Wait<QByteArray>> printing_;
};

/// The pieces of a document, printed at one scale, several at once. The engine shrinks each page
/// for itself, and none to less than two thirds; so what is wider than the paper is scaled here, by
/// the widest piece, unless a single one is left to the engine.
class PiecePrinter {
 public:
  PiecePrinter(SafeProfile& profile, int textSize, const HtmlPieces& pieces,
               const QPageLayout& layout, const PrintProgress& progress)
      : pieces_(pieces),
        layout_(layout),
        progress_(progress),
        room_(layout.paintRect(QPageLayout::Inch).width() * kPixelsPerInch) {
    const auto cores = static_cast<std::size_t>(std::clamp(QThread::idealThreadCount(), 1, 4));
    while (lanes_.size() < std::min(cores, pieces.count())) {
      lanes_.push_back(std::make_unique<PieceLoader>(profile, textSize));
    }
  }

  /// Most documents are as wide as their first piece, and are printed once.
  std::vector<std::string> print() {
    if (!printAll()) {
      for (std::size_t i = 0; i < pieces_.count(); ++i) load(i);
      while (!printAll()) {  // each time because something has become wider
      }
    }
    return std::move(printed_);
  }

 private:
  PieceLoader& lane(std::size_t piece) { return *lanes_[piece % lanes_.size()]; }

  void load(std::size_t piece) {
    if (!progress_(piece, pieces_.count())) fail("The print was stopped.");
    lane(piece).load(pieces_.piece(piece));
    widest_ = std::max(widest_, lane(piece).width());
  }

  /// False when a piece is wider than those before it.
  bool printAll() {
    printed_.clear();
    double scale = 1;
    for (std::size_t i = 0; i < pieces_.count(); ++i) {
      if (i >= lanes_.size()) printed_.push_back(lane(i).endPrint());
      load(i);
      if (i == 0) scale = scaleOf(widest_);
      if (scaleOf(widest_) != scale) {
        takeRest(i);
        return false;
      }
      if (scale != 1) lane(i).scale(scale);
      lane(i).beginPrint(layout_);
    }
    takeRest(pieces_.count());
    return true;
  }

  /// The pieces up to that one which are still being printed.
  void takeRest(std::size_t end) {
    while (printed_.size() < end) printed_.push_back(lane(printed_.size()).endPrint());
  }

  double scaleOf(double width) const {
    const bool isCut = width > room_ * 1.5;
    const bool isUneven = width > room_ && pieces_.count() > 1;
    return isCut || isUneven ? room_ / width : 1;
  }

  const HtmlPieces& pieces_;
  const QPageLayout& layout_;
  const PrintProgress& progress_;
  const double room_;  // pixels across the paper
  double widest_ = 0;
  std::vector<std::unique_ptr<PieceLoader>> lanes_;
  std::vector<std::string> printed_;
};

}  // namespace

std::vector<std::string> printedPieces(SafeProfile& profile, const std::string& document,
                                       int textSize, const QPageLayout& layout,
                                       const PrintProgress& progress) {
  const HtmlPieces pieces(document, kPagesOfAPiece);
  return PiecePrinter(profile, textSize, pieces, layout, progress).print();
}

}  // namespace paperway::web
