// The warning that a user-defined sheet will not come back.
#pragma once

#include <QString>
#include <QStringList>

class QWidget;

namespace td {

// What can be said of a user-defined sheet of a certain size.
struct UnkeptSheet {
  QString size;
  QString namedPaper;    // a paper of that size which will come back; empty: there is none
  QStringList printers;  // whose own sheet is of that size
};

enum class SheetAnswer { kUseNamedPaper, kUseOnce, kGoBack };

// Says that the next print on this machine begins with another sheet, what helps against it, and
// waits for the answer.
[[nodiscard]] SheetAnswer WarnOfUnkeptSheet(const UnkeptSheet& sheet, QWidget* window);

}  // namespace td
