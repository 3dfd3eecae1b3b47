#include "windows/preview/length_field.h"

#include <commctrl.h>

#include <algorithm>
#include <cmath>
#include <cwchar>
#include <optional>

#include "page_document/drawing.h"
#include "windows/controls/control_making.h"
#include "windows/controls/modal_loop.h"
#include "windows/controls/text_fitting.h"
#include "windows/controls/visual_styles.h"

namespace td {
namespace {

std::string MillimetreText(long tenths) {
  return std::to_string(tenths / 10) + "." + std::to_string(tenths % 10);
}

std::optional<long> TenthsIn(const std::wstring& text) {
  wchar_t* end = nullptr;
  const double millimetres = std::wcstod(text.c_str(), &end);
  if (end == text.c_str() || *end != L'\0' || !std::isfinite(millimetres)) return std::nullopt;
  return std::lround(std::clamp(millimetres, 0.0, 1e6) * 10);
}

bool IsOfNumber(wchar_t character) {
  return (character >= L'0' && character <= L'9') || character == L'.' || character < L' ';
}

}  // namespace

LengthField::~LengthField() {
  if (box_ != nullptr) RemoveWindowSubclass(box_, Edited, 0);
  if (arrows_ != nullptr) RemoveWindowSubclass(arrows_, Turned, 0);
}

void LengthField::Make(HWND parent, int id, double twips, double longestMillimetres) {
  longestTenths_ = std::lround(longestMillimetres * 10);
  box_ = MakeControl(parent, WC_EDITW, "", WS_TABSTOP | ES_AUTOHSCROLL | ES_RIGHT, id,
                     WS_EX_CLIENTEDGE);
  arrows_ = MakeControl(parent, UPDOWN_CLASSW, "", 0);
  unit_ = MakeControl(parent, WC_STATICW, "mm", SS_CENTERIMAGE | SS_NOPREFIX);
  KeepInputMethodFrom(box_);
  SetWindowSubclass(box_, Edited, 0, reinterpret_cast<DWORD_PTR>(this));
  SetWindowSubclass(arrows_, Turned, 0, reinterpret_cast<DWORD_PTR>(this));
  // The control counts for itself; only its turns are of interest.
  SendMessageW(arrows_, UDM_SETRANGE32, static_cast<WPARAM>(-1'000'000), 1'000'000);
  PutTwips(twips);
}

void LengthField::ShowTenths(long tenths) {
  lastTenths_ = std::clamp(tenths, 0L, longestTenths_);
  PutTextInto(box_, MillimetreText(lastTenths_));
}

void LengthField::PutTwips(double twips) {
  twips_ = twips;
  shownTenths_ = std::clamp(std::lround(twips / kTwipsPerMillimetre * 10), 0L, longestTenths_);
  ShowTenths(shownTenths_);
}

long LengthField::Tenths() const {
  if (const auto written = TenthsIn(TextOf(box_))) lastTenths_ = std::min(*written, longestTenths_);
  return lastTenths_;
}

double LengthField::Twips() const {
  const long tenths = Tenths();
  return tenths == shownTenths_ ? twips_ : static_cast<double>(tenths) / 10 * kTwipsPerMillimetre;
}

void LengthField::Step(int millimetres) {
  if (IsWindowEnabled(box_) == FALSE) return;
  ShowTenths(Tenths() + 10L * millimetres);
  SendMessageW(box_, EM_SETSEL, 0, -1);
}

void LengthField::Enable(bool isEnabled) {
  for (const HWND control : {box_, arrows_}) EnableWindow(control, isEnabled ? TRUE : FALSE);
}

void LengthField::Place(const RECT& place, int dotsPerInch) {
  const auto right = static_cast<int>(place.right);
  const auto top = static_cast<int>(place.top);
  const int height = static_cast<int>(place.bottom) - top;
  const int arrows = Scaled(18, dotsPerInch);
  const int unit = Scaled(30, dotsPerInch);
  const int gap = Scaled(4, dotsPerInch);
  const auto font = reinterpret_cast<HFONT>(SendMessageW(box_, WM_GETFONT, 0, 0));
  const int box = TextBoxHeight(font, dotsPerInch);
  const int boxTop = top + (height - box) / 2;
  const int arrowsLeft = right - unit - arrows;
  td::Place(box_, static_cast<int>(place.left), boxTop, arrowsLeft - static_cast<int>(place.left),
            box);
  td::Place(arrows_, arrowsLeft, boxTop, arrows, box);
  td::Place(unit_, right - unit + gap, top, unit - gap, height);
}

LRESULT CALLBACK LengthField::Edited(HWND control, UINT message, WPARAM first, LPARAM second,
                                     UINT_PTR, DWORD_PTR context) {
  auto& field = *reinterpret_cast<LengthField*>(context);
  switch (message) {
    case WM_CHAR:
      if (!IsOfNumber(static_cast<wchar_t>(first))) return 0;
      break;
    case WM_KEYDOWN:
      if (first != VK_UP && first != VK_DOWN) break;
      field.Step(first == VK_UP ? 1 : -1);
      return 0;
    case WM_MOUSEWHEEL:
      field.Step(GET_WHEEL_DELTA_WPARAM(first) > 0 ? 1 : -1);
      return 0;
    case WM_KILLFOCUS:
      field.ShowTenths(field.Tenths());
      break;
    default:
      break;
  }
  return DefSubclassProc(control, message, first, second);
}

// An arrow was pressed, or is held: the control asks by setting its own position.
LRESULT CALLBACK LengthField::Turned(HWND control, UINT message, WPARAM first, LPARAM second,
                                     UINT_PTR, DWORD_PTR context) {
  auto& field = *reinterpret_cast<LengthField*>(context);
  const auto position = [control] {
    return static_cast<int>(SendMessageW(control, UDM_GETPOS32, 0, 0));
  };
  const int before = position();
  const LRESULT result = DefSubclassProc(control, message, first, second);
  if (message == WM_LBUTTONDOWN || message == WM_TIMER) {
    if (const int turned = position() - before; turned != 0) field.Step(turned > 0 ? 1 : -1);
  }
  return result;
}

}  // namespace td
