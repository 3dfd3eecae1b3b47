// The findings of the checker, and how they follow the format.
#include "designer/panels/findings_panel.h"

#include <QPushButton>

#include "designer/panels/item_panel.h"
#include "panel_use.h"

namespace td::designer {
namespace {

using enum FindingSeverity;

class FindingsPanelTest : public PanelUse {
 protected:
  FindingsPanelTest() {
    workspace_.check = [this](const Format& format) {
      ++checks_;
      std::vector<FormatFinding> findings;
      if (format.Name() == "bad") {
        findings.push_back({.severity = kError,
                            .item = 0,
                            .wrong = "the name",
                            .effect = "nothing prints",
                            .mend = "another one"});
      }
      if (format.items.Find(value_)->row.Text("FFormatString") == "?") {
        findings.push_back({.severity = kWarning,
                            .item = value_,
                            .wrong = "the picture",
                            .effect = "a question mark",
                            .mend = "write 0",
                            .onPictureString = true});
      }
      return findings;
    };
  }
  QListWidget& List() { return Named<QListWidget>("Findings"); }
  // Until the moment after the last change is over.
  void WaitForCheck(int before) {
    ASSERT_TRUE(QTest::qWaitFor([&] { return checks_ > before; }));
  }
  int checks_ = 0;
};

TEST_F(FindingsPanelTest, AMomentAfterSomeChangesTheFormatIsCheckedOnce) {
  Open<FindingsPanel>();
  WaitForCheck(0);
  EXPECT_EQ(Named<QLabel>("FindingCounts").text(), "Nothing found.");
  const int before = checks_;
  Document().SetFormat("FTDBillName", std::string("bad"));
  Document().Set({value_}, "FFormatString", std::string("?"));
  WaitForCheck(before);
  EXPECT_EQ(checks_, before + 1);
  ASSERT_EQ(List().count(), 2);
  EXPECT_EQ(List().item(0)->text(), "the name");
  EXPECT_EQ(List().item(1)->text(), "金额: the picture");
  EXPECT_EQ(Named<QLabel>("FindingCounts").text(), "Errors: 1, Warnings: 1");
  EXPECT_EQ(workspace_.findings.Marks(), (std::map<ItemId, FindingSeverity>{{value_, kWarning}}));
}

TEST_F(FindingsPanelTest, EnterGoesToTheItemAndTheWordsBelowSayWhatToDo) {
  ItemId gone = 0;
  workspace_.goTo = [&](ItemId id) { gone = id; };
  Document().Set({value_}, "FFormatString", std::string("?"));
  Open<FindingsPanel>();
  Named<QPushButton>("CheckNow").click();
  ASSERT_EQ(List().count(), 1);
  List().setFocus();
  List().setCurrentRow(0);
  EXPECT_EQ(Named<QLabel>("FindingExplanation").text(), "a question mark\nwrite 0");
  QTest::keyClick(&List(), Qt::Key_Return);
  EXPECT_EQ(gone, value_);
}

TEST_F(FindingsPanelTest, AnItemThatIsGoneStaysInNoList) {
  Document().Set({value_}, "FFormatString", std::string("?"));
  Open<FindingsPanel>();
  Named<QPushButton>("CheckNow").click();
  workspace_.check = [](const Format&) { return std::vector<FormatFinding>(); };
  Document().Remove({value_});
  QTest::keyClick(&List(), Qt::Key_Return);
  Named<QPushButton>("CheckNow").click();
  EXPECT_EQ(List().count(), 0);
  EXPECT_TRUE(workspace_.findings.Marks().empty());
}

TEST_F(FindingsPanelTest, ThePanelOfTheItemSaysWhatIsWrongWithItsPictureString) {
  Document().Set({value_}, "FFormatString", std::string("?"));
  Open<ItemPanel>();
  workspace_.selection.Select({value_});
  EXPECT_FALSE(Named("PictureFinding").isVisible());
  workspace_.findings.Put(workspace_.check(Document().Current()));
  EXPECT_EQ(Named<QLabel>("PictureFinding").text(), "the picture write 0");
  EXPECT_TRUE(Named("PictureFinding").isVisible());
  workspace_.selection.Select({label_});
  EXPECT_FALSE(Named("PictureFinding").isVisible());
}

}  // namespace
}  // namespace td::designer
