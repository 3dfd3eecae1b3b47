// The barcode maker on the zint library.
#pragma once

#include <functional>
#include <string>

#include "barcodes/barcode_settings.h"
#include "platform/barcode.h"

namespace td {

// The picture is a VectorPicture. Its natural size is 52.12 by 12.96 millimetres, the line for
// human readers in 宋体 at 14.25 points below the bars (smaller when the text is wider than that);
// a two-dimensional code has no such line and is a square of 12.96 millimetres. Drawn into a box,
// bars and letters stretch with it. A text that the symbology can't carry fills the picture in
// letters alone, whether or not the settings want a line below bars.
class ZintBarcode : public Barcode {
 public:
  // Takes the reason why a picture has no bars.
  using Complain = std::function<void(const std::string& reason)>;

  explicit ZintBarcode(BarcodeSettings settings = {}, Complain complain = {})
      : settings_(std::move(settings)), complain_(std::move(complain)) {}

  void PutData(const std::string& data) override { data_ = data; }
  // Fails with kInvalidCall when the settings name no known symbology.
  PictureRef GetPicture() override;

 private:
  BarcodeSettings settings_;
  Complain complain_;
  std::string data_ = "110101-234234-1/6";
};

}  // namespace td
