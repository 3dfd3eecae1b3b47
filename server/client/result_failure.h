// A failure inside the helper library, on its way to a result code and a description.
#pragma once

#include <stdexcept>
#include <string>

#include "interface/binary_interface.h"

namespace td {

class ResultFailure : public std::runtime_error {
 public:
  // The description is for the user, in UTF-8.
  ResultFailure(TdResult result, const std::string& description)
      : std::runtime_error(description), result_(result) {}

  [[nodiscard]] TdResult Result() const { return result_; }

 private:
  TdResult result_;
};

}  // namespace td
