// What is asked of drivers of different abilities.
#include "windows/printing/driver_settings.h"

#include <gtest/gtest.h>

#include "test_printer.h"

namespace td {
namespace {

class DriversCopies : public testing::Test {
 protected:
  DriversCopies() { ThePrinter() = {}; }

  // How often the pages are sent, and how many copies the driver is told to make of each.
  static std::pair<int, int> Sent(int copies, bool collated) {
    DriverSettings settings("p");
    JobOptions options;
    options.copies = copies;
    options.collated = collated;
    const int times = settings.PutOptions(options);
    return {times, settings.Mode()->dmCopies};
  }
};

using Pair = std::pair<int, int>;

TEST_F(DriversCopies, AreMadeByADriverThatMakesAndSortsThem) {
  ThePrinter().mostCopies = 99;
  ThePrinter().collates = true;
  EXPECT_EQ(Sent(3, true), Pair(1, 3));
  EXPECT_EQ(Sent(3, false), Pair(1, 3));
}

TEST_F(DriversCopies, AreSentInOrderToADriverThatDoesNotSortThem) {
  ThePrinter().mostCopies = 99;
  EXPECT_EQ(Sent(3, true), Pair(3, 1));
  EXPECT_EQ(Sent(3, false), Pair(1, 3));
}

TEST_F(DriversCopies, AreSentWhereTheyAreMoreThanTheDriverMakes) {
  ThePrinter().mostCopies = 99;
  ThePrinter().collates = true;
  EXPECT_EQ(Sent(120, true), Pair(120, 1));
}

TEST_F(DriversCopies, AreSentToADriverThatMakesNone) {
  EXPECT_EQ(Sent(3, true), Pair(3, 1));
  EXPECT_EQ(Sent(1, true), Pair(1, 1));
}

class DriversSheet : public testing::Test {
 protected:
  DriversSheet() {
    ThePrinter() = {};
    ThePrinter().forms = {{9, Millimetres(210, 297)}, {DMPAPER_USER, Millimetres(102, 165)}};
    ThePrinter().settings.dmFields = DM_PAPERSIZE;
    ThePrinter().settings.dmPaperSize = DMPAPER_USER;
  }

  static bool IsSheet(double width, double height) {
    const auto sheet = DriverSettings("p").Sheet();
    return sheet && IsSameSheet(*sheet, Millimetres(width, height));
  }
};

TEST_F(DriversSheet, IsTheOneOfItsNumber) {
  EXPECT_TRUE(IsSheet(102, 165));
}

TEST_F(DriversSheet, IsWhatAUserHasEnteredForHisOwn) {
  ThePrinter().settings.dmFields |= DM_PAPERWIDTH | DM_PAPERLENGTH;
  ThePrinter().settings.dmPaperWidth = 2410;
  ThePrinter().settings.dmPaperLength = 1400;
  EXPECT_TRUE(IsSheet(241, 140));
  ThePrinter().settings.dmPaperSize = DMPAPER_A4;
  EXPECT_TRUE(IsSheet(210, 297)) << "of a usual sheet the number holds";
}

}  // namespace
}  // namespace td
