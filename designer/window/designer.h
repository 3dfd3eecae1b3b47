// The designer as a program starts it.
#pragma once

#include <optional>
#include <string>

namespace td::designer {

// Texts are UTF-8; an empty one was not given.
struct DesignRequest {
  std::string connection;  // empty: the user is asked for it and for the bill type
  std::optional<int> billType;
  std::string format;           // empty: the selected format of the bill type
  std::string data;             // a statement whose first bill is shown
  std::string componentFolder;  // of the goods pictures, as DesktopOptions has it
};

// Shows the window and returns when it is closed. False if the user gave up before it was shown, or
// the format couldn't be loaded, which has been told. Fails with Failure where there is no display,
// or the database or the rows can't be opened.
bool ShowDesigner(const DesignRequest& request);

}  // namespace td::designer
