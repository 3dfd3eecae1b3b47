// The pictures inside a PDF file.
#pragma once

#include <QByteArray>
#include <QImage>
#include <map>
#include <string>

#include "page_document/pictures.h"
#include "render/pdf_file.h"

namespace td {

// Puts each picture once, where it is used first.
class PdfPictures {
 public:
  explicit PdfPictures(PdfFile& file) : file_(file) {}

  // The number of the object that shows a picture on a square of 1 by 1; 0 if it doesn't decode.
  int NumberOf(const ImagePicture& picture);

 private:
  int PutPicture(const ImagePicture& picture);
  int PutPixels(const QImage& image);
  std::string OpacityEntry(const QImage& image);

  PdfFile& file_;
  std::map<QByteArray, int> numbers_;  // by content
};

}  // namespace td
