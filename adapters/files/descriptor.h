// Owner of an open file or folder.
#pragma once

#include <unistd.h>

#include <string_view>
#include <utility>

namespace td {

class Descriptor {
 public:
  // Takes what open and its relatives return; negative: nothing is open.
  explicit Descriptor(int number) : number_(number) {}
  ~Descriptor() { Close(); }
  Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(number_, other.number_);
    return *this;
  }

  [[nodiscard]] int Number() const { return number_; }
  [[nodiscard]] bool IsOpen() const { return number_ >= 0; }

  // False, with errno, when the system reports only now that a write has failed.
  bool Close() { return number_ < 0 || close(std::exchange(number_, -1)) == 0; }

 private:
  int number_;
};

// Writes all bytes, waiting for a slow reader. A reader that has gone and a limit of the file's
// size are failures like any other and end no process. Fails with FileError.
void WriteBytes(const Descriptor& file, std::string_view bytes);

}  // namespace td
