// Owner of an open file of Windows.
#pragma once

#include <string_view>
#include <utility>

#include "files/windows_files.h"
#include "windows/api/windows_api.h"

namespace td {

class WindowsFile {
 public:
  // Takes what the system returned; INVALID_HANDLE_VALUE: nothing is open.
  explicit WindowsFile(HANDLE handle) : handle_(handle) {}
  ~WindowsFile() { Close(); }
  WindowsFile(WindowsFile&& other) noexcept
      : handle_(std::exchange(other.handle_, INVALID_HANDLE_VALUE)) {}
  WindowsFile& operator=(WindowsFile&& other) noexcept {
    std::swap(handle_, other.handle_);
    return *this;
  }

  [[nodiscard]] HANDLE Handle() const { return handle_; }
  [[nodiscard]] bool IsOpen() const { return handle_ != INVALID_HANDLE_VALUE; }
  void Close() {
    if (IsOpen()) CloseHandle(std::exchange(handle_, INVALID_HANDLE_VALUE));
  }

 private:
  HANDLE handle_;
};

// Fails with FileError.
void WriteBytes(const WindowsFile& file, std::string_view bytes);

}  // namespace td
