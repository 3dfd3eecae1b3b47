// A page with every kind of command, and the tools to make others.
#pragma once

#include <string>
#include <vector>

#include "page_document/drawing.h"
#include "page_document/pictures.h"

namespace td {

// Lengths are millimetres.
[[nodiscard]] FontRef Font(const std::string& name, double points, bool bold = false,
                           bool italic = false);
[[nodiscard]] Page PageOf(double width, double height, std::vector<DrawingCommand> commands);
[[nodiscard]] BoxText Box(const std::string& text, double left, double top, double width,
                          double height, TextAlignment alignment = TextAlignment::kLeft,
                          FontRef font = Font("宋体", 10.5));
[[nodiscard]] PlacedPicture Placed(PictureRef picture, double left, double top, double width,
                                   double height);
// The pen's width is in twips.
[[nodiscard]] Line LineOf(double x1, double y1, double x2, double y2, double penWidth);

// A black picture with a white cross, as a PNG file; its right half shows what lies below it if
// `halfOpen`.
[[nodiscard]] PictureRef CrossPicture(int width, int height, bool halfOpen = false);
[[nodiscard]] PictureRef Bars();

[[nodiscard]] Page SamplePage();

}  // namespace td
