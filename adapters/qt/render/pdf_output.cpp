#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <string>
#include <vector>

#include "page_outputs/number_text.h"
#include "page_outputs/written_file.h"
#include "render/outputs.h"
#include "render/pdf_file.h"
#include "render/pdf_fonts.h"
#include "render/pdf_page.h"
#include "render/pdf_pictures.h"

namespace td {
namespace {

// A text as an entry of the file's properties.
std::string TextEntry(const std::string& text) {
  QByteArray units("\xFE\xFF");
  for (const QChar unit : QString::fromStdString(text)) {
    units.append(static_cast<char>(unit.unicode() >> 8));
    units.append(static_cast<char>(unit.unicode() & 0xFF));
  }
  return '<' + units.toHex().toStdString() + '>';
}

std::string Points(double twips) {
  return QByteArray::number(twips / kTwipsPerPoint, 'f', 4).toStdString();
}

// Writes the objects of a document, page by page.
class PdfDocument {
 public:
  PdfDocument(const ByteSink& sink, const PageCorrection& correction)
      : file_(sink), correction_(correction) {}

  void Write(const PageRefs& pages, const std::string& title) {
    file_.Put(thinLines_, "<</Type/ExtGState/SA true>>");
    for (const Page* page : pages) Put(*page);
    fonts_.Put();
    std::string kids;
    for (const int number : kids_) kids += Reference(number) + '\n';
    file_.Put(tree_,
              "<</Type/Pages/Count " + std::to_string(kids_.size()) + "/Kids[" + kids + "]>>");
    const int catalogue = file_.Reserve();
    file_.Put(catalogue, "<</Type/Catalog/Pages " + Reference(tree_) + ">>");
    const int information = file_.Reserve();
    const QString now = QDateTime::currentDateTimeUtc().toString("yyyyMMddhhmmss");
    file_.Put(information, "<</Title" + TextEntry(title) +
                               "/Producer(QbTdPrinter)/CreationDate(D:" + now.toStdString() +
                               "Z)>>");
    file_.End(catalogue, information);
  }

 private:
  void Put(const Page& page) {
    PdfPage drawn(fonts_, pictures_);
    drawn.Draw(page, correction_ ? correction_(page) : std::nullopt);
    const int content = file_.Reserve();
    file_.PutStream(content, "", drawn.Content());
    kids_.push_back(file_.Reserve());
    file_.Put(kids_.back(), "<</Type/Page/Parent " + Reference(tree_) + "/MediaBox[0 0 " +
                                Points(page.width) + ' ' + Points(page.height) + "]/Contents " +
                                Reference(content) + "/Resources<</ExtGState<</Thin " +
                                Reference(thinLines_) + ">>" + drawn.Resources() + ">>>>");
  }

  PdfFile file_;
  const PageCorrection& correction_;
  PdfFonts fonts_{file_};
  PdfPictures pictures_{file_};
  int tree_ = file_.Reserve();
  int thinLines_ = file_.Reserve();
  std::vector<int> kids_;  // the pages
};

}  // namespace

void StreamPdf(const PageRefs& pages, const std::string& title, const ByteSink& sink,
               const PageCorrection& correction) {
  RequirePages(pages.size());
  PdfDocument(sink, correction).Write(pages, title);
}

void StreamPdf(const PageRefs& pages, const std::string& title, const ByteSink& sink) {
  StreamPdf(pages, title, sink, {});
}

std::string ToPdf(const std::vector<Page>& pages, const std::string& title) {
  std::string pdf;
  StreamPdf(RefsTo(pages), title, [&pdf](std::string_view part) { pdf += part; });
  return pdf;
}

void WritePdf(const PageRefs& pages, const std::string& path, const std::string& title) {
  WriteFile(path, [&](const ByteSink& sink) { StreamPdf(pages, title, sink); });
}

void WritePdf(const std::vector<Page>& pages, const std::string& path, const std::string& title) {
  WritePdf(RefsTo(pages), path, title);
}

bool CanWritePdf() {
  return true;
}

}  // namespace td
