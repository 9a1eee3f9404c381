#pragma once

#include <filesystem>
#include <memory>

#include "paperway/export.h"

namespace paperway {

/// What a page tells the control that shows it, on the thread of the windows.
class BrowserEvents {
 public:
  virtual ~BrowserEvents() = default;

  /// A document is about to take the place of the one on show.
  virtual void BeforeNavigate2() = 0;
  /// It can be read. Also said of one that could not be shown.
  virtual void DocumentComplete() = 0;
};

/// One web page on a form, and the printing of it. The document is a file, which may hold what
/// anybody typed: no script of it runs, nothing is fetched but files of its own folder, no link
/// leads anywhere. Failures are AutomationErrors, those of printers SpoolErrors.
class PAPERWAY_API BrowserPage {
 public:
  virtual ~BrowserPage() = default;

  /// Begins to show a file, which is windows-1252; BeforeNavigate2 comes before the call returns.
  /// An AutomationError when it cannot be read.
  virtual void Navigate(const std::filesystem::path& file) = 0;

  /// Lets the user change the page set-up and, for this page, the orientation, and waits for it.
  /// The dialog begins with landscape where the caller suggests it and the user has not chosen yet.
  virtual void pageSetup(bool suggestLandscape) = 0;
  /// Opens a window that shows the printed pages, and goes on.
  virtual void printPreview() = 0;
  /// One copy on the current printer, with no dialog.
  virtual void print() = 0;
  /// The printed pages as a PDF file. The document itself is refused as its target.
  virtual void savePdf(const std::filesystem::path& file) = 0;

  /// Orientation of this page's paper, whatever the printer's is.
  virtual void setLandscape(bool landscape) = 0;
  /// The size of the text, from 0, the smallest, to 4. It begins with that of the page set-up.
  virtual int zoom() = 0;
  virtual void setZoom(int level) = 0;
  /// Whether the page has a menu on the right mouse button; it has until it is taken away.
  virtual void offerContextMenu(bool offered) = 0;
};

/// Shows web pages on forms.
class PAPERWAY_API Browser {
 public:
  virtual ~Browser() = default;

  /// An empty page. `events` outlives it. An AutomationError when the engine cannot be started.
  virtual std::unique_ptr<BrowserPage> open(BrowserEvents& events) = 0;
};

}  // namespace paperway
