// A page with one of everything, and the regions in which each item stands alone.
#pragma once

#include <QImage>
#include <QRectF>
#include <string>
#include <vector>

#include "page_document/drawing.h"

namespace td {

FontRef Font(const std::string& name, double points, bool bold = false, bool italic = false);

// A page of a size in millimetres.
Page PageOf(double width, double height, std::vector<DrawingCommand> commands = {});

// A box in millimetres.
BoxText Box(const std::string& text, double left, double top, double width, double height,
            TextAlignment alignment = TextAlignment::kLeft, FontRef font = Font("宋体", 10.5));

// A file of the image in the format.
PictureRef PictureOf(const QImage& image, const char* format);

// A file of `width` by `height` pixels in the format, black with a white cross.
PictureRef Image(int width, int height, const char* format = "PNG");

// A page of 100 by 80 millimetres with the lines of kTable.
Page TablePage(double penWidth);

struct SampleItem {
  std::string name;
  QRectF region;  // millimetres
};

// 241 by 140 millimetres.
Page SamplePage();
std::vector<SampleItem> SampleItems();

}  // namespace td
