#include "windows/render/screen_device.h"

namespace td {

HDC ScreenDevice() {
  static DeviceOwner device;
  // The system takes it back when the thread that made it ends.
  if (GetObjectType(device.get()) != OBJ_MEMDC) device.reset(CreateCompatibleDC(nullptr));
  return device.get();
}

BITMAPINFO RowsFromTheTop(int width, int height) {
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof(BITMAPINFOHEADER);
  info.bmiHeader.biWidth = width;
  info.bmiHeader.biHeight = -height;
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  info.bmiHeader.biCompression = BI_RGB;
  return info;
}

}  // namespace td
