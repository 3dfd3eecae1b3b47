// The barcode maker of a print window.
#pragma once

#include <string>

#include "platform/pictures.h"

namespace td {

class Barcode {
 public:
  virtual ~Barcode() = default;

  // Takes the text to encode. Before the first call it is "110101-234234-1/6".
  virtual void PutData(const std::string& data) = 0;

  // A picture of the code for the last text, to be scaled into any box: any text gives one, at
  // least in letters.
  virtual PictureRef GetPicture() = 0;
};

}  // namespace td
