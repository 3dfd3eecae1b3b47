// The sheets that a format can be set to, by name.
#pragma once

#include <QString>
#include <cstdint>
#include <vector>

namespace td::designer {

struct NamedPaper {
  std::int32_t code = 0;
  QString name;  // with its size in millimetres
};

// Those in use first, then all other standard ones by their numbers. Without the sizes that are no
// standard number: kUserDefinedPaper and 0.
[[nodiscard]] std::vector<NamedPaper> NamedPapers();

}  // namespace td::designer
