#include "sqlite/engine_file.h"

namespace td {

int FileErrorNumber(int systemError) {
  return systemError;
}

}  // namespace td
