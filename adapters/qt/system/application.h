// The Qt application that everything which paints needs.
#pragma once

namespace td {

// Makes sure that there is a Qt application that can paint. One that the program has is kept. If
// there is none, one is made and lives until the program ends, on the window system of the
// environment, or without one when none can be reached: painting needs no display.
// Fails with kInvalidCall when the program has an application without a graphical part
// (a QCoreApplication), beside which Qt allows no other, and on another thread than the
// application's.
void EnsureApplication();

// Whether windows can be shown: the application has widgets, and a screen that somebody sees.
[[nodiscard]] bool HasWindowSystem();

}  // namespace td
