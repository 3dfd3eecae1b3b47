#include <string>

#include "files/standard_error.h"
#include "windows/api/standard_output.h"

namespace td {

void WriteErrorLine(std::string_view text) {
  StandardStreamWriter(StandardStream::kError).Write(std::string(text) + "\n");
}

}  // namespace td
