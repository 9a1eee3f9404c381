#pragma once

#include <QPageLayout>
#include <QPointer>
#include <QWebEngineView>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "backends/desktop/browser_widget.h"
#include "backends/desktop/web/page_printer.h"
#include "backends/desktop/web/safe_profile.h"
#include "paperway/platform.h"
#include "paperway/platform/browser.h"
#include "paperway/platform/page_setup.h"

namespace paperway::web {

/// The widget of a page. What it shows is loaded when it is first shown.
class WebView : public QWebEngineView {
 public:
  std::function<void()> onShow;
  std::function<void(bool larger)> onZoom;  // the wheel with Ctrl
  bool hasMenu = true;

  /// The engine's own widget, which comes with the first document, has the wheel.
  void watchWheel();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
};

/// A page of Qt WebEngine.
class WebPage : public BrowserPage, public desktop::BrowserWidget {
 public:
  WebPage(const Platform& platform, BrowserEvents& events);
  ~WebPage() override;

  void Navigate(const std::filesystem::path& file) override;
  void pageSetup(bool suggestLandscape) override;
  void printPreview() override;
  void print() override;
  void savePdf(const std::filesystem::path& file) override;
  void setLandscape(bool landscape) override { landscape_ = landscape; }
  int zoom() override { return zoom_; }
  void setZoom(int level) override;
  void offerContextMenu(bool offered) override;

  QWidget& widget() override { return *view_; }
  QWidget* keyTarget() override;
  void waitUntilDrawn() override;
  void tellWithin(std::function<void(const std::function<void()>&)> act) override;

 private:
  /// The sheet that is printed on: what the printer has, unless the user has chosen.
  struct Sheet {
    QPageLayout layout;
    std::string paper;
    bool landscape = false;
  };
  /// Pages without header and footer, and what they were made of.
  struct Printed {
    std::string key;
    std::vector<std::string> pieces;
  };

  void watch();
  void load();
  void complete();
  Sheet sheet(const PageSetup& setup);
  const std::vector<std::string>& pieces(const PageSetup& setup);
  std::string printed();
  void send(const std::string& pdf);
  void save(const std::filesystem::path& file, const std::string& pdf);
  std::string name() const;

  const Platform platform_;
  BrowserEvents& events_;
  std::function<void(const std::function<void()>&)> act_;
  SafeProfile profile_;
  SafePage page_{profile_};
  QPointer<WebView> view_;
  std::filesystem::path file_;
  QUrl waiting_;  // to be loaded when the widget is shown
  bool completing_ = false;
  int zoom_ = 2;
  std::optional<bool> landscape_;
  Printed printed_;
};

}  // namespace paperway::web
