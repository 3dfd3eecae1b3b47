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
  std::string refusal;  // why there are no bars, in words for a user; empty if there are bars
};

// The symbologies are known by these names, in lower case: code128, code128b, code39,
// code39extended, code93, codabar, interleaved2of5, ean, upca, qrcode, datamatrix.
[[nodiscard]] bool IsSymbology(std::string_view name);

// Encodes a UTF-8 text. Where the symbology lacks one of its characters but carries any bytes, the
// code holds the bytes of the UTF-8 text. A text that it can't carry at all (empty, too long, other
// characters than it has) gives a symbol of that text without bars; the refusal never repeats the
// text. Fails with kInvalidCall when there is no such symbology.
[[nodiscard]] CodeSymbol EncodeSymbol(std::string_view symbology, const std::string& text);

}  // namespace td
