// The system's library of picture files, for as long as one picture is decoded or encoded: it must
// not stay behind in a process that unloads the component.
#pragma once

#include <objidl.h>

#include <algorithm>
#include <memory>

#include "windows/api/windows_api.h"

// The library's headers ask for these two without saying where they come from.
namespace Gdiplus {
using std::max;
using std::min;
}  // namespace Gdiplus

#include <gdiplus.h>

namespace td {

class GdiplusSession {
 public:
  GdiplusSession() {
    const Gdiplus::GdiplusStartupInput input;
    isOpen_ = Gdiplus::GdiplusStartup(&token_, &input, nullptr) == Gdiplus::Ok;
  }
  ~GdiplusSession() {
    if (isOpen_) Gdiplus::GdiplusShutdown(token_);
  }
  GdiplusSession(const GdiplusSession&) = delete;
  GdiplusSession& operator=(const GdiplusSession&) = delete;

  [[nodiscard]] bool IsOpen() const { return isOpen_; }

 private:
  ULONG_PTR token_ = 0;
  bool isOpen_ = false;
};

struct StreamReleaser {
  void operator()(IStream* stream) const { stream->Release(); }
};
using StreamOwner = std::unique_ptr<IStream, StreamReleaser>;

}  // namespace td
