#include "page_setup_of_two_printers.h"

#include <iterator>

#include "windows/api/wide_text.h"

namespace td {

void PageSetupOfTwoPrinters::Next() {
  LetGoOfKeys();
  if (!isShown_) return;
  if (steps_.empty()) {
    PostMessageW(Front(), WM_CLOSE, 0, 0);
  } else {
    const Step step = std::move(steps_.front());
    steps_.pop_front();
    step();
  }
  WhenIdle([this] { Next(); });
}

bool PageSetupOfTwoPrinters::Show(std::vector<Step> steps) {
  if (!dialog_) Open();
  steps_.assign(std::make_move_iterator(steps.begin()), std::make_move_iterator(steps.end()));
  isShown_ = true;
  WhenIdle([this] { Next(); });
  const bool isConfirmed = dialog_->Ask();
  isShown_ = false;
  ForgetIdleSteps();
  EXPECT_TRUE(steps_.empty()) << "the dialog was closed before its last step";
  return isConfirmed;
}

std::string PageSetupOfTwoPrinters::Entry(int list) const {
  const LRESULT chosen = SendMessageW(Part(list), CB_GETCURSEL, 0, 0);
  if (chosen == CB_ERR) return {};
  std::wstring text(200, L'\0');
  text.resize(
      static_cast<std::size_t>(SendMessageW(Part(list), CB_GETLBTEXT, static_cast<WPARAM>(chosen),
                                            reinterpret_cast<LPARAM>(text.data()))));
  return FromWide(text);
}

// As a person does: the list is opened, an entry is gone to, the list is closed.
void PageSetupOfTwoPrinters::Choose(int list, const std::string& beginning) {
  const HWND control = Part(list);
  const LRESULT entry = SendMessageW(control, CB_FINDSTRING, static_cast<WPARAM>(-1),
                                     reinterpret_cast<LPARAM>(ToWide(beginning).c_str()));
  ASSERT_NE(entry, CB_ERR) << beginning;
  const auto tell = [&](int notification) {
    SendMessageW(dialog_->Window(), WM_COMMAND, MAKEWPARAM(list, notification),
                 reinterpret_cast<LPARAM>(control));
  };
  tell(CBN_DROPDOWN);
  SendMessageW(control, CB_SETCURSEL, static_cast<WPARAM>(entry), 0);
  tell(CBN_SELCHANGE);
  tell(CBN_SELENDOK);
  tell(CBN_CLOSEUP);
}

void PageSetupOfTwoPrinters::ChooseLandscape() const {
  const int option = PageSetupDialog::kLandscapeId;
  CheckRadioButton(dialog_->Window(), PageSetupDialog::kPortraitId, option, option);
  SendMessageW(dialog_->Window(), WM_COMMAND, MAKEWPARAM(option, BN_CLICKED),
               reinterpret_cast<LPARAM>(Part(option)));
}

}  // namespace td
