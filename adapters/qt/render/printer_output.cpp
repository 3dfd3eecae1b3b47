#include <QPageLayout>
#include <QPainter>
#include <QPrinter>
#include <algorithm>

#include "platform/failure.h"
#include "render/outputs.h"
#include "render/page_painter.h"
#include "render/pdf_mending.h"
#include "render/written_file.h"

namespace td {

QPageLayout PrinterLayout(const Page& page) {
  const QSize points(PointsToHold(page.width), PointsToHold(page.height));
  QPageLayout layout(QPageSize(points, QString(), QPageSize::ExactMatch), QPageLayout::Portrait,
                     QMarginsF(0, 0, 0, 0));
  layout.setMode(QPageLayout::FullPageMode);
  return layout;
}

void PaintPages(const std::vector<Page>& pages, QPrinter& printer, int first, int last) {
  RequirePages(pages);
  const int begin = std::max(first, 1);
  const int end = std::min(last, static_cast<int>(pages.size()));
  if (begin > end) throw Failure(kInvalidCall, "打印范围内没有页");
  const auto page = [&pages](int number) -> const Page& {
    return pages[static_cast<std::size_t>(number) - 1];
  };
  printer.setFullPage(true);
  printer.setPageLayout(PrinterLayout(page(begin)));
  QPainter painter;
  if (!painter.begin(&printer)) throw Failure(kDeviceIo, "无法开始打印作业");
  for (int number = begin; number <= end; ++number) {
    if (number > begin) {
      printer.setPageLayout(PrinterLayout(page(number)));
      if (!printer.newPage()) throw Failure(kDeviceIo, "打印机无法换页");
    }
    painter.save();
    painter.scale(printer.logicalDpiX() / kTwipsPerInch, printer.logicalDpiY() / kTwipsPerInch);
    DrawPage(painter, page(number));
    painter.restore();
  }
  if (!painter.end()) throw Failure(kDeviceIo, "打印作业没有完成");
}

}  // namespace td
