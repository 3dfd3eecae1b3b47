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

PageRefs RefsTo(const std::vector<Page>& pages) {
  PageRefs refs;
  refs.reserve(pages.size());
  for (const Page& page : pages) refs.push_back(&page);
  return refs;
}

void StreamPdf(const PageRefs& pages, const std::string& title, const ByteSink& sink) {
  RequirePages(pages.size());
  MendedPdf file(pages, sink);
  {
    QPdfWriter writer(&file);
    writer.setResolution(static_cast<int>(kTwipsPerInch));
    writer.setTitle(QString::fromStdString(title));
    writer.setPageLayout(LayoutOf(*pages.front()));
    QPainter painter(&writer);
    for (std::size_t i = 0; i < pages.size(); ++i) {  // a page may come twice
      if (i > 0) {
        writer.setPageLayout(LayoutOf(*pages[i]));
        writer.newPage();
      }
      DrawPage(painter, *pages[i]);
      if (file.HasFailed()) break;
    }
  }
  file.Finish();
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

}  // namespace td
