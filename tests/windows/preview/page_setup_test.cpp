// The page-setup dialog.
#include "page_document/drawing.h"
#include "page_setup_of_two_printers.h"

namespace td {
namespace {

constexpr std::int32_t kPaperA3 = 8;
constexpr std::int32_t kPaperA5 = 11;

using PageSetup = PageSetupOfTwoPrinters;
using enum PageSetupDialog::Control;

TEST_F(PageSetup, ShowsTheDocumentsPaperAndMargins) {
  document_.PutPaperSize(kPaperA5);
  document_.PutOrientation(kLandscape);
  document_.PutMarginTop(567);
  Open();
  EXPECT_EQ(Entry(kPaperId), "A5（148 × 210 mm）");
  EXPECT_EQ(WordsOf(Part(kWidthId)), "148.0");
  EXPECT_EQ(WordsOf(Part(kHeightId)), "210.0");
  EXPECT_FALSE(IsWindowEnabled(Part(kWidthId)));
  EXPECT_EQ(WordsOf(Part(kTopId)), "10.0");
  EXPECT_EQ(IsDlgButtonChecked(dialog_->Window(), kLandscapeId), UINT{BST_CHECKED});
  EXPECT_TRUE(CanConfirm());
}

TEST_F(PageSetup, PutsTheChoicesIntoTheDocument) {
  Open();
  Choose(kPaperId, "自定义");
  EXPECT_TRUE(IsWindowEnabled(Part(kWidthId)));
  Write(kWidthId, L"241");
  Write(kHeightId, L"140");
  for (const int field : {kLeftId, kTopId, kRightId, kBottomId}) Write(field, L"5");
  ChooseLandscape();
  dialog_->Apply();
  EXPECT_EQ(document_.PaperSize(), kUserDefinedPaper);
  EXPECT_NEAR(document_.PaperWidth(), 241 * kTwipsPerMillimetre, 0.01);
  EXPECT_NEAR(document_.PaperHeight(), 140 * kTwipsPerMillimetre, 0.01);
  EXPECT_NEAR(document_.MarginBottom(), 5 * kTwipsPerMillimetre, 0.01);
  EXPECT_EQ(document_.Orientation(), kLandscape);
}

TEST_F(PageSetup, LeavesLengthsThatNobodyTouchedExactlyAsTheyWere) {
  document_.PutPaperWidth(12000);
  document_.PutPaperHeight(5000);
  document_.PutMarginTop(111);
  Open();
  dialog_->Apply();
  EXPECT_EQ(document_.PaperWidth(), 12000);
  EXPECT_EQ(document_.PaperHeight(), 5000);
  EXPECT_EQ(document_.MarginTop(), 111);
}

TEST_F(PageSetup, ChoosesANamedSheetWithItsSize) {
  document_.PutPaperWidth(12000);
  Open();
  Choose(kPaperId, "A3");
  EXPECT_EQ(WordsOf(Part(kWidthId)), "297.0");
  dialog_->Apply();
  EXPECT_EQ(document_.PaperSize(), kPaperA3);
  EXPECT_NEAR(document_.PaperWidth(), 297 * kTwipsPerMillimetre, 0.01);
}

TEST_F(PageSetup, RefusesASheetWithoutAnArea) {
  Open();
  Choose(kPaperId, "自定义");
  Write(kWidthId, L"0");
  EXPECT_FALSE(CanConfirm());
  EXPECT_EQ(WordsOf(Part(kObjectionId)), "纸张的宽度和高度都必须大于 0。");
  Write(kWidthId, L"100");
  EXPECT_TRUE(CanConfirm());
  EXPECT_EQ(WordsOf(Part(kObjectionId)), "");
}

TEST_F(PageSetup, RefusesMarginsThatLeaveNothingOfTheSheet) {
  Open();
  for (const int field : {kTopId, kBottomId}) Write(field, L"0");
  Write(kLeftId, L"110");
  Write(kRightId, L"100");
  EXPECT_FALSE(CanConfirm());
  EXPECT_EQ(WordsOf(Part(kObjectionId)), "左右页边距之和必须小于纸张的宽度。");
  ChooseLandscape();
  EXPECT_TRUE(CanConfirm()) << "there is room on the sheet in landscape";
  Write(kTopId, L"210");
  EXPECT_EQ(WordsOf(Part(kObjectionId)), "上下页边距之和必须小于纸张的高度。");
}

TEST_F(PageSetup, WhatIsNoLengthCountsAsTheLastOneThatWas) {
  Open();
  Write(kLeftId, L"12.5");
  for (const wchar_t* written : {L"", L".", L"1.2.3"}) Write(kLeftId, written);
  EXPECT_FALSE(Show({[this] { SetFocus(Part(kLeftId)); }, [this] { SetFocus(Part(kTopId)); },
                     [this] { EXPECT_EQ(WordsOf(Part(kLeftId)), "12.5"); }}));
  Write(kLeftId, L"99999");
  dialog_->Apply();
  EXPECT_NEAR(document_.MarginLeft(), kLongestMillimetres * kTwipsPerMillimetre, 0.01);
}

TEST_F(PageSetup, LettersAreNotTakenIntoALength) {
  Show({[this] {
          SetFocus(Part(kLeftId));
          SendMessageW(Part(kLeftId), EM_SETSEL, 0, -1);
          for (const char letter : {'a', '7', 'x', '.', '5', '-'}) {
            PostMessageW(Part(kLeftId), WM_CHAR, static_cast<WPARAM>(letter), 1);
          }
        },
        [this] { EXPECT_EQ(WordsOf(Part(kLeftId)), "7.5"); }});
}

TEST_F(PageSetup, NoInputMethodComesBetweenTheKeysAndALength) {
  Open();
  for (const int field : {kWidthId, kHeightId, kLeftId, kTopId, kRightId, kBottomId}) {
    EXPECT_FALSE(HasInputMethod(Part(field))) << field;
  }
}

TEST_F(PageSetup, ArrowKeysAndTheWheelChangeALengthByAMillimetre) {
  Show({[this] {
          Write(kLeftId, L"20");
          SetFocus(Part(kLeftId));
        },
        [] { PostKey(VK_UP); }, [this] { EXPECT_EQ(WordsOf(Part(kLeftId)), "21.0"); },
        [] { PostKey(VK_DOWN); },
        [this] {
          EXPECT_EQ(WordsOf(Part(kLeftId)), "20.0");
          PostMessageW(Part(kLeftId), WM_MOUSEWHEEL, MAKEWPARAM(0, WHEEL_DELTA), 0);
        },
        [this] {
          EXPECT_EQ(WordsOf(Part(kLeftId)), "21.0");
          PostMessageW(Part(kTopId), WM_MOUSEWHEEL, MAKEWPARAM(0, WHEEL_DELTA), 0);
          PostMessageW(Part(kPaperId), WM_MOUSEWHEEL, MAKEWPARAM(0, -WHEEL_DELTA), 0);
        },
        [this] {
          EXPECT_EQ(WordsOf(Part(kTopId)), "25.4") << "it has no focus";
          EXPECT_EQ(Entry(kPaperId), "A4（210 × 297 mm）");
        }});
}

TEST_F(PageSetup, ShowsAnUnknownPaperNumberWithItsSize) {
  document_.PutPaperSize(12345);
  Open();
  EXPECT_EQ(Entry(kPaperId), "纸张 12345（210 × 297 mm）");
  dialog_->Apply();
  EXPECT_EQ(document_.PaperSize(), 12345);
}

TEST_F(PageSetup, OffersThePrintersAndShowsTheDocumentsOwn) {
  document_.PutDevice("仓库");
  Open();
  EXPECT_EQ(SendMessageW(Part(kPrinterId), CB_GETCOUNT, 0, 0), 2);
  EXPECT_EQ(Entry(kPrinterId), "仓库");
  EXPECT_EQ(dialog_->ChosenPrinter(), "");
  Choose(kPrinterId, "前台");
  EXPECT_EQ(dialog_->ChosenPrinter(), "前台");
  EXPECT_EQ(document_.Device(), "仓库") << "nothing is confirmed yet";
  dialog_->Apply();
  EXPECT_EQ(document_.Device(), "前台");
}

TEST_F(PageSetup, DoesNotChooseAPrinterInThePlaceOfOneThatHasGone) {
  document_.PutDevice("仓库");
  Open("二楼");
  EXPECT_EQ(Entry(kPrinterId), "");
  dialog_->Apply();
  EXPECT_EQ(document_.Device(), "仓库");
}

TEST_F(PageSetup, IsConfirmedAndCancelledByItsKeys) {
  struct Case {
    WPARAM key;
    bool confirms;
  };
  for (const auto& [key, confirms] : {Case{VK_RETURN, true}, Case{VK_ESCAPE, false}}) {
    dialog_.reset();
    document_.PutMarginLeft(0);
    const bool isConfirmed = Show({[this, key] {
      Write(kLeftId, L"50");
      SetFocus(Part(kLeftId));
      PostKey(key);
    }});
    EXPECT_EQ(isConfirmed, confirms);
    EXPECT_EQ(document_.MarginLeft(), 0) << "the caller puts the choices in";
  }
}

// ---- User-defined sheets, whose size no machine keeps

class UnkeptSheet : public PageSetup {
 protected:
  // Confirms a sheet of these millimetres, and answers the warning, if it comes, by a button.
  bool Confirm(const wchar_t* width, const wchar_t* height, const std::string& button) {
    dialog_.reset();
    Open();
    Choose(kPaperId, "自定义");
    Write(kWidthId, width);
    Write(kHeightId, height);
    warning_.clear();
    buttons_ = 0;
    std::vector<Step> steps = {[this] { PostMessageW(Part(IDOK), BM_CLICK, 0, 0); }};
    if (!button.empty()) steps.emplace_back([this, button] { Answer(button); });
    return Show(std::move(steps));
  }

  void Answer(const std::string& button) {
    const HWND box = Front();
    ASSERT_NE(box, dialog_->Window()) << "the warning";
    TakePicture(box, "unkept-sheet-" + std::to_string(GetDpiForWindow(box)));
    for (HWND part = GetWindow(box, GW_CHILD); part != nullptr;
         part = GetWindow(part, GW_HWNDNEXT)) {
      const std::string words = WordsOf(part);
      if (words.find("(&") == std::string::npos) {
        warning_ += words;
        continue;
      }
      ++buttons_;
      if (words == button) PostMessageW(part, BM_CLICK, 0, 0);
    }
  }

  std::string warning_;  // empty if there was none
  int buttons_ = 0;
};

constexpr const char* kBack = unkept_sheet_words::kGoBack;
constexpr const char* kOnce = unkept_sheet_words::kUseOnce;
constexpr const char* kNamed = unkept_sheet_words::kUseNamedPaper;

TEST_F(UnkeptSheet, IsConfirmedAfterAWarningOnly) {
  EXPECT_FALSE(Confirm(L"230", L"127", kBack));
  EXPECT_NE(warning_.find("本机不会记住自定义纸张的宽度和高度（230 × 127 mm）"), std::string::npos);
  EXPECT_NE(warning_.find("请管理员"), std::string::npos) << warning_;
  EXPECT_TRUE(Confirm(L"230", L"127", kOnce));
  dialog_->Apply();
  EXPECT_EQ(document_.PaperSize(), kUserDefinedPaper);
  EXPECT_NEAR(document_.PaperWidth(), 230 * kTwipsPerMillimetre, 0.01);
}

TEST_F(UnkeptSheet, BecomesThePaperOfThatSizeWhereThereIsOne) {
  EXPECT_TRUE(Confirm(L"210", L"148", kNamed));
  EXPECT_NE(warning_.find("纸张 78（210 × 148 mm）"), std::string::npos) << warning_;
  dialog_->Apply();
  EXPECT_EQ(document_.PaperSize(), 78);
  EXPECT_TRUE(Confirm(L"210", L"297", kNamed));
  dialog_->Apply();
  EXPECT_EQ(document_.PaperSize(), kPaperA4);
}

TEST_F(UnkeptSheet, NamesThePrinterWhoseOwnSheetItIs) {
  ownSheets_.ofPrinter = [](const std::string& printer) {
    return printer == "仓库"
               ? std::optional(PaperExtent{230 * kTwipsPerMillimetre, 127 * kTwipsPerMillimetre})
               : std::nullopt;
  };
  EXPECT_FALSE(Confirm(L"230", L"127", kBack));
  EXPECT_NE(warning_.find("打印机“仓库”自己的纸张正是这个大小"), std::string::npos) << warning_;
  EXPECT_EQ(buttons_, 2) << "nothing that could be done here";
}

TEST_F(UnkeptSheet, IsKeptWhereNewDocumentsBeginWithIt) {
  ownSheets_.ofNewDocument = [] {
    return std::optional(PaperExtent{230 * kTwipsPerMillimetre, 127 * kTwipsPerMillimetre});
  };
  EXPECT_TRUE(Confirm(L"230", L"127", {}));
  EXPECT_EQ(warning_, "");
  EXPECT_FALSE(Confirm(L"127", L"230", kBack)) << "the sheet turned is another one";
  EXPECT_NE(warning_, "");
}

}  // namespace
}  // namespace td
