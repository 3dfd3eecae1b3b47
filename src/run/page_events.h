// The handlers of the surface's events. They have no handler of their own: what they let through
// leaves StartDoc, NewPage or EndDoc.
#pragma once

namespace td {

struct PrintWindow;

void OnNewPage(PrintWindow& window);
void OnEndPage(PrintWindow& window);
void OnEndDoc(PrintWindow& window);

}  // namespace td
