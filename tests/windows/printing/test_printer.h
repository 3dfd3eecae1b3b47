// A printer of the test's own, which the system's functions reach as far as they are called.
#pragma once

#include <string>
#include <vector>

#include "windows/api/windows_api.h"
#include "windows/printing/forms.h"

namespace td {

struct AddedForm {
  DWORD flags = 0;
  std::wstring name;
  SIZEL size{};
  RECTL printable{};
};

struct InstalledPrinter {
  std::wstring name;
  std::wstring driver;
  bool isOfServer = false;
};

struct TestPrinter {
  std::vector<Form> forms;  // of the driver
  bool mayBeManaged = true;
  bool showsAddedForms = true;  // its driver offers the machine's forms
  std::vector<AddedForm> added;
  int open = 0;
  DEVMODEW settings{};  // as its user has left them
  int mostCopies = 1;   // that the driver makes
  bool collates = false;
  DWORD refusal = ERROR_ACCESS_DENIED;  // what the system tells of each job
  std::vector<InstalledPrinter> installed;
};

// The only one.
TestPrinter& ThePrinter();

[[nodiscard]] PaperExtent Millimetres(double width, double height);

}  // namespace td
