// Forms that are added, which the emulation's printing system never does: the calls of the system
// reach a printer of this file.
#include "windows/printing/forms.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <iterator>

#include "page_document/drawing.h"
#include "windows/printing/printer_handle.h"

namespace td {
namespace {

struct AddedForm {
  DWORD flags = 0;
  std::wstring name;
  SIZEL size{};
  RECTL printable{};
};

struct TestPrinter {
  std::vector<Form> forms;  // of the driver
  bool mayBeManaged = true;
  bool showsAddedForms = true;  // its driver offers the machine's forms
  std::vector<AddedForm> added;
  int open = 0;
};

TestPrinter printer;

PaperExtent Millimetres(double width, double height) {
  return {width * kTwipsPerMillimetre, height * kTwipsPerMillimetre};
}

// The driver's own number for any size is that of a sheet.
class AddedForms : public testing::Test {
 protected:
  AddedForms() {
    printer = {};
    printer.forms = {{9, Millimetres(210, 297)}, {256, Millimetres(102, 165)}};
  }
  ~AddedForms() override { EXPECT_EQ(printer.open, 0); }
};

TEST_F(AddedForms, AreMadeForASheetThatTheDriverLacks) {
  EXPECT_EQ(FormNumber("p", Millimetres(241, 140), kUserDefinedPaper), 300);
  ASSERT_EQ(printer.added.size(), 1U);
  const AddedForm& form = printer.added.front();
  EXPECT_EQ(form.flags, DWORD{FORM_USER});
  EXPECT_EQ(form.name, L"QbTdPrinter 241.0 x 140.0 mm");
  EXPECT_EQ(form.size.cx, 241'000);
  EXPECT_EQ(form.size.cy, 140'000);
  EXPECT_EQ(form.printable.right, 241'000) << "nothing of the sheet is kept empty";
  EXPECT_EQ(form.printable.bottom, 140'000);
  EXPECT_EQ(form.printable.left, 0);
  EXPECT_EQ(FormNumber("p", Millimetres(241, 140), kUserDefinedPaper), 300);
  EXPECT_EQ(printer.added.size(), 1U) << "and found from then on";
}

TEST_F(AddedForms, HaveNamesOfTheirOwnToATenthOfAMillimetre) {
  EXPECT_TRUE(FormNumber("p", Millimetres(241, 93.3), kUserDefinedPaper));
  EXPECT_TRUE(FormNumber("p", Millimetres(241, 93.5), kUserDefinedPaper));
  ASSERT_EQ(printer.added.size(), 2U);
  EXPECT_EQ(printer.added[0].name, L"QbTdPrinter 241.0 x 93.3 mm");
  EXPECT_EQ(printer.added[1].name, L"QbTdPrinter 241.0 x 93.5 mm");
  EXPECT_EQ(printer.added[0].size.cy, 93'300);
}

TEST_F(AddedForms, AreNotMadeForASheetThatIsThere) {
  EXPECT_EQ(FormNumber("p", Millimetres(210, 297), 9), 9);
  EXPECT_EQ(FormNumber("p", Millimetres(102, 165), kUserDefinedPaper), 256);
  EXPECT_TRUE(printer.added.empty());
}

TEST_F(AddedForms, NeedTheRightToManageThePrinter) {
  printer.mayBeManaged = false;
  EXPECT_EQ(FormNumber("p", Millimetres(241, 140), kUserDefinedPaper), std::nullopt);
  EXPECT_TRUE(printer.added.empty());
}

TEST_F(AddedForms, AreOfNoUseToADriverThatDoesNotOfferThem) {
  printer.showsAddedForms = false;
  EXPECT_EQ(FormNumber("p", Millimetres(241, 140), kUserDefinedPaper), std::nullopt);
  EXPECT_EQ(FormNumber("p", Millimetres(241, 140), kUserDefinedPaper), std::nullopt);
  EXPECT_EQ(printer.added.size(), 1U) << "a name is taken once";
}

}  // namespace
}  // namespace td

// The system's functions, as far as they are called.
extern "C" {

BOOL WINAPI OpenPrinterW(LPWSTR /*name*/, LPHANDLE opened, LPPRINTER_DEFAULTSW defaults) {
  const bool manages = (defaults->DesiredAccess & PRINTER_ACCESS_ADMINISTER) != 0;
  if (manages && !td::printer.mayBeManaged) {
    SetLastError(ERROR_ACCESS_DENIED);
    return FALSE;
  }
  ++td::printer.open;
  *opened = &td::printer;
  return TRUE;
}

BOOL WINAPI ClosePrinter(HANDLE /*opened*/) {
  --td::printer.open;
  return TRUE;
}

BOOL WINAPI AddFormW(HANDLE /*opened*/, DWORD /*level*/, LPBYTE record) {
  constexpr std::int16_t kFirstNumber = 300;
  const auto* form = reinterpret_cast<const FORM_INFO_1W*>(record);
  if (std::ranges::count(td::printer.added, form->pName, &td::AddedForm::name) > 0) {
    SetLastError(ERROR_FILE_EXISTS);
    return FALSE;
  }
  td::printer.added.push_back({form->Flags, form->pName, form->Size, form->ImageableArea});
  if (td::printer.showsAddedForms) {
    const auto number = static_cast<std::int16_t>(kFirstNumber + td::printer.added.size() - 1);
    td::printer.forms.push_back(
        {number, td::Millimetres(form->Size.cx / 1000.0, form->Size.cy / 1000.0)});
  }
  return TRUE;
}

int WINAPI DeviceCapabilitiesW(LPCWSTR /*name*/, LPCWSTR /*port*/, WORD capability, LPWSTR output,
                               const DEVMODEW* /*mode*/) {
  const std::vector<td::Form>& forms = td::printer.forms;
  for (std::size_t i = 0; output != nullptr && i < forms.size(); ++i) {
    if (capability == DC_PAPERS) {
      reinterpret_cast<WORD*>(output)[i] = static_cast<WORD>(forms[i].number);
    } else if (capability == DC_PAPERSIZE) {
      reinterpret_cast<POINT*>(output)[i] = {td::Tenths(forms[i].sheet.width),
                                             td::Tenths(forms[i].sheet.height)};
    }
  }
  return static_cast<int>(forms.size());
}

}  // extern "C"
