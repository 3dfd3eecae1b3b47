#include "windows/preview/unkept_sheet_warning.h"

#include <algorithm>
#include <string>
#include <vector>

#include "preview/page_setup_choice.h"
#include "windows/controls/dialog_frame.h"
#include "windows/controls/text_fitting.h"
#include "windows/preview/window.h"

namespace td {
namespace {

constexpr ControlKind kIcon{L"Static", SS_ICON | SS_REALSIZECONTROL};
constexpr ControlKind kWords{L"Static", SS_NOPREFIX};

class UnkeptSheetWarning : public DialogFrame {
 public:
  explicit UnkeptSheetWarning(const UnkeptSheet& sheet) : DialogFrame(page_setup_words::kTitle) {
    namespace captions = unkept_sheet_words;
    icon_ = Add(kIcon, "");
    SendMessageW(icon_, STM_SETICON, reinterpret_cast<WPARAM>(LoadIconW(nullptr, IDI_WARNING)), 0);
    words_ = Add(kWords, WarningOf(sheet) + "\n\n" + AdviceOn(sheet));
    const bool hasName = !sheet.namedPaper.empty();
    // The first button has the focus, and is what Enter presses.
    if (hasName) AddButton(captions::kUseNamedPaper, kNamedId, true);
    if (!hasName) AddButton(captions::kGoBack, IDCANCEL, true);
    AddButton(captions::kUseOnce, kOnceId, false);
    if (hasName) AddButton(captions::kGoBack, IDCANCEL, false);
  }

  [[nodiscard]] SheetAnswer Answer() const { return answer_; }

 protected:
  SIZE LayOut() override {
    const int margin = Scaled(16);
    const int gap = Scaled(8);
    const int icon = Scaled(32);
    const int line = static_cast<int>(TextSize(Font(), L"国").cy) + Scaled(9);
    int allButtons = -gap;
    for (const HWND button : buttons_) allButtons += WidthOf(button) + gap;
    const int inner = std::max(Scaled(440), allButtons);
    const int textWidth = inner - icon - margin;
    const int textHeight = std::max(icon, HeightOfWords(textWidth));
    Place(icon_, margin, margin, icon, icon);
    Place(words_, margin + icon + margin, margin, textWidth, textHeight);
    const int top = margin + textHeight + 2 * gap;
    int left = margin + inner - allButtons;
    for (const HWND button : buttons_) {
      const int width = WidthOf(button);
      Place(button, left, top, width, line);
      left += width + gap;
    }
    return {inner + 2 * margin, top + line + margin};
  }

  void Commanded(int id, int) override {
    if (id != kNamedId && id != kOnceId) return;
    answer_ = id == kNamedId ? SheetAnswer::kUseNamedPaper : SheetAnswer::kUseOnce;
    Close();
  }

 private:
  static constexpr int kNamedId = kFirstControl;
  static constexpr int kOnceId = kFirstControl + 1;

  void AddButton(const char* caption, int id, bool isDefault) {
    const ControlKind& kind = isDefault ? control_kinds::kDefaultButton : control_kinds::kButton;
    buttons_.push_back(Add(kind, caption, id));
  }

  [[nodiscard]] int WidthOf(HWND button) const {
    return static_cast<int>(TextSize(Font(), TextOf(button)).cx) + Scaled(20);
  }

  [[nodiscard]] int HeightOfWords(int width) const {
    const Selected font(ScreenDevice(), Font());
    RECT box{0, 0, width, 0};
    DrawTextW(ScreenDevice(), TextOf(words_).c_str(), -1, &box,
              DT_CALCRECT | DT_WORDBREAK | DT_NOPREFIX);
    return static_cast<int>(box.bottom);
  }

  HWND icon_;
  HWND words_;
  std::vector<HWND> buttons_;
  SheetAnswer answer_ = SheetAnswer::kGoBack;
};

}  // namespace

SheetAnswer WarnOfUnkeptSheet(const UnkeptSheet& sheet) {
  UnkeptSheetWarning warning(sheet);
  warning.ShowModal();
  return warning.Answer();
}

}  // namespace td
