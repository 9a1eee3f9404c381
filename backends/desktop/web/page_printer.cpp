#include "backends/desktop/web/page_printer.h"

#include <QEventLoop>
#include <QRectF>
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
    QObject::connect(&page, &QWebEnginePage::renderProcessTerminated, loop, &QEventLoop::quit);
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
    if (!state_->answer) state_->loop.exec();
    if (state_->answer) return *std::move(state_->answer);
    if (timer_.isActive()) fail("The page's renderer has ended; the document may be too large.");
    fail("The page's renderer does not answer.");
  }

 private:
  struct State {
    QEventLoop loop;
    std::optional<Answer> answer;
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

  std::string print(const QPageLayout& layout) {
    Wait<QByteArray> wait(page_);
    page_.printToPdf(wait.taker(), layout);
    const QByteArray pdf = wait.take();
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
};

}  // namespace

std::vector<std::string> printedPieces(SafeProfile& profile, const std::string& document,
                                       int textSize, const QPageLayout& layout,
                                       const PrintProgress& progress) {
  const HtmlPieces pieces(document, kPagesOfAPiece);
  const double room = layout.paintRect(QPageLayout::Inch).width() * kPixelsPerInch;
  double widest = 0;
  const auto printAll = [&](double scale) {
    PieceLoader loader(profile, textSize);
    std::vector<std::string> printed;
    for (std::size_t i = 0; i < pieces.count(); ++i) {
      if (!progress(i, pieces.count())) fail("The print was stopped.");
      loader.load(pieces.piece(i));
      widest = std::max(widest, loader.width());
      if (scale != 1) loader.scale(scale);
      printed.push_back(loader.print(layout));
    }
    return printed;
  };
  std::vector<std::string> printed = printAll(1);
  // The engine shrinks each piece for itself, and none to less than two thirds.
  const bool isCut = widest > room * 1.5;
  const bool isUneven = widest > room && pieces.count() > 1;
  return isCut || isUneven ? printAll(room / widest) : printed;
}

}  // namespace paperway::web
