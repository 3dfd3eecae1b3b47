#include "windows/preview/page_setup_dialog.h"

#include <commctrl.h>

#include <algorithm>

#include "preview/toolbar_buttons.h"
#include "windows/api/wide_text.h"
#include "windows/controls/text_fitting.h"
#include "windows/preview/sheet_picture.h"
#include "windows/preview/unkept_sheet_warning.h"
#include "windows/preview/window.h"

namespace td {

namespace words = page_setup_words;

namespace {

constexpr COLORREF kObjection = RGB(176, 0, 32);

constexpr ControlKind kCaption{WC_STATICW, SS_CENTERIMAGE};  // with the mark of a key
constexpr ControlKind kDrawn{WC_STATICW, SS_OWNERDRAW};

void DrawWords(const DRAWITEMSTRUCT& item, const std::wstring& text, COLORREF colour) {
  SetBkMode(item.hDC, TRANSPARENT);
  SetTextColor(item.hDC, colour);
  RECT box = item.rcItem;
  DrawTextW(item.hDC, text.c_str(), -1, &box, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
}

}  // namespace

PageSetupDialog::PageSetupDialog(PageDocument& document, const std::string& printer,
                                 OwnSheets ownSheets)
    : DialogFrame(words::kTitle), document_(document), ownSheets_(std::move(ownSheets)) {
  const PageSetupChoice shown = ChoiceOf(document);
  sheetGroup_ = Add(control_kinds::kFrame, words::kSheetGroup);
  AddRow(sheetRows_, words::kPrinter, printer_, kPrinterId);
  AddRow(sheetRows_, words::kPaper, paper_, kPaperId);
  AddRow(sheetRows_, words::kWidth, width_, kWidthId, shown.sheet.width);
  AddRow(sheetRows_, words::kHeight, height_, kHeightId, shown.sheet.height);
  AddDirection(shown.isLandscape);
  marginGroup_ = Add(control_kinds::kFrame, words::kMarginGroup, 0, WS_GROUP);
  AddRow(marginRows_, words::kLeft, left_, kLeftId, shown.margins.left);
  AddRow(marginRows_, words::kTop, top_, kTopId, shown.margins.top);
  AddRow(marginRows_, words::kRight, right_, kRightId, shown.margins.right);
  AddRow(marginRows_, words::kBottom, bottom_, kBottomId, shown.margins.bottom);
  picture_ = Add(kDrawn, words::kPictureName, kPictureId);
  objection_ = Add(kDrawn, "", kObjectionId);
  confirm_ = Add(control_kinds::kDefaultButton, kConfirmCaption, IDOK);
  cancel_ = Add(control_kinds::kButton, kCancelCaption, IDCANCEL);
  FillPrinters(printer);
  papers_ = PaperEntries(document);
  FillPapers(shown.paper);
  isMade_ = true;
  PaperChosen();
}

bool PageSetupDialog::Ask() {
  ShowModal();
  return isConfirmed_;
}

void PageSetupDialog::AddRow(std::vector<Row>& rows, const char* caption,
                             std::optional<ChoiceList>& list, int id) {
  const HWND label = Add(kCaption, caption);
  list.emplace(Add(control_kinds::kList, "", id));
  rows.push_back({label, &*list, nullptr});
}

void PageSetupDialog::AddRow(std::vector<Row>& rows, const char* caption, LengthField& field,
                             int id, double twips) {
  const HWND label = Add(kCaption, caption);
  field.Make(Window(), id, twips, kLongestMillimetres);
  rows.push_back({label, nullptr, &field});
}

void PageSetupDialog::AddDirection(bool isLandscape) {
  directionGroup_ = Add(control_kinds::kFrame, words::kDirectionGroup);
  portrait_ = Add(control_kinds::kOption, words::kPortrait, kPortraitId, WS_GROUP | WS_TABSTOP);
  landscape_ = Add(control_kinds::kOption, words::kLandscape, kLandscapeId);
  CheckRadioButton(Window(), kPortraitId, kLandscapeId, isLandscape ? kLandscapeId : kPortraitId);
}

// A printer that the machine doesn't have leaves the list without a choice: the first entry would
// be one that nobody made.
void PageSetupDialog::FillPrinters(const std::string& printer) {
  const int count = document_.DeviceCount();
  for (int i = 0; i < count; ++i) {
    printers_.push_back(document_.DeviceName(i));
    printer_->Add(printers_.back());
    if (printers_.back() == printer) shownPrinter_ = i;
  }
  if (shownPrinter_ >= 0) printer_->Select(shownPrinter_);
  EnableWindow(GetDlgItem(Window(), kPrinterId), count > 0 ? TRUE : FALSE);
}

void PageSetupDialog::FillPapers(std::int32_t chosen) {
  paper_->Clear();
  for (const PaperEntry& entry : papers_) paper_->Add(entry.text);
  const auto found = std::ranges::find(papers_, chosen, &PaperEntry::code);
  paper_->Select(static_cast<int>(found - papers_.begin()));
}

int PageSetupDialog::LabelWidth(const std::vector<Row>& rows) const {
  int widest = 0;
  for (const Row& row : rows) {
    std::wstring caption = TextOf(row.label);
    std::erase(caption, L'&');
    widest = std::max(widest, static_cast<int>(TextSize(Font(), caption).cx));
  }
  return widest;
}

// Returns the place below the last.
int PageSetupDialog::PlaceRows(const std::vector<Row>& rows, const RECT& room, int line) {
  const auto left = static_cast<int>(room.left);
  const int fields = left + LabelWidth(rows);
  const auto right = static_cast<int>(room.right);
  int top = static_cast<int>(room.top);
  for (const Row& row : rows) {
    Place(row.label, left, top, fields - left, line);
    if (row.field != nullptr) {
      row.field->Place({fields, top, std::min(right, fields + Scaled(135)), top + line},
                       DotsPerInch());
    } else {
      row.list->Place({fields, top, right, top + line}, Scaled(4));
    }
    top += line + Scaled(7);
  }
  return top;
}

SIZE PageSetupDialog::LayOut() {
  const int margin = Scaled(12);
  const int gap = Scaled(8);
  const int inset = Scaled(12);  // within a group
  const auto character = static_cast<int>(TextSize(Font(), L"国").cy);
  const int line = character + Scaled(9);
  const int caption = character + Scaled(7);  // of a group

  const int direction = static_cast<int>(TextSize(Font(), L"横向(L)").cx) + Scaled(30) + 2 * inset;
  const int margins = LabelWidth(marginRows_) + Scaled(125) + 2 * inset;
  const int picture = Scaled(150);
  const int inner = direction + margins + picture + 2 * gap;

  const int below =
      PlaceRows(sheetRows_, {margin + inset, margin + caption, margin + inner - inset, 0}, line) +
      inset - Scaled(7);
  Place(sheetGroup_, margin, margin, inner, below - margin);

  const int top = below + gap;
  const int marginLeft = margin + direction + gap;
  const int bottom =
      PlaceRows(marginRows_, {marginLeft + inset, top + caption, marginLeft + margins - inset, 0},
                line) +
      inset - Scaled(7);
  Place(marginGroup_, marginLeft, top, margins, bottom - top);
  Place(directionGroup_, margin, top, direction, bottom - top);
  Place(portrait_, margin + inset, top + caption, direction - 2 * inset, line);
  Place(landscape_, margin + inset, top + caption + line, direction - 2 * inset, line);
  Place(picture_, marginLeft + margins + gap, top + gap, picture, bottom - top - gap);

  Place(objection_, margin, bottom + gap, inner, character);
  const int buttons = bottom + character + 2 * gap;
  const int button = Scaled(85);
  Place(confirm_, margin + inner - 2 * button - gap, buttons, button, line);
  Place(cancel_, margin + inner - button, buttons, button, line);
  return {inner + 2 * margin, buttons + line + margin};
}

std::int32_t PageSetupDialog::PaperCode() const {
  return papers_.at(static_cast<std::size_t>(paper_->Selected())).code;
}

PageSetupChoice PageSetupDialog::Choice() const {
  return {.paper = PaperCode(),
          .sheet = {width_.Twips(), height_.Twips()},
          .isLandscape = IsDlgButtonChecked(Window(), kLandscapeId) == BST_CHECKED,
          .margins = {left_.Twips(), top_.Twips(), right_.Twips(), bottom_.Twips()}};
}

std::string PageSetupDialog::ChosenPrinter() const {
  const int chosen = printer_->Selected();
  return chosen == shownPrinter_ ? std::string() : printers_.at(static_cast<std::size_t>(chosen));
}

// A named sheet shows its size; only that of a user-defined one can be written.
void PageSetupDialog::PaperChosen() {
  const bool isUserDefined = PaperCode() == kUserDefinedPaper;
  if (const auto extent = StandardPaper(PaperCode())) {
    width_.PutTwips(extent->width);
    height_.PutTwips(extent->height);
  } else if (!isUserDefined) {
    width_.PutTwips(document_.PaperWidth());
    height_.PutTwips(document_.PaperHeight());
  }
  width_.Enable(isUserDefined);
  height_.Enable(isUserDefined);
  Check();
}

void PageSetupDialog::Check() {
  if (!isMade_) return;
  const std::string objection = ObjectionTo(Choice());
  PutTextInto(objection_, objection);
  EnableWindow(confirm_, objection.empty() ? TRUE : FALSE);
  for (const HWND drawn : {objection_, picture_}) InvalidateRect(drawn, nullptr, TRUE);
}

// Asks the user where the sheet will not come back, and changes it if the user agrees. The list may
// not have the named paper yet; the user-defined sheet stays its last entry.
bool PageSetupDialog::MayBeUsed() {
  const PageSetupChoice choice = Choice();
  if (IsKept(choice, ownSheets_)) return true;
  const SheetAnswer answer = WarnOfUnkeptSheet(UnkeptSheetOf(choice, ownSheets_, printers_));
  if (answer == SheetAnswer::kUseNamedPaper) {
    const std::int32_t code = PaperCodeOf(choice.sheet);
    if (std::ranges::count(papers_, code, &PaperEntry::code) == 0) {
      papers_.insert(papers_.end() - 1, {code, PaperText(code, choice.sheet)});
    }
    FillPapers(code);
    PaperChosen();
  }
  return answer != SheetAnswer::kGoBack;
}

void PageSetupDialog::Commanded(int id, int notification) {
  switch (id) {
    case IDOK:
      if (!ObjectionTo(Choice()).empty() || !MayBeUsed()) return;
      isConfirmed_ = true;
      Close();
      return;
    case kPrinterId:
      (void)printer_->Notified(notification);
      return;
    case kPaperId:
      if (paper_->Notified(notification)) PaperChosen();
      return;
    case kPortraitId:
    case kLandscapeId:
      Check();
      return;
    default:
      if (notification == EN_CHANGE) Check();
      return;
  }
}

void PageSetupDialog::DrawPart(const DRAWITEMSTRUCT& item) const {
  constexpr auto kNoEntry = static_cast<UINT>(-1);
  const Selected font(item.hDC, Font());
  if (item.CtlID == kPictureId) {
    DrawSheetPicture(item.hDC, item.rcItem, Choice(), DotsPerInch());
  } else if (item.CtlID == kObjectionId) {
    FillRect(item.hDC, &item.rcItem, GetSysColorBrush(COLOR_3DFACE));
    DrawWords(item, TextOf(objection_), kObjection);
  } else {
    ChoiceList::Draw(item);
    if (item.CtlID != kPrinterId || item.itemID != kNoEntry) return;
    DrawWords(item, ToWide(printers_.empty() ? words::kNoPrinters : words::kNotChosen),
              GetSysColor(COLOR_GRAYTEXT));
  }
}

bool PageSetupDialog::Received(UINT message, WPARAM, LPARAM lengthy, LRESULT& result) {
  if (message != WM_DRAWITEM) return false;
  DrawPart(*reinterpret_cast<const DRAWITEMSTRUCT*>(lengthy));
  result = TRUE;
  return true;
}

}  // namespace td
