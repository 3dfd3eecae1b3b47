// The queue for a form that the documentation tells administrators to make.
#include <gtest/gtest.h>

#include "page_document/drawing.h"
#include "print_queue.h"
#include "qt/render/outputs.h"
#include "qt/system/print_job.h"
#include "qt/system/printers.h"
#include "test_tools.h"

namespace td {
namespace {

constexpr PaperExtent kForm{230 * kTwipsPerMillimetre, 127 * kTwipsPerMillimetre};

// The first block of commands below a heading of a page.
std::string CommandsBelow(const std::string& heading, const std::string& page) {
  const std::string text = ReadFile(QBTD_SOURCE_DIR "/docs/" + page);
  const std::string begin = "\n```sh\n";
  const std::size_t start = text.find(begin, text.find("\n" + heading + "\n"));
  if (start == std::string::npos) return {};
  const std::size_t first = start + begin.size();
  return text.substr(first, text.find("```", first) - first);
}

void Replace(std::string& text, const std::string& word, const std::string& by) {
  ASSERT_NE(text.find(word), std::string::npos) << word;
  for (std::size_t at = 0; (at = text.find(word, at)) != std::string::npos; at += by.size()) {
    text.replace(at, word.size(), by);
  }
}

// A queue that somebody makes, and that is removed with this object.
struct TemporaryQueue {
  TemporaryQueue() = default;
  TemporaryQueue(const TemporaryQueue&) = delete;
  TemporaryQueue& operator=(const TemporaryQueue&) = delete;
  ~TemporaryQueue() { (void)OutputOf("lpadmin", {"-x", name}); }

  const std::string name = UniqueTitle("form");
};

TEST(FormQueue, TheDocumentedCommandsMakeAQueueWhoseOwnSheetIsTheForm) {
  const TemporaryQueue queue;
  std::string commands = CommandsBelow("## A queue for a form", "printers-and-paper.md");
  Replace(commands, "Waybill", queue.name);
  Replace(commands, "-v DEVICE", "-v cups-pdf:/qbtd");
  Replace(commands, "-P DRIVER", "-P /etc/cups/ppd/QbTd-PDF.ppd");
  const Folder home;  // of the clerk, whose default printer it becomes
  const std::string asClerk = "HOME=" + home.Path("");
  (void)OutputOf("env", {asClerk, "bash", "-e", "-c", commands});

  EXPECT_EQ(OutputOf("env", {asClerk, "LC_ALL=C", "lpstat", "-d"}),
            "system default destination: " + queue.name + "\n");
  const auto own = OwnSheet(queue.name);
  ASSERT_TRUE(own);
  EXPECT_TRUE(IsSameSheet(*own, kForm)) << own->width << " by " << own->height;

  const std::string pdf = ToPdf({Page{kForm.width, kForm.height, {}}}, "test");
  const std::vector<Sheet> sheets =
      SheetsOf(ResultOf(SubmitPrintJob({queue.name, "qbtd-test", WriterOf(pdf), kForm, {}})));
  ASSERT_EQ(sheets.size(), 1U);
  EXPECT_NEAR(sheets[0].width, 230, kTolerance);
  EXPECT_NEAR(sheets[0].height, 127, kTolerance);
}

}  // namespace
}  // namespace td
