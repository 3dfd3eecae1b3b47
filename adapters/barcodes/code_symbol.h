// From a text to the bars of a code.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace td {

// A dark rectangle of a code, in modules (the width of the narrowest bar) from its top left corner.
struct CodeBar {
  double left = 0;
  double top = 0;
  double width = 0;
  double height = 0;
};

struct CodeSymbol {
  double width = 0;  // modules, with the quiet zones that the symbology asks for
  double height = 0;
  std::vector<CodeBar> bars;
  std::string text;     // the line for human readers, UTF-8; empty for codes that have none
  bool square = false;  // a two-dimensional code: its width and height share one scale
};

// The symbologies are known by these names, in lower case: code128, code128b, code39,
// code39extended, code93, codabar, interleaved2of5, ean, upca, qrcode, datamatrix.
[[nodiscard]] bool IsSymbology(std::string_view name);

// Encodes a UTF-8 text. Fails with kInvalidPicture when the text is empty, too long or has
// characters that the symbology can't carry; with kInvalidCall when there is no such symbology.
// The description never repeats the text.
[[nodiscard]] CodeSymbol EncodeSymbol(std::string_view symbology, const std::string& text);

}  // namespace td
