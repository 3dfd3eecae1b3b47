// Typed access to the fields of a JSON object in a scenario.
#pragma once

#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "recording/json_values.h"

namespace td::recording {

// An object of a scenario and the name of its place, with which every failure begins. All failures
// are ScenarioError.
class JsonFields {
 public:
  // Fails if `json` is no object. It must outlive this.
  JsonFields(const Json& json, std::string where);

  // A field that is null counts as absent.
  [[nodiscard]] bool Has(const char* key) const;
  // The place of a field, for failures.
  [[nodiscard]] std::string Where(const char* key) const { return where_ + "." + key; }

  // The value of a field; the second form stands in for a field that is absent.
  [[nodiscard]] const Json& At(const char* key) const;
  [[nodiscard]] std::string Text(const char* key) const;
  [[nodiscard]] std::string Text(const char* key, const std::string& fallback) const;
  [[nodiscard]] bool Flag(const char* key, bool fallback) const;
  [[nodiscard]] std::vector<std::string> Texts(const char* key) const;
  template <typename Whole>
  [[nodiscard]] Whole Number(const char* key) const {
    return static_cast<Whole>(
        NumberIn(key, std::numeric_limits<Whole>::min(), std::numeric_limits<Whole>::max()));
  }
  template <typename Whole>
  [[nodiscard]] Whole Number(const char* key, Whole fallback) const {
    return Has(key) ? Number<Whole>(key) : fallback;
  }

  // The elements of an array; empty if it is absent.
  [[nodiscard]] const Json& Array(const char* key) const;

 private:
  [[nodiscard]] std::int64_t NumberIn(const char* key, std::int64_t least, std::int64_t most) const;

  const Json& json_;
  std::string where_;
};

}  // namespace td::recording
