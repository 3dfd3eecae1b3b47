#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "fake_host.h"

namespace td {
namespace {

class DocumentStates : public testing::Test {
 protected:
  DocumentStates() {
    document.Connect(
        {[this] { Note("NewPage"); }, [this] { Note("EndPage"); }, [this] { Note("EndDoc"); }});
  }

  void Note(const std::string& event) {
    events.push_back(event + " " + std::to_string(document.PageCount()));
    if (event == failing) throw Failure(1234, "锁");
    if (handler) handler(event);
  }

  FakeHost host;
  PageDocument document{host};
  std::vector<std::string> events;
  std::string failing;
  std::function<void(const std::string&)> handler;
};

using Events = std::vector<std::string>;
using State = PageDocument::State;

TEST_F(DocumentStates, StartsEmpty) {
  EXPECT_EQ(document.GetState(), State::kEmpty);
  EXPECT_EQ(document.PageCount(), 0);
  EXPECT_EQ(document.PreviewPage(), 1);
}

TEST_F(DocumentStates, EventsFireInOrderInsideTheirOperationsAndCountTheNewPage) {
  document.StartDoc();
  EXPECT_EQ(events, (Events{"NewPage 1"}));
  document.NewPage();
  EXPECT_EQ(events, (Events{"NewPage 1", "EndPage 1", "NewPage 2"}));
  document.EndDoc();
  EXPECT_EQ(events, (Events{"NewPage 1", "EndPage 1", "NewPage 2", "EndPage 2", "EndDoc 2"}));
  EXPECT_EQ(document.GetState(), State::kClosed);
  EXPECT_EQ(document.PageCount(), 2);
}

TEST_F(DocumentStates, StartDocReplacesAClosedAndAnOpenDocument) {
  document.StartDoc();
  document.NewPage();
  document.EndDoc();
  document.StartDoc();
  EXPECT_EQ(document.PageCount(), 1);
  document.NewPage();
  document.StartDoc();
  EXPECT_EQ(document.PageCount(), 1);
  EXPECT_EQ(document.GetState(), State::kOpen);
}

TEST_F(DocumentStates, ClearDocThrowsThePagesAway) {
  document.StartDoc();
  document.EndDoc();
  document.ClearDoc();
  EXPECT_EQ(document.GetState(), State::kEmpty);
  EXPECT_EQ(document.PageCount(), 0);
  document.StartDoc();
  EXPECT_EQ(document.PageCount(), 1);
}

TEST_F(DocumentStates, PreviewPageIsOneAfterEndDocAndStartDoc) {
  document.StartDoc();
  document.NewPage();
  document.PutPreviewPage(2);
  document.EndDoc();
  EXPECT_EQ(document.PreviewPage(), 1);
  document.PutPreviewPage(2);
  document.StartDoc();
  EXPECT_EQ(document.PreviewPage(), 1);
}

TEST_F(DocumentStates, PagesAndTheirEndNeedAnOpenDocument) {
  EXPECT_EQ(NumberOf([&] { document.NewPage(); }), kInvalidCall);
  EXPECT_EQ(NumberOf([&] { document.EndDoc(); }), kInvalidCall);
  document.StartDoc();
  document.EndDoc();
  EXPECT_EQ(NumberOf([&] { document.NewPage(); }), kInvalidCall);
  EXPECT_EQ(NumberOf([&] { document.EndDoc(); }), kInvalidCall);
  EXPECT_EQ(document.PageCount(), 1);
}

TEST_F(DocumentStates, HandlersMayNotStartEndOrContinueTheDocument) {
  std::vector<int> numbers;
  handler = [&](const std::string&) {
    numbers.push_back(NumberOf([&] { document.StartDoc(); }));
    numbers.push_back(NumberOf([&] { document.NewPage(); }));
    numbers.push_back(NumberOf([&] { document.EndDoc(); }));
  };
  document.StartDoc();
  document.EndDoc();
  EXPECT_EQ(numbers, std::vector<int>(9, kInvalidCall));
  EXPECT_EQ(document.PageCount(), 1);
}

TEST_F(DocumentStates, AFailureInOnEndDocLeavesTheDocumentOpenForARetry) {
  document.StartDoc();
  events.clear();
  failing = "EndDoc";
  EXPECT_EQ(NumberOf([&] { document.EndDoc(); }), 1234);
  EXPECT_EQ(document.GetState(), State::kOpen);
  EXPECT_TRUE(host.calls.empty());
  failing.clear();
  document.EndDoc();
  EXPECT_EQ(events, (Events{"EndPage 1", "EndDoc 1", "EndPage 1", "EndDoc 1"}));
  EXPECT_EQ(document.GetState(), State::kClosed);
}

TEST_F(DocumentStates, AFailureInOnEndPageKeepsThePageAndARetryMovesOn) {
  document.StartDoc();
  failing = "EndPage";
  EXPECT_EQ(NumberOf([&] { document.NewPage(); }), 1234);
  EXPECT_EQ(document.PageCount(), 1);
  failing.clear();
  document.NewPage();
  EXPECT_EQ(document.PageCount(), 2);
}

TEST_F(DocumentStates, AFailureInOnNewPageKeepsThePageThatHasBegun) {
  failing = "NewPage";
  EXPECT_EQ(NumberOf([&] { document.StartDoc(); }), 1234);
  EXPECT_EQ(document.GetState(), State::kOpen);
  EXPECT_EQ(document.PageCount(), 1);
  EXPECT_EQ(NumberOf([&] { document.NewPage(); }), 1234);
  EXPECT_EQ(document.PageCount(), 2);
  failing.clear();
  document.StartDoc();
  EXPECT_EQ(document.PageCount(), 1);
}

TEST_F(DocumentStates, AHandlerThatClearsTheDocumentEndsTheOperation) {
  document.StartDoc();
  handler = [&](const std::string&) { document.ClearDoc(); };
  document.NewPage();
  EXPECT_EQ(document.PageCount(), 0);
  handler = nullptr;
  document.StartDoc();
  events.clear();
  handler = [&](const std::string&) { document.ClearDoc(); };
  document.EndDoc();
  EXPECT_EQ(events, (Events{"EndPage 1"}));
  EXPECT_EQ(document.GetState(), State::kEmpty);
}

TEST_F(DocumentStates, MorePagesThanCanBeCountedOverflow) {
  document.Connect({});
  document.StartDoc();
  for (int page = 2; page <= 32767; ++page) document.NewPage();
  EXPECT_EQ(document.PageCount(), 32767);
  EXPECT_EQ(NumberOf([&] { document.NewPage(); }), kOverflow);
  EXPECT_EQ(document.PageCount(), 32767);
}

TEST_F(DocumentStates, PrintingNeedsAClosedDocument) {
  EXPECT_EQ(NumberOf([&] { document.PrintDoc(); }), kInvalidCall);
  document.StartDoc();
  EXPECT_EQ(NumberOf([&] { document.PrintDoc(); }), kInvalidCall);
  document.EndDoc();
  document.PrintDoc();
  document.PrintDoc(true);
  EXPECT_EQ(host.calls, (Events{"print", "print with dialog"}));
}

TEST_F(DocumentStates, TheExportFileIsWrittenWhenTheDocumentIsClosed) {
  document.PutExportFile("/tmp/订单.html");
  document.PutExportFormat(1);
  document.StartDoc();
  EXPECT_TRUE(host.calls.empty());
  document.EndDoc();
  EXPECT_EQ(host.calls, (Events{"export /tmp/订单.html 1 closed"}));
}

TEST_F(DocumentStates, WithoutAnExportFileNothingIsWritten) {
  document.StartDoc();
  document.EndDoc();
  EXPECT_TRUE(host.calls.empty());
}

// ---- Overlays

std::size_t CommandsOn(const PageDocument& document, std::size_t page) {
  return document.Pages()[page - 1].commands.size();
}

TEST_F(DocumentStates, OverlaysLandOnTopOfFinishedPages) {
  handler = [&](const std::string& event) {
    if (event != "EndDoc") return;
    for (std::int16_t page = 1; page <= document.PageCount(); ++page) {
      document.StartOverlay(page);
      document.TextBox("第" + std::to_string(page) + "页", 0, 0, 100, 100);
      document.EndOverlay();
    }
  };
  document.StartDoc();
  document.DrawLine(0, 0, 1, 1);
  document.NewPage();
  document.EndDoc();
  ASSERT_EQ(CommandsOn(document, 1), 2U);
  ASSERT_EQ(CommandsOn(document, 2), 1U);
  EXPECT_EQ(std::get<BoxText>(document.Pages()[0].commands[1]).text, "第1页");
  EXPECT_EQ(std::get<BoxText>(document.Pages()[1].commands[0]).text, "第2页");
}

TEST_F(DocumentStates, OverlaysAreForOnEndDocAlone) {
  EXPECT_EQ(NumberOf([&] { document.StartOverlay(1); }), kInvalidCall);
  handler = [&](const std::string& event) {
    if (event == "EndDoc") return;
    EXPECT_EQ(NumberOf([&] { document.StartOverlay(1); }), kInvalidCall);
  };
  document.StartDoc();
  EXPECT_EQ(NumberOf([&] { document.StartOverlay(1); }), kInvalidCall);
  document.EndDoc();
  EXPECT_EQ(NumberOf([&] { document.StartOverlay(1); }), kInvalidCall);
  EXPECT_EQ(NumberOf([&] { document.EndOverlay(); }), kInvalidCall);
}

TEST_F(DocumentStates, OverlaysRefuseMissingPagesAndASecondPageAtATime) {
  handler = [&](const std::string& event) {
    if (event != "EndDoc") return;
    EXPECT_EQ(NumberOf([&] { document.StartOverlay(0); }), kInvalidCall);
    EXPECT_EQ(NumberOf([&] { document.StartOverlay(2); }), kInvalidCall);
    EXPECT_EQ(NumberOf([&] { document.EndOverlay(); }), kInvalidCall);
    document.StartOverlay(1);
    EXPECT_EQ(NumberOf([&] { document.StartOverlay(1); }), kInvalidCall);
    document.EndOverlay();
  };
  document.StartDoc();
  document.EndDoc();
}

TEST_F(DocumentStates, AFailureInsideAnOverlayClosesItForTheRetry) {
  bool fails = true;
  handler = [&](const std::string& event) {
    if (event != "EndDoc") return;
    document.StartOverlay(1);
    document.DrawLine(0, 0, 1, 1);
    if (fails) throw Failure(1234, "锁");
    document.EndOverlay();
  };
  document.StartDoc();
  document.NewPage();
  EXPECT_EQ(NumberOf([&] { document.EndDoc(); }), 1234);
  document.DrawLine(0, 0, 1, 1);
  EXPECT_EQ(CommandsOn(document, 2), 1U);
  fails = false;
  document.EndDoc();
  EXPECT_EQ(CommandsOn(document, 1), 2U);
}

}  // namespace
}  // namespace td
