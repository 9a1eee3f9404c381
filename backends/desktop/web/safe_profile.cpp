#include "backends/desktop/web/safe_profile.h"

#include <QBuffer>
#include <QFile>
#include <QFileInfo>
#include <QFontDatabase>
#include <QMimeDatabase>
#include <QWebEngineScript>
#include <QWebEngineScriptCollection>
#include <QWebEngineSettings>
#include <QWebEngineUrlRequestInfo>
#include <QWebEngineUrlRequestJob>
#include <QWebEngineUrlScheme>
#include <algorithm>

namespace paperway::web {
namespace {

constexpr char kScheme[] = "paperway";
constexpr char kDocumentType[] = "text/html;charset=windows-1252";

// With these, and the style below, a page of an export takes no more room than the export counted.
constexpr int kTextSizes[] = {12, 13, 16, 18, 20};  // pixels

constexpr char kStyle[] =
    "body{margin:0}td,p{white-space:nowrap}q:before,q:after{content:none}"
    "td,td *{line-height:min(1.05rem,16.8px)!important;padding:0}"
    "td *{vertical-align:top!important}"
    "td p,td p *{line-height:normal!important;vertical-align:baseline!important}";

// Documents that say their type were not made for it.
constexpr char kAddStyle[] = R"((() => {
  const add = () => {
    if (document.compatMode !== 'BackCompat') return;
    const style = document.createElement('style');
    style.textContent = '%1';
    document.documentElement.appendChild(style);
  };
  if (document.documentElement) return add();
  new MutationObserver((changes, observer) => {
    if (!document.documentElement) return;
    observer.disconnect();
    add();
  }).observe(document, {childList: true});
})();)";

}  // namespace

void FolderScheme::announce() {
  if (!QWebEngineUrlScheme::schemeByName(kScheme).name().isEmpty()) return;
  QWebEngineUrlScheme scheme(kScheme);
  scheme.setSyntax(QWebEngineUrlScheme::Syntax::Path);
  scheme.setFlags(QWebEngineUrlScheme::SecureScheme);
  QWebEngineUrlScheme::registerScheme(scheme);
}

QUrl FolderScheme::address(const QString& name) const {
  QUrl url;
  url.setScheme(QLatin1String(kScheme));
  url.setPath(QLatin1Char('/') + name);
  return url;
}

QUrl FolderScheme::serve(const QString& file) {
  const QFileInfo info(file);
  folder_ = QFileInfo(info.absolutePath()).canonicalFilePath();
  document_ = info.canonicalFilePath();  // which may lie elsewhere, behind a link
  own_ = address(info.fileName());
  return own_;
}

QUrl FolderScheme::servePiece(const QByteArray& bytes) {
  piece_ = bytes;
  QUrl url = address({});
  url.setQuery(QString::number(++pieces_));
  return url;
}

/// Empty for what does not lie in the folder, by whatever links.
QString FolderScheme::canonicalFile(const QUrl& url) const {
  if (url == own_) return document_;
  const QString file = QFileInfo(folder_ + url.path(QUrl::FullyDecoded)).canonicalFilePath();
  const QString inside = folder_.endsWith('/') ? folder_ : folder_ + '/';
  return QFileInfo(file).isFile() && file.startsWith(inside) ? file : QString();
}

void FolderScheme::requestStarted(QWebEngineUrlRequestJob* job) {
  const QUrl url = job->requestUrl();
  if (job->requestMethod() != "GET") return job->fail(QWebEngineUrlRequestJob::RequestDenied);
  if (url.path() == QLatin1String("/") && url.query() == QString::number(pieces_)) {
    auto* bytes = new QBuffer(job);
    bytes->setData(piece_);
    return job->reply(kDocumentType, bytes);
  }
  const QString path = canonicalFile(url);
  auto* file = new QFile(path, job);
  if (path.isEmpty() || !file->open(QIODevice::ReadOnly)) {
    // The file is the job's.
    // NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDeleteLeaks)
    return job->fail(QWebEngineUrlRequestJob::UrlNotFound);
  }
  if (path == document_) return job->reply(kDocumentType, file);
  job->reply(QMimeDatabase().mimeTypeForFile(path).name().toLatin1(), file);
}

void FolderOnly::interceptRequest(QWebEngineUrlRequestInfo& info) {
  constexpr QWebEngineUrlRequestInfo::ResourceType kServed[] = {
      QWebEngineUrlRequestInfo::ResourceTypeMainFrame,
      QWebEngineUrlRequestInfo::ResourceTypeStylesheet, QWebEngineUrlRequestInfo::ResourceTypeImage,
      QWebEngineUrlRequestInfo::ResourceTypeFontResource};
  const bool served =
      std::find(std::begin(kServed), std::end(kServed), info.resourceType()) != std::end(kServed);
  info.block(!served || info.requestUrl().scheme() != QLatin1String(kScheme));
}

SafeProfile::SafeProfile() {
  installUrlSchemeHandler(kScheme, &scheme);
  setUrlRequestInterceptor(&interceptor_);
  setHttpCacheType(NoCache);
  setPersistentCookiesPolicy(NoPersistentCookies);
  setSpellCheckEnabled(false);
  lockDown();
  addStyle();
}

SafeProfile::~SafeProfile() = default;

void SafeProfile::lockDown() {
  using Settings = QWebEngineSettings;
  Settings& all = *settings();
  for (const auto attribute :
       {Settings::JavascriptEnabled, Settings::JavascriptCanOpenWindows,
        Settings::JavascriptCanAccessClipboard, Settings::LocalStorageEnabled,
        Settings::LocalContentCanAccessRemoteUrls, Settings::LocalContentCanAccessFileUrls,
        Settings::HyperlinkAuditingEnabled, Settings::PluginsEnabled,
        Settings::FullScreenSupportEnabled, Settings::ScreenCaptureEnabled, Settings::WebGLEnabled,
        Settings::AutoLoadIconsForPage, Settings::ErrorPageEnabled,
        Settings::AllowRunningInsecureContent, Settings::AllowGeolocationOnInsecureOrigins,
        Settings::DnsPrefetchEnabled, Settings::PdfViewerEnabled, Settings::NavigateOnDropEnabled,
        Settings::FocusOnNavigationEnabled}) {
    all.setAttribute(attribute, false);
  }
  all.setAttribute(Settings::PrintElementBackgrounds, true);
  all.setUnknownUrlSchemePolicy(Settings::DisallowUnknownUrlSchemes);
  // "Arial Narrow" is nowhere to be had; what the engine does not know takes this one.
  for (const char* narrow : {"Arial Narrow", "Liberation Sans Narrow", "Nimbus Sans Narrow"}) {
    if (!QFontDatabase::hasFamily(QLatin1String(narrow))) continue;
    all.setFontFamily(Settings::StandardFont, QLatin1String(narrow));
    break;
  }
}

void SafeProfile::addStyle() {
  QWebEngineScript script;
  script.setInjectionPoint(QWebEngineScript::DocumentCreation);
  script.setWorldId(QWebEngineScript::ApplicationWorld);
  script.setSourceCode(QString::fromLatin1(kAddStyle).arg(QLatin1String(kStyle)));
  scripts()->insert(script);
}

SafePage::SafePage(SafeProfile& profile) : QWebEnginePage(&profile) {}

void SafePage::open(const QUrl& url) {
  own_ = url;
  load(url);
}

void SafePage::setTextSize(int level) {
  const int size = kTextSizes[std::clamp(level, 0, static_cast<int>(std::size(kTextSizes)) - 1)];
  settings()->setFontSize(QWebEngineSettings::DefaultFontSize, size);
  settings()->setFontSize(QWebEngineSettings::DefaultFixedFontSize, size * 13 / 16);
}

bool SafePage::acceptNavigationRequest(const QUrl& url, NavigationType type, bool isMainFrame) {
  return isMainFrame && type == NavigationTypeTyped && url == own_;
}

}  // namespace paperway::web
