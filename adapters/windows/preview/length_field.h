// An entry field for a length.
#pragma once

#include <string>

#include "windows/preview/window.h"

namespace td {

// Shows millimetres with one decimal and holds twips. A length that the user leaves alone keeps its
// exact value. Arrow keys, the arrows beside it and, with the focus, the wheel change it by one
// millimetre. What is no length counts as the last one that was.
class LengthField {
 public:
  LengthField() = default;
  ~LengthField();
  LengthField(const LengthField&) = delete;
  LengthField& operator=(const LengthField&) = delete;

  // From 0 to a longest length. The parent hears of changes by EN_CHANGE under the number.
  void Make(HWND parent, int id, double twips, double longestMillimetres);

  void PutTwips(double twips);
  [[nodiscard]] double Twips() const;

  void Enable(bool isEnabled);
  // In the middle of the height, for a resolution.
  void Place(const RECT& place, int dotsPerInch);

 private:
  static LRESULT CALLBACK Edited(HWND control, UINT message, WPARAM first, LPARAM second,
                                 UINT_PTR id, DWORD_PTR field);
  static LRESULT CALLBACK Turned(HWND control, UINT message, WPARAM first, LPARAM second,
                                 UINT_PTR id, DWORD_PTR field);
  [[nodiscard]] long Tenths() const;
  void ShowTenths(long tenths);
  void Step(int millimetres);

  HWND box_ = nullptr;
  HWND arrows_ = nullptr;
  HWND unit_ = nullptr;
  double twips_ = 0;
  long shownTenths_ = 0;         // what the box shows for `twips_`
  mutable long lastTenths_ = 0;  // the last length that was written
  long longestTenths_ = 0;
};

}  // namespace td
