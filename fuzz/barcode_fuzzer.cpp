// Any text is a code or a refusal, in every symbology, and its bars lie inside the symbol.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "barcodes/code_symbol.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  for (const char* symbology :
       {"code128", "code128b", "code39", "code39extended", "code93", "codabar", "interleaved2of5",
        "ean", "upca", "qrcode", "datamatrix"}) {
    const td::CodeSymbol symbol = td::EncodeSymbol(symbology, text);
    if (symbol.bars.empty() == symbol.refusal.empty()) std::abort();
    for (const td::CodeBar& bar : symbol.bars) {
      const bool inside = bar.left >= 0 && bar.top >= 0 && bar.left + bar.width <= symbol.width &&
                          bar.top + bar.height <= symbol.height;
      if (!inside) std::abort();
    }
  }
  return 0;
}
