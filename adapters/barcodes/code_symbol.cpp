#include "barcodes/code_symbol.h"

#include <zint.h>

#include <algorithm>
#include <array>
#include <memory>

#include "platform/failure.h"

namespace td {
namespace {

struct Symbology {
  std::string_view name;
  std::string_view shown;
  int zintCode;
  bool square;
};

constexpr std::array kSymbologies = {
    Symbology{"code128", "Code 128", BARCODE_CODE128, false},
    Symbology{"code128b", "Code 128 B", BARCODE_CODE128B, false},
    Symbology{"code39", "Code 39", BARCODE_CODE39, false},
    Symbology{"code39extended", "Code 39 扩展", BARCODE_EXCODE39, false},
    Symbology{"code93", "Code 93", BARCODE_CODE93, false},
    Symbology{"codabar", "Codabar", BARCODE_CODABAR, false},
    Symbology{"interleaved2of5", "交叉 25 码", BARCODE_C25INTER, false},
    Symbology{"ean", "EAN", BARCODE_EANX, false},
    Symbology{"upca", "UPC-A", BARCODE_UPCA, false},
    Symbology{"qrcode", "QR 码", BARCODE_QRCODE, true},
    Symbology{"datamatrix", "Data Matrix", BARCODE_DATAMATRIX, true},
};

// The longest text of any of them is below this; the encoder's own limits are narrower.
constexpr std::size_t kLongestText = 8000;

const Symbology* FindSymbology(std::string_view name) {
  const auto found = std::find_if(kSymbologies.begin(), kSymbologies.end(),
                                  [&](const Symbology& known) { return known.name == name; });
  return found == kSymbologies.end() ? nullptr : &*found;
}

struct DeleteSymbol {
  void operator()(zint_symbol* symbol) const { ZBarcode_Delete(symbol); }
};
using ZintSymbol = std::unique_ptr<zint_symbol, DeleteSymbol>;

ZintSymbol NewSymbol(const Symbology& symbology, int inputMode) {
  ZintSymbol symbol(ZBarcode_Create());
  if (!symbol) throw Failure(kOutOfMemory, "内存不足，无法生成条码图。");
  symbol->symbology = symbology.zintCode;
  symbol->input_mode = inputMode;
  symbol->output_options |= BARCODE_QUIET_ZONES;
  symbol->show_hrt = 0;
  return symbol;
}

// Empty if the encoder has made bars; its warnings leave usable ones.
std::string RefusalOf(int result) {
  if (result < ZINT_ERROR) return {};
  switch (result) {
    case ZINT_ERROR_TOO_LONG:
      return "条码内容的长度不合要求";
    case ZINT_ERROR_INVALID_DATA:
      return "条码内容含有这种条码不能表示的字符";
    case ZINT_ERROR_INVALID_CHECK:
      return "条码内容的校验位不正确";
    case ZINT_ERROR_MEMORY:
      throw Failure(kOutOfMemory, "内存不足，无法生成条码图。");
    default:
      return "编码失败，错误号 " + std::to_string(result);
  }
}

int Encode(zint_symbol& symbol, const std::string& text) {
  const int result = ZBarcode_Encode(&symbol, reinterpret_cast<const unsigned char*>(text.data()),
                                     static_cast<int>(text.size()));
  return result < ZINT_ERROR ? ZBarcode_Buffer_Vector(&symbol, 0) : result;
}

CodeSymbol WithoutBars(const Symbology& symbology, const std::string& text,
                       const std::string& reason) {
  CodeSymbol symbol;
  symbol.text = text;
  symbol.square = symbology.square;
  symbol.refusal =
      "无法生成条码图（" + std::string(symbology.shown) + "），只印出文字：" + reason + "。";
  return symbol;
}

CodeSymbol BarsOf(const zint_symbol& encoded, bool square) {
  constexpr double kUnitsPerModule = 2;  // of the encoder's vectors at scale 1
  CodeSymbol symbol;
  symbol.width = static_cast<double>(encoded.vector->width) / kUnitsPerModule;
  symbol.height = static_cast<double>(encoded.vector->height) / kUnitsPerModule;
  symbol.square = square;
  for (const zint_vector_rect* bar = encoded.vector->rectangles; bar != nullptr; bar = bar->next) {
    symbol.bars.push_back({static_cast<double>(bar->x) / kUnitsPerModule,
                           static_cast<double>(bar->y) / kUnitsPerModule,
                           static_cast<double>(bar->width) / kUnitsPerModule,
                           static_cast<double>(bar->height) / kUnitsPerModule});
  }
  symbol.text = reinterpret_cast<const char*>(encoded.text);
  return symbol;
}

}  // namespace

bool IsSymbology(std::string_view name) {
  return FindSymbology(name) != nullptr;
}

CodeSymbol EncodeSymbol(std::string_view name, const std::string& text) {
  const Symbology* symbology = FindSymbology(name);
  if (symbology == nullptr) throw Failure(kInvalidCall, "不支持的条码类型。");
  if (text.empty()) return WithoutBars(*symbology, text, "条码内容为空");
  if (text.size() > kLongestText) {
    return WithoutBars(*symbology, text, RefusalOf(ZINT_ERROR_TOO_LONG));
  }
  ZintSymbol encoded = NewSymbol(*symbology, UNICODE_MODE);
  int result = Encode(*encoded, text);
  const bool isBytes = result == ZINT_ERROR_INVALID_DATA;
  if (isBytes) {
    encoded = NewSymbol(*symbology, DATA_MODE);
    result = Encode(*encoded, text);
  }
  const std::string refusal = RefusalOf(result);
  if (!refusal.empty()) return WithoutBars(*symbology, text, refusal);
  CodeSymbol symbol = BarsOf(*encoded, symbology->square);
  if (isBytes && !symbol.text.empty()) symbol.text = text;  // the encoder shows byte by byte
  return symbol;
}

}  // namespace td
