// Fields and the mouse wheel.
#pragma once

#include <QWidget>

namespace td {

// From now on the wheel changes a list or a number of the window, and of the dialogs that it opens,
// only while that field has the focus: who scrolls over a window must not change what is under the
// pointer. The wheel gives no field the focus either.
void GuardFieldsAgainstWheel(QWidget& window);

}  // namespace td
