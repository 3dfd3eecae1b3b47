// A page of 500 text boxes, drawn by the renderer in glyph runs and, to compare with, box by box.
#include <benchmark/benchmark.h>

#include <QBuffer>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QPdfWriter>
#include <functional>

#include "render/font_faces.h"
#include "render/outputs.h"
#include "render/page_painter.h"

namespace td {
namespace {

constexpr int kRows = 100;
constexpr double kDotsPerInch = 150;

Page PageOf500Boxes() {
  const auto song = std::make_shared<const TextFont>(TextFont{"宋体", 9, false, false});
  const auto hei = std::make_shared<const TextFont>(TextFont{"黑体", 9, false, false});
  Page page{11906, 16838, {}};
  const auto add = [&page](const std::string& text, int column, int row, const FontRef& font,
                           TextAlignment alignment) {
    page.commands.emplace_back(
        BoxText{text, 400.0 + column * 2200, 200.0 + row * 160, 2100, 160, false, alignment, font});
  };
  for (int row = 0; row < kRows; ++row) {
    const std::string number = std::to_string(row);
    add("镀锌水管六分厚壁", 0, row, song, TextAlignment::kLeft);
    add("不锈钢螺丝 M6×" + number, 1, row, song, TextAlignment::kLeft);
    add("箱", 2, row, hei, TextAlignment::kCentre);
    add(number + "345.67", 3, row, song, TextAlignment::kRight);
    add("98" + number + ".50", 4, row, hei, TextAlignment::kRight);
  }
  return page;
}

void DrawInGlyphRuns(QPainter& painter, const Page& page) {
  DrawPage(painter, page);
}

void DrawBoxByBox(QPainter& painter, const Page& page) {
  for (const DrawingCommand& command : page.commands) {
    const auto& box = std::get<BoxText>(command);
    const int alignment = box.alignment == TextAlignment::kLeft     ? Qt::AlignLeft
                          : box.alignment == TextAlignment::kCentre ? Qt::AlignHCenter
                                                                    : Qt::AlignRight;
    painter.setFont(FacesOf(*box.font).Primary()->font);
    painter.drawText(QRectF(box.left, box.top, box.width, box.height),
                     alignment | Qt::AlignVCenter | Qt::TextSingleLine | Qt::TextDontClip,
                     QString::fromStdString(box.text));
  }
}

using Drawing = void (*)(QPainter&, const Page&);

void OntoPdf(benchmark::State& state, Drawing draw) {
  const Page page = PageOf500Boxes();
  qsizetype size = 0;
  for (auto unused : state) {
    QByteArray pdf;
    QBuffer buffer(&pdf);
    buffer.open(QIODevice::WriteOnly);
    {
      QPdfWriter writer(&buffer);
      writer.setResolution(static_cast<int>(kTwipsPerInch));
      QPainter painter(&writer);
      for (int copy = 0; copy < 20; ++copy) {
        if (copy > 0) writer.newPage();
        draw(painter, page);
      }
    }
    size = pdf.size();
  }
  state.SetItemsProcessed(state.iterations() * 20);
  state.counters["bytes"] = static_cast<double>(size);
}

void OntoImage(benchmark::State& state, Drawing draw) {
  const Page page = PageOf500Boxes();
  QImage image(1240, 1754, QImage::Format_RGB32);
  for (auto unused : state) {
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(kDotsPerInch / kTwipsPerInch, kDotsPerInch / kTwipsPerInch);
    draw(painter, page);
  }
  state.SetItemsProcessed(state.iterations());
}

void IntoHtml(benchmark::State& state) {
  const std::vector<Page> pages = {PageOf500Boxes()};
  for (auto unused : state) benchmark::DoNotOptimize(ToHtml(pages, "benchmark"));
  state.SetItemsProcessed(state.iterations());
}

BENCHMARK_CAPTURE(OntoPdf, glyph_runs, DrawInGlyphRuns)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(OntoPdf, box_by_box, DrawBoxByBox)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(OntoImage, glyph_runs, DrawInGlyphRuns)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(OntoImage, box_by_box, DrawBoxByBox)->Unit(benchmark::kMillisecond);
BENCHMARK(IntoHtml)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace td

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
