// Why a file couldn't be read or written.
#pragma once

#include <stdexcept>
#include <string>

namespace td {

// The reason for an error number of the system, in words for the user: "磁盘空间不足".
[[nodiscard]] std::string ReasonOf(int number);

// The same in the system's own words, for the numbers that are rare.
[[nodiscard]] std::string SystemReasonOf(int number);

// Names no file: who catches it knows the path that the user knows. what() is ReasonOf(Number()).
class FileError : public std::runtime_error {
 public:
  explicit FileError(int number) : std::runtime_error(ReasonOf(number)), number_(number) {}

  [[nodiscard]] int Number() const { return number_; }

 private:
  int number_;
};

}  // namespace td
