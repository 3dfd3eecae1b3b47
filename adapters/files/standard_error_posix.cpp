#include <cstdio>
#include <string>

#include "files/standard_error.h"

namespace td {

void WriteErrorLine(std::string_view text) {
  std::fprintf(stderr, "%s\n", std::string(text).c_str());
}

}  // namespace td
