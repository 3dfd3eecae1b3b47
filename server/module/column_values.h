// The values that were read from the current row of a program's object.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "platform/value.h"

namespace td {

// Keeps each value in its place until the cursor moves, so that references to it stay good. The
// object itself is asked at each use: it may compute.
class ColumnValues {
 public:
  const Value& Put(std::string_view column, Value value) {
    Value& place = values_[std::string(column)];
    place = std::move(value);
    return place;
  }
  void Clear() { values_.clear(); }

 private:
  std::unordered_map<std::string, Value> values_;
};

}  // namespace td
