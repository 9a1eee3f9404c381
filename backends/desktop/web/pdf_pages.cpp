#include "backends/desktop/web/pdf_pages.h"

#include <QFontMetricsF>
#include <deque>
#include <qpdf/Buffer.hh>
#include <qpdf/JSON.hh>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFPageDocumentHelper.hh>
#include <qpdf/QPDFPageObjectHelper.hh>
#include <qpdf/QPDFWriter.hh>

#include "paperway/automation_error.h"
#include "util/code_page.h"

namespace paperway::web {
namespace {

constexpr double kPointsPerInch = 72;
constexpr double kTextSize = 9;  // points
constexpr char kFontName[] = "/PaperwayMarks";

void open(QPDF& pdf, const std::string& bytes) {
  pdf.setSuppressWarnings(true);
  pdf.processMemoryFile("page", bytes.data(), bytes.size());
}

template <typename Work>
auto whole(const Work& work) {
  try {
    return work();
  } catch (const AutomationError&) {
    throw;
  } catch (const std::exception& error) {
    throw AutomationError(AutomationError::kApplicationDefined, "Print",
                          std::string("The printed pages cannot be put together: ") + error.what());
  }
}

/// The bytes of a PDF string in the font's encoding, which is that of windows-1252.
std::string pdfString(const std::string& text) {
  std::string escaped = "(";
  for (const char byte : CodePage::windows1252().encode(text)) {
    if (byte == '(' || byte == ')' || byte == '\\') escaped += '\\';
    escaped += byte;
  }
  return escaped + ")";
}

/// Writes the lines of the pages of one document.
class Marks {
 public:
  Marks(QPDF& pdf, const LineMargins& margins)
      : pdf_(pdf),
        margins_(margins),
        font_(pdf.makeIndirectObject(QPDFObjectHandle::parse(
            "<< /Type /Font /Subtype /Type1 /BaseFont /Helvetica /Encoding /WinAnsiEncoding >>"))) {
    // Metrics of Helvetica.
    measured_.setPixelSize(1000);
  }

  void add(QPDFPageObjectHelper page, const PageLines& lines) {
    const QPDFObjectHandle::Rectangle paper =
        page.getAttribute("/MediaBox", false).getArrayAsRectangle();
    const double top = paper.ury - margins_.top * kPointsPerInch - kTextSize;
    const double bottom = paper.lly + margins_.bottom * kPointsPerInch;
    const std::string drawn = line(lines.header, paper, top) + line(lines.footer, paper, bottom);
    if (drawn.empty()) return;
    useFont(page);
    page.addPageContents(pdf_.newStream("q\n"), true);
    page.addPageContents(pdf_.newStream("\nQ q\n" + drawn + "Q\n"), false);
  }

 private:
  double width(const std::string& text) const {
    return QFontMetricsF(measured_).horizontalAdvance(QString::fromStdString(text)) / 1000 *
           kTextSize;
  }

  std::string line(const MarkLine& marks, const QPDFObjectHandle::Rectangle& paper,
                   double y) const {
    const double left = paper.llx + margins_.left * kPointsPerInch;
    const double right = paper.urx - margins_.right * kPointsPerInch;
    std::string drawn;
    for (std::size_t place = 0; place < marks.size(); ++place) {
      if (marks[place].empty()) continue;
      const double spare = right - left - width(marks[place]);
      const double x = left + spare * static_cast<double>(place) / 2;
      drawn += "BT " + std::string(kFontName) + " " + std::to_string(kTextSize) + " Tf " +
               std::to_string(x) + " " + std::to_string(y) + " Td " + pdfString(marks[place]) +
               " Tj ET\n";
    }
    return drawn;
  }

  void useFont(QPDFPageObjectHelper& page) {
    QPDFObjectHandle resources = page.getAttribute("/Resources", true);
    if (!resources.isDictionary()) {
      resources = QPDFObjectHandle::newDictionary();
      page.getObjectHandle().replaceKey("/Resources", resources);
    }
    QPDFObjectHandle fonts = resources.getKey("/Font");
    fonts = fonts.isDictionary() ? fonts.shallowCopy() : QPDFObjectHandle::newDictionary();
    fonts.replaceKey(kFontName, font_);
    resources.replaceKey("/Font", fonts);
  }

  QPDF& pdf_;
  const LineMargins margins_;
  QPDFObjectHandle font_;
  QFont measured_{QStringLiteral("Liberation Sans")};
};

void describe(QPDF& pdf, const std::string& title) {
  QPDFObjectHandle info = QPDFObjectHandle::newDictionary();
  info.replaceKey("/Title", QPDFObjectHandle::newUnicodeString(title));
  info.replaceKey("/Creator", QPDFObjectHandle::newString("Paperway"));
  pdf.getTrailer().replaceKey("/Info", pdf.makeIndirectObject(info));
}

std::string written(QPDF& pdf) {
  QPDFWriter writer(pdf);
  writer.setOutputMemory();
  writer.setObjectStreamMode(qpdf_o_generate);
  writer.write();
  const std::unique_ptr<Buffer> bytes(writer.getBuffer());
  return {reinterpret_cast<const char*>(bytes->getBuffer()), bytes->getSize()};
}

}  // namespace

std::size_t pageCount(const std::string& pdf) {
  return whole([&] {
    QPDF document;
    open(document, pdf);
    return document.getAllPages().size();
  });
}

std::string joinedPdf(const std::vector<std::string>& documents, const std::string& title,
                      const LineMargins& margins,
                      const std::function<PageLines(std::size_t page)>& lines) {
  return whole([&] {
    QPDF joined;
    joined.emptyPDF();
    describe(joined, title);
    QPDFPageDocumentHelper pages(joined);
    std::deque<QPDF> sources;  // are read while the whole is written
    for (const std::string& document : documents) {
      open(sources.emplace_back(), document);
      for (const QPDFPageObjectHelper& page :
           QPDFPageDocumentHelper(sources.back()).getAllPages()) {
        pages.addPage(page, false);
      }
    }
    Marks marks(joined, margins);
    std::size_t number = 0;
    for (const QPDFPageObjectHelper& page : pages.getAllPages()) marks.add(page, lines(++number));
    return written(joined);
  });
}

}  // namespace paperway::web
