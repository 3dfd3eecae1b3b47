// Where a sheet lies on the desk of the preview, along one axis. Pixels; `margin` is the desk
// around the sheet, `room` what is seen of the desk.
#pragma once

namespace td {

// How far the desk can be scrolled.
[[nodiscard]] int ScrollEnd(double length, int room, int margin);

// Where the sheet begins: it stands in the middle of a larger desk.
[[nodiscard]] double SheetStart(double length, int room, int margin, int scrolled);

// How far to scroll so that the point in the middle of the view stays there when the sheet is drawn
// `scale` times as large; `formerStart` is where the sheet began.
[[nodiscard]] int ScrolledAfterZoom(double formerStart, double scale, int room, int margin);

}  // namespace td
