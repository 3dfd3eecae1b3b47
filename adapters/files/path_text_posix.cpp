#include "files/path_text.h"

namespace td {

std::filesystem::path OpenPathOf(std::string_view utf8) {
  return PathOf(utf8);
}

}  // namespace td
