// What the tests call in a loadable module that holds the component.
#pragma once

#include <string>

extern "C" {

// Stores what the component in the module takes for its folder.
void WriteModuleFolder(std::string* folder);
}
