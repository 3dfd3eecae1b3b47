#include "program_folder.h"
#include "windows/api/modules.h"

namespace td {

std::filesystem::path ProgramFolder() {
  return FileOf(nullptr).parent_path();
}

}  // namespace td
