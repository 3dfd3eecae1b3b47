// The checker on a format that is being edited.
#include "designer/panels/format_check.h"

#include <algorithm>

#include "panel_use.h"
#include "qt/pictures/qt_picture_files.h"

namespace td::designer {
namespace {

// A machine without a printer.
class NoPrinters : public checker::CheckedMachine {
 public:
  [[nodiscard]] std::vector<std::string> Printers() const override { return {}; }
  [[nodiscard]] std::string DefaultPrinter() const override { return {}; }
  [[nodiscard]] std::string Id() const override { return "127.0.0.1"; }
  [[nodiscard]] std::optional<PaperExtent> OwnSheet(const std::string&) const override {
    return std::nullopt;
  }
  [[nodiscard]] std::optional<SheetMargins> Margins(const std::string&,
                                                    const PaperExtent&) const override {
    return std::nullopt;
  }
  [[nodiscard]] bool Answers(const std::string&) const override { return false; }
  [[nodiscard]] Pictures& PictureFiles() const override { return pictures_; }
  [[nodiscard]] BarcodeSettings Barcodes() const override { return {}; }

 private:
  mutable QtPictureFiles pictures_{"."};
};

class FormatCheckTest : public PanelUse {
 protected:
  std::vector<FormatFinding> Check() {
    return CheckWith(machine_, workspace_.data)(Document().Current());
  }
  static bool Says(const std::vector<FormatFinding>& findings, ItemId item, bool onPicture) {
    return std::ranges::any_of(findings, [&](const FormatFinding& finding) {
      return finding.item == item && finding.onPictureString == onPicture &&
             !finding.wrong.empty() && !finding.mend.empty();
    });
  }
  NoPrinters machine_;
};

TEST_F(FormatCheckTest, FindsAnItemBesideTheSheetAndForgetsItWhenItIsMovedBack) {
  Document().Remove({picture_});
  EXPECT_FALSE(Says(Check(), label_, false));
  Document().Move({label_}, TwipsOf(300), 0);
  EXPECT_TRUE(Says(Check(), label_, false));
  Document().Undo();
  EXPECT_FALSE(Says(Check(), label_, false));
}

TEST_F(FormatCheckTest, KnowsTheItemByItsIdWhateverItsPlace) {
  Document().Move({label_}, TwipsOf(300), 0);
  Document().Reorder({label_}, Order::kToFront);
  EXPECT_TRUE(Says(Check(), label_, false));
}

TEST_F(FormatCheckTest, TellsWhatIsOnAPictureString) {
  Document().Set({value_}, "FFormatString", std::string("No.0"));
  EXPECT_TRUE(Says(Check(), value_, true));
}

TEST_F(FormatCheckTest, AFormatWithoutItemsIsAFindingOnTheFormat) {
  Document().Reset(NewFormat(21, "空"));
  const auto findings = Check();
  EXPECT_TRUE(Says(findings, 0, false));
}

TEST_F(FormatCheckTest, RowsThatCantBeCheckedLeaveTheFormatAlone) {
  GiveData();  // without FInterID
  Document().Move({label_}, TwipsOf(300), 0);
  EXPECT_TRUE(Says(Check(), label_, false));
}

}  // namespace
}  // namespace td::designer
