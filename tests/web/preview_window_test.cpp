#include <QComboBox>
#include <QDialog>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>
#include <QWebEngineView>
#include <QWheelEvent>

#include "web_fixture.h"

namespace paperway {
namespace {

/// The window of page pictures over a document of three pages.
class PagePreview : public WebWindow {
 protected:
  PagePreview() {
    machine_.printers.infos = {{"Laser", "", false}};
    const std::string next = "<p style = page-break-after:always> </p>";
    frmBrowser& form =
        open({.Path1 = write("page.html", "<p>first" + next + "<p>second" + next + "<p>third")});
    form.JeweledButton1.click();
    for (QWidget* window : QApplication::topLevelWidgets()) {
      if (window->objectName() == "PrintPreview") preview_ = static_cast<QDialog*>(window);
    }
  }
  ~PagePreview() override { delete preview_; }

  template <class Widget>
  Widget& find(const char* name) {
    return *preview_->findChild<Widget*>(name);
  }
  void press(const char* name) { QTest::mouseClick(&find<QPushButton>(name), Qt::LeftButton); }
  /// The page, and the buttons that lead somewhere.
  std::string place() {
    std::string text = std::to_string(find<QSpinBox>("page").value());
    for (const char* name : {"first", "previous", "next", "last"}) {
      if (find<QPushButton>(name).isEnabled()) text.append(" ").append(name);
    }
    return text;
  }

  QPointer<QDialog> preview_;
};

TEST_F(PagePreview, TurnsZoomsPrintsAndSaves) {
  ASSERT_TRUE(preview_);
  EXPECT_EQ(place(), "1 next last");
  press("next");
  EXPECT_EQ(place(), "2 first previous next last");
  press("last");
  EXPECT_EQ(place(), "3 first previous");
  press("previous");
  press("first");
  QTest::keyClick(preview_, Qt::Key_End);
  QTest::keyClick(preview_, Qt::Key_PageUp);
  EXPECT_EQ(place(), "2 first previous next last");
  const QImage whole = preview_->grab().toImage();
  QTest::keyClick(preview_, Qt::Key_Plus, Qt::ControlModifier);
  EXPECT_EQ(find<QComboBox>("zoom").currentText(), "Page width");
  EXPECT_NE(preview_->grab().toImage(), whole);

  press("print");
  ASSERT_EQ(machine_.spooler.jobs.size(), 1u);
  machine_.dialogs.files = {path("saved.pdf")};
  press("save");
  for (const std::string& pdf :
       {write("job.pdf", machine_.spooler.jobs[0]->bytes), path("saved.pdf")}) {
    const std::string text = textOf(pdf);
    EXPECT_EQ(count(text, "\f"), 3u) << pdf;
    EXPECT_LT(text.find("second"), text.find("Page 2 of 3")) << pdf;
  }
  machine_.printers.infos.clear();
  bool told = false;
  QTimer::singleShot(100, [&told] {
    if (QWidget* box = QApplication::activeModalWidget()) told = box->close();
  });
  press("print");
  EXPECT_TRUE(told) << "a printer that has gone is told";
  press("close");
}

TEST_F(WebWindow, TheWheelWithCtrlIsTheWindowsZoom) {
  frmBrowser& form = open({.Path1 = write("page.html", "<p>text")});
  QWebEngineView* view = nullptr;
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (view == nullptr) view = window->findChild<QWebEngineView*>();
  }
  ASSERT_TRUE(view);
  const int before = form.brwWebBrowser.page().zoom();
  const auto turn = [view](int by) {
    QWheelEvent wheel({20, 20},
                      view->mapToGlobal(QPointF(20, 20)),
                      {},
                      {0, by},
                      Qt::NoButton,
                      Qt::ControlModifier,
                      Qt::NoScrollPhase,
                      false);
    QApplication::sendEvent(view->focusProxy(), &wheel);
  };
  turn(120);
  EXPECT_EQ(form.brwWebBrowser.page().zoom(), before + 1);
  for (int i = 0; i < 9; ++i) turn(-120);
  EXPECT_EQ(form.brwWebBrowser.page().zoom(), 0);
  EXPECT_EQ(view->zoomFactor(), 1.0);
}

}  // namespace
}  // namespace paperway
