#include "windows/preview/page_number_dialog.h"

#include <algorithm>
#include <string>

#include "preview/toolbar_buttons.h"
#include "windows/controls/dialog_frame.h"
#include "windows/controls/modal_loop.h"
#include "windows/controls/text_fitting.h"
#include "windows/preview/window.h"

// Behind the system's other headers.
#include <commctrl.h>

namespace td {
namespace {

constexpr ControlKind kNumberBox{WC_EDITW, WS_TABSTOP | ES_NUMBER | ES_AUTOHSCROLL,
                                 WS_EX_CLIENTEDGE};
constexpr ControlKind kArrows{UPDOWN_CLASSW, UDS_SETBUDDYINT | UDS_ARROWKEYS | UDS_NOTHOUSANDS};

class PageNumberDialog : public DialogFrame {
 public:
  PageNumberDialog(int shown, int count) : DialogFrame(kPageNumberTitle), count_(count) {
    label_ = Add(control_kinds::kLabel,
                 kPageNumberLabel[0] + std::to_string(count) + kPageNumberLabel[1]);
    number_ = Add(kNumberBox, std::to_string(shown), kFirstControl);
    arrows_ = Add(kArrows, "");
    SendMessageW(arrows_, UDM_SETBUDDY, reinterpret_cast<WPARAM>(number_), 0);
    SendMessageW(arrows_, UDM_SETRANGE32, 1, count);
    SendMessageW(arrows_, UDM_SETPOS32, 0, shown);
    SendMessageW(number_, EM_SETSEL, 0, -1);
    KeepInputMethodFrom(number_);
    confirm_ = Add(control_kinds::kDefaultButton, kConfirmCaption, IDOK);
    cancel_ = Add(control_kinds::kButton, kCancelCaption, IDCANCEL);
  }

  // A number outside the document counts as the nearest page.
  [[nodiscard]] std::optional<std::int16_t> Answer() const {
    if (!isConfirmed_) return std::nullopt;
    const double written = std::wcstod(TextOf(number_).c_str(), nullptr);
    return static_cast<std::int16_t>(std::clamp(written, 1.0, static_cast<double>(count_)));
  }

 protected:
  SIZE LayOut() override {
    const int margin = Scaled(12);
    const int gap = Scaled(8);
    const SIZE label = TextSize(Font(), TextOf(label_));
    const int line = static_cast<int>(label.cy) + Scaled(9);
    const int button = Scaled(85);
    const int width = std::max({2 * button + gap, static_cast<int>(label.cx), Scaled(220)});
    const int arrows = Scaled(18);
    int top = margin;
    Place(label_, margin, top, width, line);
    top += line;
    const int box = TextBoxHeight(Font(), DotsPerInch());
    Place(number_, margin, top, width - arrows, box);
    Place(arrows_, margin + width - arrows, top, arrows, box);
    top += box + 2 * gap;
    Place(confirm_, margin + width - 2 * button - gap, top, button, line);
    Place(cancel_, margin + width - button, top, button, line);
    return {width + 2 * margin, top + line + margin};
  }

  void Commanded(int id, int) override {
    if (id != IDOK) return;
    isConfirmed_ = true;
    Close();
  }

 private:
  int count_;
  HWND label_;
  HWND number_;
  HWND arrows_;
  HWND confirm_;
  HWND cancel_;
  bool isConfirmed_ = false;
};

}  // namespace

std::optional<std::int16_t> AskForPage(std::int16_t shown, std::int16_t count) {
  PageNumberDialog dialog(shown, count);
  dialog.ShowModal();
  return dialog.Answer();
}

}  // namespace td
