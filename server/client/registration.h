// The user's registration: which module holds which class. One line for each class, its name, its
// identifier and the module's path with tabs between them; lines that begin with # are comments.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "interface/binary_interface.h"

namespace td {

struct RegisteredClass {
  std::string name;
  TdGuid id;
  std::filesystem::path module;
};

// qbtdprinter/classes in $XDG_DATA_HOME, else in ~/.local/share. Empty when the user has no home.
[[nodiscard]] std::filesystem::path RegistrationFile();

// All classes. Empty when nothing is registered. Fails with a ResultFailure when others could have
// changed the file or when it can't be read.
[[nodiscard]] std::vector<RegisteredClass> ReadRegistration();

// Replaces the registration by classes of one module. Fails like ReadRegistration, and when others
// could change a module.
void WriteRegistration(const std::vector<RegisteredClass>& classes);

// Removing what isn't there is no failure. On Windows the registration of another file than the
// module stays as long as that file is there, and so does the machine's if the user may not remove
// it and had one of his own.
void RemoveRegistration(const std::filesystem::path& module);

// {2389511E-AE07-4A8F-BF68-F2D15542C87E}
[[nodiscard]] std::string TextOfGuid(const TdGuid& id);

[[nodiscard]] bool SameGuid(const TdGuid& left, const TdGuid& right);

}  // namespace td
