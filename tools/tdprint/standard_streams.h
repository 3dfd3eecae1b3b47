// The standard input and outputs of the program.
#pragma once

namespace td {

// Makes them fit to be used: texts are UTF-8 and reach every reader whole, and what was closed
// stays closed. To be called once, before anything is opened.
void PrepareStandardStreams();

// Whether a person types what is read, and sees what is written.
[[nodiscard]] bool StandardInputIsTerminal();
[[nodiscard]] bool StandardOutputIsTerminal();

// Whether a person watches standard error on a terminal that can wipe a line.
[[nodiscard]] bool StandardErrorIsTerminal();

}  // namespace td
