#include "windows/system/message_boxes.h"

#include "files/path_text.h"
#include "windows/api/modules.h"
#include "windows/api/wide_text.h"
#include "windows/controls/modal_loop.h"
#include "windows/controls/visual_styles.h"

namespace td {
namespace {

UINT IconOf(int style) {
  switch (style & 0xF0) {
    case 0x10:
      return MB_ICONERROR;
    case 0x20:
      return MB_ICONQUESTION;
    case 0x30:
      return MB_ICONWARNING;
    case kInformationIcon:
      return MB_ICONINFORMATION;
    default:
      return 0;
  }
}

}  // namespace

bool HasVisibleDesktop() {
  USEROBJECTFLAGS flags{};
  return GetUserObjectInformationW(GetProcessWindowStation(), UOI_FLAGS, &flags, sizeof flags,
                                   nullptr) != FALSE &&
         (flags.dwFlags & WSF_VISIBLE) != 0;
}

std::string ProgramName() {
  return TextOf(FileOf(nullptr).stem());
}

bool MessageBoxes::HasDisplay() const {
  return HasVisibleDesktop();
}

void MessageBoxes::ShowInBox(const std::string& text, int style) {
  const WindowMaking making;
  const HWND owner = GetActiveWindow();
  const ModalLoop others(owner);  // a box takes the input of its owner alone
  MessageBoxW(owner, ToWide(text).c_str(), ToWide(ProgramName()).c_str(),
              MB_OK | MB_TASKMODAL | MB_SETFOREGROUND | IconOf(style));
}

}  // namespace td
