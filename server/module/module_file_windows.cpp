#include "module/module_file.h"
#include "windows/api/modules.h"

namespace td {

const std::filesystem::path& ModuleFile() {
  static const std::filesystem::path file = FileOf(OwnModule());
  return file;
}

// The system's libraries keep nothing of the module, so that it can be unloaded after any print.
void KeepModuleInMemory() {}

}  // namespace td
