// A loadable module that holds the component, as a program would bring it along.
#include "folder_module.h"

#include "pictures/component_folder.h"

extern "C" void WriteModuleFolder(std::string* folder) {
  *folder = td::FolderOfLoadedComponent();
}
