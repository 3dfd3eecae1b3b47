// A library that is loaded while the program runs.
#pragma once

#include <filesystem>

namespace td {

class SharedLibrary {
 public:
  // Fails with kInvalidCall, with the system's reason.
  explicit SharedLibrary(const std::filesystem::path& path);
  ~SharedLibrary();
  SharedLibrary(const SharedLibrary&) = delete;
  SharedLibrary& operator=(const SharedLibrary&) = delete;

  // Null where the library has no such function.
  template <class Function>
  [[nodiscard]] Function* Find(const char* name) const {
    return reinterpret_cast<Function*>(Address(name));
  }

 private:
  [[nodiscard]] void* Address(const char* name) const;

  void* handle_;
};

}  // namespace td
