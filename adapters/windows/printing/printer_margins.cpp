#include <algorithm>

#include "page_document/drawing.h"
#include "windows/api/wide_text.h"
#include "windows/printing/driver_settings.h"
#include "windows/printing/forms.h"
#include "windows/printing/printers.h"
#include "windows/render/screen_device.h"

namespace td {

std::optional<SheetMargins> MarginsOf(const std::string& printer, const PaperExtent& sheet) {
  const std::vector<Form> forms = FormsOf(printer);
  const auto form = std::ranges::find_if(
      forms, [&sheet](const Form& one) { return IsSameSheet(one.sheet, sheet); });
  if (form == forms.end()) return std::nullopt;
  DriverSettings settings(printer);
  if (!settings.IsKnown()) return std::nullopt;
  settings.PutSheet(form->sheet, form->number);
  settings.PutLandscape(false);
  const DeviceOwner device(
      CreateICW(L"WINSPOOL", ToWide(printer).c_str(), nullptr, settings.Mode()));
  if (!device) return std::nullopt;
  const auto twips = [&device](int index, int dotsPerInch) {
    return GetDeviceCaps(device.get(), index) * kTwipsPerInch /
           GetDeviceCaps(device.get(), dotsPerInch);
  };
  SheetMargins margins;
  margins.left = twips(PHYSICALOFFSETX, LOGPIXELSX);
  margins.top = twips(PHYSICALOFFSETY, LOGPIXELSY);
  margins.right = twips(PHYSICALWIDTH, LOGPIXELSX) - margins.left - twips(HORZRES, LOGPIXELSX);
  margins.bottom = twips(PHYSICALHEIGHT, LOGPIXELSY) - margins.top - twips(VERTRES, LOGPIXELSY);
  return margins;
}

}  // namespace td
