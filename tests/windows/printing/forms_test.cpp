// Forms that are added, which the emulation's printing system never does.
#include "windows/printing/forms.h"

#include <gtest/gtest.h>

#include "test_printer.h"
#include "windows/printing/printer_handle.h"

namespace td {
namespace {

// The driver's own number for any size is that of a sheet.
class AddedForms : public testing::Test {
 protected:
  AddedForms() {
    ThePrinter() = {};
    ThePrinter().forms = {{9, Millimetres(210, 297)}, {256, Millimetres(102, 165)}};
  }
  ~AddedForms() override { EXPECT_EQ(ThePrinter().open, 0); }
};

TEST_F(AddedForms, AreMadeForASheetThatTheDriverLacks) {
  EXPECT_EQ(FormNumber("p", Millimetres(241, 140), kUserDefinedPaper), 300);
  ASSERT_EQ(ThePrinter().added.size(), 1U);
  const AddedForm& form = ThePrinter().added.front();
  EXPECT_EQ(form.flags, DWORD{FORM_USER});
  EXPECT_EQ(form.name, L"QbTdPrinter 241.0 x 140.0 mm");
  EXPECT_EQ(form.size.cx, 241'000);
  EXPECT_EQ(form.size.cy, 140'000);
  EXPECT_EQ(form.printable.right, 241'000) << "nothing of the sheet is kept empty";
  EXPECT_EQ(form.printable.bottom, 140'000);
  EXPECT_EQ(form.printable.left, 0);
  EXPECT_EQ(FormNumber("p", Millimetres(241, 140), kUserDefinedPaper), 300);
  EXPECT_EQ(ThePrinter().added.size(), 1U) << "and found from then on";
}

TEST_F(AddedForms, HaveNamesOfTheirOwnToATenthOfAMillimetre) {
  EXPECT_TRUE(FormNumber("p", Millimetres(241, 93.3), kUserDefinedPaper));
  EXPECT_TRUE(FormNumber("p", Millimetres(241, 93.5), kUserDefinedPaper));
  ASSERT_EQ(ThePrinter().added.size(), 2U);
  EXPECT_EQ(ThePrinter().added[0].name, L"QbTdPrinter 241.0 x 93.3 mm");
  EXPECT_EQ(ThePrinter().added[1].name, L"QbTdPrinter 241.0 x 93.5 mm");
  EXPECT_EQ(ThePrinter().added[0].size.cy, 93'300);
}

TEST_F(AddedForms, AreNotMadeForASheetThatIsThere) {
  EXPECT_EQ(FormNumber("p", Millimetres(210, 297), 9), 9);
  EXPECT_EQ(FormNumber("p", Millimetres(102, 165), kUserDefinedPaper), 256);
  EXPECT_TRUE(ThePrinter().added.empty());
}

TEST_F(AddedForms, TakeNoPlaceOfASheetThatAUserIsToEnter) {
  ThePrinter().forms.push_back({257, {}});
  EXPECT_EQ(FormsOf("p").size(), 2U);
}

TEST_F(AddedForms, NeedTheRightToManageThePrinter) {
  ThePrinter().mayBeManaged = false;
  EXPECT_EQ(FormNumber("p", Millimetres(241, 140), kUserDefinedPaper), std::nullopt);
  EXPECT_TRUE(ThePrinter().added.empty());
}

TEST_F(AddedForms, AreOfNoUseToADriverThatDoesNotOfferThem) {
  ThePrinter().showsAddedForms = false;
  EXPECT_EQ(FormNumber("p", Millimetres(241, 140), kUserDefinedPaper), std::nullopt);
  EXPECT_EQ(FormNumber("p", Millimetres(241, 140), kUserDefinedPaper), std::nullopt);
  EXPECT_EQ(ThePrinter().added.size(), 1U) << "a name is taken once";
}

}  // namespace
}  // namespace td
