// What the engine and the platform say to each other of a file.
#pragma once

namespace td {

// The number of a FileError for what the engine tells as the system's error; 0 stays 0.
[[nodiscard]] int FileErrorNumber(int systemError);

}  // namespace td
