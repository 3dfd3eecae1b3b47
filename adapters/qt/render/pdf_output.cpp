#include <QBuffer>
#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>

#include "render/outputs.h"
#include "render/page_painter.h"
#include "render/pdf_mending.h"
#include "render/written_file.h"

namespace td {
namespace {

QPageLayout LayoutOf(const Page& page) {
  const QSize points(PointsToHold(page.width), PointsToHold(page.height));
  return {QPageSize(points, QString(), QPageSize::ExactMatch), QPageLayout::Portrait,
          QMarginsF(0, 0, 0, 0)};
}

}  // namespace

std::string ToPdf(const std::vector<Page>& pages, const std::string& title) {
  RequirePages(pages);
  QByteArray pdf;
  QBuffer buffer(&pdf);
  buffer.open(QIODevice::WriteOnly);
  QPdfWriter writer(&buffer);
  writer.setResolution(static_cast<int>(kTwipsPerInch));
  writer.setTitle(QString::fromStdString(title));
  writer.setPageLayout(LayoutOf(pages.front()));
  QPainter painter(&writer);
  for (const Page& page : pages) {
    if (&page != &pages.front()) {
      writer.setPageLayout(LayoutOf(page));
      writer.newPage();
    }
    DrawPage(painter, page);
  }
  painter.end();
  return MendPdf(pdf, pages).toStdString();
}

void WritePdf(const std::vector<Page>& pages, const std::string& path, const std::string& title) {
  WriteFile(path, [&](const ByteSink& sink) { sink(ToPdf(pages, title)); });
}

}  // namespace td
