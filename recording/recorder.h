// What the logic asked of the platform, line by line, and the failures injected into it.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "recording/json_values.h"

namespace td::recording {

// From the `nth` matching request on, `times` requests in a row fail.
struct Fault {
  std::string on;
  std::int64_t nth = 1;
  std::int64_t times = 1;
  int number = 0;
  std::string description;
  std::optional<std::string> match;  // counts only requests whose text contains it
};

class Recorder {
 public:
  using Fields = std::initializer_list<std::pair<const char*, Json>>;

  explicit Recorder(std::vector<Fault> faults);

  void Write(const char* kind, Fields fields = {});

  // To be called once for each request, after its line is written. Fails as the faults say.
  // `text` is the statement or the first argument, nothing if the request has neither.
  void Request(std::string_view kind, std::optional<std::string_view> text = std::nullopt);

  // Whether some fault has this description.
  [[nodiscard]] bool IsInjected(std::string_view description) const;

  [[nodiscard]] std::vector<Json> TakeLines();

 private:
  struct Injected {
    Fault fault;
    std::int64_t requests = 0;
  };

  std::vector<Json> lines_;
  std::vector<Injected> faults_;
};

}  // namespace td::recording
