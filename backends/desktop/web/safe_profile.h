#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QUrl>
#include <QWebEnginePage>
#include <QWebEngineProfile>
#include <QWebEngineUrlRequestInterceptor>
#include <QWebEngineUrlSchemeHandler>

namespace paperway::web {

/// Serves a document, which is windows-1252, and files of its folder, under a scheme of its own.
class FolderScheme : public QWebEngineUrlSchemeHandler {
 public:
  /// Once, before the engine starts.
  static void announce();

  /// A file whose folder is served from now on; its address.
  QUrl serve(const QString& file);
  /// Bytes as a document in that folder, in place of what was served so before.
  QUrl servePiece(const QByteArray& bytes);

  void requestStarted(QWebEngineUrlRequestJob* job) override;

 private:
  QUrl address(const QString& name) const;
  QString canonicalFile(const QUrl& url) const;

  QString folder_;  // canonical
  QString document_;
  QUrl own_;  // the document's address
  QByteArray piece_;
  int pieces_ = 0;
};

/// Lets nothing be fetched but documents, style sheets, pictures and fonts of the folder.
class FolderOnly : public QWebEngineUrlRequestInterceptor {
 public:
  void interceptRequest(QWebEngineUrlRequestInfo& info) override;
};

/// An engine's profile that keeps nothing, runs no script and stays in the document's folder. Pages
/// of it go before it does.
class SafeProfile : public QWebEngineProfile {
 public:
  SafeProfile();
  ~SafeProfile() override;

  FolderScheme scheme;

 private:
  void lockDown();
  void addStyle();

  FolderOnly interceptor_;
};

/// A page that shows one address and goes nowhere else.
class SafePage : public QWebEnginePage {
 public:
  explicit SafePage(SafeProfile& profile);

  void open(const QUrl& url);
  /// The size of text without one of its own, from 0 to 4.
  void setTextSize(int level);

 protected:
  bool acceptNavigationRequest(const QUrl& url, NavigationType type, bool isMainFrame) override;
  /// What a document complains about is nobody's business.
  void javaScriptConsoleMessage(JavaScriptConsoleMessageLevel, const QString&, int,
                                const QString&) override {}
  QWebEnginePage* createWindow(WebWindowType) override { return nullptr; }

 private:
  QUrl own_;
};

}  // namespace paperway::web
