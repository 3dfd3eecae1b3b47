#include "files/windows_files.h"
#include "sqlite/engine_file.h"

namespace td {

int FileErrorNumber(int systemError) {
  return systemError == 0 ? 0 : NumberOfError(static_cast<unsigned long>(systemError));
}

}  // namespace td
