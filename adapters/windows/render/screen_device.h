// The device on which fonts are looked up, and owners of what is selected into devices.
#pragma once

#include <memory>

#include "windows/api/windows_api.h"

namespace td {

// A device in memory, as fine as the screen; it is good as long as this thread goes on.
[[nodiscard]] HDC ScreenDevice();

struct DeviceCloser {
  using pointer = HDC;
  void operator()(HDC device) const { DeleteDC(device); }
};
using DeviceOwner = std::unique_ptr<HDC, DeviceCloser>;

template <typename Handle>
struct GdiObjectCloser {
  using pointer = Handle;
  void operator()(Handle object) const { DeleteObject(object); }
};
using FontOwner = std::unique_ptr<HFONT, GdiObjectCloser<HFONT>>;
using BrushOwner = std::unique_ptr<HBRUSH, GdiObjectCloser<HBRUSH>>;
using BitmapOwner = std::unique_ptr<HBITMAP, GdiObjectCloser<HBITMAP>>;
using RegionOwner = std::unique_ptr<HRGN, GdiObjectCloser<HRGN>>;

// How pixels of 32 bits lie in memory, row by row from the top.
[[nodiscard]] BITMAPINFO RowsFromTheTop(int width, int height);

// Selects an object as long as it lives.
class Selected {
 public:
  Selected(HDC device, HGDIOBJ object) : device_(device), former_(SelectObject(device, object)) {}
  ~Selected() { SelectObject(device_, former_); }
  Selected(const Selected&) = delete;
  Selected& operator=(const Selected&) = delete;

 private:
  HDC device_;
  HGDIOBJ former_;
};

}  // namespace td
