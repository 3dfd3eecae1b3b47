#include "windows/printing/forms.h"

#include <algorithm>
#include <cmath>

#include "page_document/drawing.h"
#include "windows/printing/printer_handle.h"

namespace td {
namespace {

constexpr double kTwipsPerTenth = kTwipsPerMillimetre / 10;

// "QbTdPrinter 241.0 x 140.0 mm"
std::wstring NameOf(const PaperExtent& sheet) {
  const auto millimetres = [](double twips) {
    const int tenths = Tenths(twips);
    return std::to_wstring(tenths / 10) + L"." + std::to_wstring(tenths % 10);
  };
  return L"QbTdPrinter " + millimetres(sheet.width) + L" x " + millimetres(sheet.height) + L" mm";
}

bool AddFormFor(const std::string& printer, const PaperExtent& sheet) {
  const PrinterHandle opened = OpenPrinterOf(printer, PRINTER_ACCESS_ADMINISTER);
  if (!opened) return false;
  std::wstring name = NameOf(sheet);
  // Forms are measured in thousandths of a millimetre.
  const LONG width = 100 * Tenths(sheet.width);
  const LONG height = 100 * Tenths(sheet.height);
  FORM_INFO_1W form{FORM_USER, name.data(), {width, height}, {0, 0, width, height}};
  return AddFormW(opened.get(), 1, reinterpret_cast<BYTE*>(&form)) != FALSE;
}

// Some drivers tell the sheets of the standard in whole points of their own.
bool IsAlmost(const PaperExtent& form, const PaperExtent& standard) {
  return std::abs(form.width - standard.width) <= kTwipsPerMillimetre &&
         std::abs(form.height - standard.height) <= kTwipsPerMillimetre;
}

std::optional<std::int16_t> NumberAmong(const std::vector<Form>& forms, const PaperExtent& sheet,
                                        std::int32_t code) {
  for (const Form& form : forms) {
    if (form.number == code && IsAlmost(form.sheet, sheet)) return form.number;
  }
  const auto fits = [&sheet](const Form& form) { return IsSameSheet(form.sheet, sheet); };
  const auto found = std::ranges::find_if(forms, fits);
  if (found == forms.end()) return std::nullopt;
  return found->number;
}

}  // namespace

int Tenths(double twips) {
  return static_cast<int>(std::lround(twips / kTwipsPerTenth));
}

std::vector<Form> FormsOf(const std::string& printer) {
  const std::wstring name = ToWide(printer);
  const int count = DeviceCapabilitiesW(name.c_str(), nullptr, DC_PAPERS, nullptr, nullptr);
  if (count <= 0) return {};
  std::vector<WORD> numbers(static_cast<std::size_t>(count));
  std::vector<POINT> sizes(numbers.size());
  const bool isRead =
      DeviceCapabilitiesW(name.c_str(), nullptr, DC_PAPERS,
                          reinterpret_cast<wchar_t*>(numbers.data()), nullptr) == count &&
      DeviceCapabilitiesW(name.c_str(), nullptr, DC_PAPERSIZE,
                          reinterpret_cast<wchar_t*>(sizes.data()), nullptr) == count;
  if (!isRead) return {};
  std::vector<Form> forms;
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    if (sizes[i].x <= 0 || sizes[i].y <= 0) continue;  // one that a user is to enter
    forms.push_back({static_cast<std::int16_t>(numbers[i]),
                     {sizes[i].x * kTwipsPerTenth, sizes[i].y * kTwipsPerTenth}});
  }
  return forms;
}

std::optional<std::int16_t> FormNumber(const std::string& printer, const PaperExtent& sheet,
                                       std::int32_t code) {
  if (const auto known = NumberAmong(FormsOf(printer), sheet, code)) return known;
  if (!AddFormFor(printer, sheet)) return std::nullopt;
  return NumberAmong(FormsOf(printer), sheet, code);
}

}  // namespace td
