#include "windows/printing/driver_settings.h"

#include <algorithm>

#include "page_document/drawing.h"
#include "windows/api/wide_text.h"
#include "windows/printing/forms.h"
#include "windows/printing/printer_handle.h"

namespace td {
namespace {

std::int16_t AsShort(int number) {
  return static_cast<std::int16_t>(std::clamp(number, -32'768, 32'767));
}

}  // namespace

DriverSettings::DriverSettings(const std::string& printer, const std::vector<std::byte>& chosen)
    : printer_(printer) {
  const PrinterHandle opened = OpenPrinterOf(printer);
  if (!opened) return;
  std::wstring name = ToWide(printer);
  const LONG size = DocumentPropertiesW(nullptr, opened.get(), name.data(), nullptr, nullptr, 0);
  if (size < static_cast<LONG>(sizeof(DEVMODEW))) return;
  mode_.resize(static_cast<std::size_t>(size));
  if (DocumentPropertiesW(nullptr, opened.get(), name.data(), &Changed(), nullptr, DM_OUT_BUFFER) !=
      IDOK) {
    mode_.clear();
    return;
  }
  if (chosen.size() < sizeof(DEVMODEW)) return;
  mode_ = chosen;
  mode_.resize(std::max(mode_.size(), static_cast<std::size_t>(size)));
  Complete();
}

void DriverSettings::Complete() {
  const PrinterHandle opened = OpenPrinterOf(printer_);
  if (!opened) return;
  std::vector<std::byte> completed(mode_.size());
  const LONG result = DocumentPropertiesW(nullptr, opened.get(), ToWide(printer_).data(),
                                          reinterpret_cast<DEVMODEW*>(completed.data()), &Changed(),
                                          DM_IN_BUFFER | DM_OUT_BUFFER);
  if (result == IDOK) mode_ = std::move(completed);
}

std::optional<PaperExtent> DriverSettings::Sheet() const {
  constexpr DWORD kSides = DM_PAPERWIDTH | DM_PAPERLENGTH;
  const bool hasSides = (Mode()->dmFields & kSides) == kSides && Mode()->dmPaperWidth > 0 &&
                        Mode()->dmPaperLength > 0;
  // What a user has entered for a sheet of his own stands beside a number that drivers list, too.
  const bool isEntered = hasSides && Mode()->dmPaperSize == DMPAPER_USER;
  if ((Mode()->dmFields & DM_PAPERSIZE) != 0 && !isEntered) {
    for (const Form& form : FormsOf(printer_)) {
      if (form.number == Mode()->dmPaperSize) return form.sheet;
    }
    if (const auto standard = StandardPaper(Mode()->dmPaperSize)) return standard;
  }
  if (!hasSides) return std::nullopt;
  const double twipsPerTenth = kTwipsPerMillimetre / 10;
  return PaperExtent{Mode()->dmPaperWidth * twipsPerTenth, Mode()->dmPaperLength * twipsPerTenth};
}

void DriverSettings::PutSheet(const PaperExtent& sheet, std::int32_t code) {
  const std::optional<std::int16_t> number = FormNumber(printer_, sheet, code);
  DEVMODEW& mode = Changed();
  mode.dmFields &= ~static_cast<DWORD>(DM_FORMNAME | DM_PAPERWIDTH | DM_PAPERLENGTH | DM_SCALE);
  mode.dmFields |= DM_PAPERSIZE;
  if (number) {
    mode.dmPaperSize = *number;
  } else {
    // In some drivers the number for any size is that of a sheet of their own.
    const bool isTaken = std::ranges::count(FormsOf(printer_), DMPAPER_USER, &Form::number) > 0;
    mode.dmPaperSize = isTaken ? 0 : DMPAPER_USER;
    if (isTaken) mode.dmFields &= ~static_cast<DWORD>(DM_PAPERSIZE);
    mode.dmFields |= DM_PAPERWIDTH | DM_PAPERLENGTH;
    mode.dmPaperWidth = AsShort(Tenths(sheet.width));
    mode.dmPaperLength = AsShort(Tenths(sheet.height));
  }
  mode.dmScale = 100;
  Complete();
}

void DriverSettings::PutLandscape(bool landscape) {
  DEVMODEW& mode = Changed();
  mode.dmFields |= DM_ORIENTATION;
  mode.dmOrientation = landscape ? DMORIENT_LANDSCAPE : DMORIENT_PORTRAIT;
  Complete();
}

int DriverSettings::PutOptions(const JobOptions& options) {
  DEVMODEW& mode = Changed();
  mode.dmFields |= DM_COLLATE;
  mode.dmCollate = options.collated ? DMCOLLATE_TRUE : DMCOLLATE_FALSE;
  PutCopies(options.copies);
  if (options.copies == 1 || MakesCopies(options)) return 1;
  PutCopies(1);  // or each of those that are sent would be multiplied
  return options.copies;
}

void DriverSettings::PutCopies(int copies) {
  Changed().dmFields |= DM_COPIES;
  Changed().dmCopies = AsShort(copies);
  Complete();
}

int DriverSettings::Ability(WORD which) const {
  return std::max(0,
                  DeviceCapabilitiesW(ToWide(printer_).c_str(), nullptr, which, nullptr, nullptr));
}

bool DriverSettings::MakesCopies(const JobOptions& options) const {
  const bool counts = (Mode()->dmFields & DM_COPIES) != 0 && Mode()->dmCopies == options.copies &&
                      Ability(DC_COPIES) >= options.copies;
  return counts && (!options.collated || Ability(DC_COLLATE) != 0);
}

}  // namespace td
