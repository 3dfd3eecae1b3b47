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

ZintSymbol NewSymbol(const Symbology& symbology) {
  ZintSymbol symbol(ZBarcode_Create());
  if (!symbol) throw Failure(kOutOfMemory, "内存不足，无法生成条码图。");
  symbol->symbology = symbology.zintCode;
  symbol->input_mode = UNICODE_MODE;
  symbol->output_options |= BARCODE_QUIET_ZONES;
  symbol->show_hrt = 0;
  return symbol;
}

Failure CannotEncode(const Symbology& symbology, const std::string& reason) {
  return {kInvalidPicture,
          "无法生成条码图（" + std::string(symbology.shown) + "）：" + reason + "。"};
}

void ThrowOnError(const Symbology& symbology, int result) {
  if (result < ZINT_ERROR) return;  // warnings leave a usable symbol
  switch (result) {
    case ZINT_ERROR_TOO_LONG:
      throw CannotEncode(symbology, "条码内容的长度不合要求");
    case ZINT_ERROR_INVALID_DATA:
      throw CannotEncode(symbology, "条码内容含有这种条码不能表示的字符");
    case ZINT_ERROR_INVALID_CHECK:
      throw CannotEncode(symbology, "条码内容的校验位不正确");
    case ZINT_ERROR_MEMORY:
      throw Failure(kOutOfMemory, "内存不足，无法生成条码图。");
    default:
      throw CannotEncode(symbology, "编码失败，错误号 " + std::to_string(result));
  }
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
  if (text.empty()) throw CannotEncode(*symbology, "条码内容为空");
  if (text.size() > kLongestText) throw CannotEncode(*symbology, "条码内容的长度不合要求");

  const ZintSymbol symbol = NewSymbol(*symbology);
  ThrowOnError(*symbology,
               ZBarcode_Encode(symbol.get(), reinterpret_cast<const unsigned char*>(text.data()),
                               static_cast<int>(text.size())));
  ThrowOnError(*symbology, ZBarcode_Buffer_Vector(symbol.get(), 0));
  return BarsOf(*symbol, symbology->square);
}

}  // namespace td
