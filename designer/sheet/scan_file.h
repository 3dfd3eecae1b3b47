// Reads the picture of a form.
#pragma once

#include <QImage>
#include <string>

namespace td::designer {

// How many pages a file has: 1 of a picture, or those of a PDF file. Fails with Failure, in the
// desktop's language, for what can't be read.
[[nodiscard]] int PagesOfScan(const std::string& path);

// A picture file (PNG, JPEG, TIFF and what else Qt reads), upright as the camera meant it, or a
// page of a PDF file, from 1. Its resolution is that of the file. Fails like PagesOfScan.
[[nodiscard]] QImage ReadScan(const std::string& path, int page = 1);

}  // namespace td::designer
