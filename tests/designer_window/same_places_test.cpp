// The designer shows what the preview shows and what is printed: the same commands at the same
// places, and the same ink on the screen and on paper.
#include <QDockWidget>
#include <QImage>
#include <QProcess>
#include <QScrollBar>
#include <cmath>
#include <set>

#include "designer/model/known_columns.h"
#include "page_document/page_document.h"
#include "qt/render/outputs.h"
#include "sample_files.h"
#include "service/printer.h"
#include "shown_designer.h"

namespace td::designer {
namespace {

struct CommandText {
  std::string operator()(const BoxText& text) const {
    return "text " + text.text + Numbers({text.left, text.top, text.width, text.height}) +
           text.font->name + Numbers({text.font->points});
  }
  std::string operator()(const PointText& text) const {
    std::string all = "point" + Numbers({text.x, text.y});
    for (const TextLine& line : text.lines) {
      for (const TextRun& run : line) all += run.text;
    }
    return all;
  }
  std::string operator()(const Line& line) const {
    return "line" + Numbers({line.x1, line.y1, line.x2, line.y2, line.penWidth});
  }
  std::string operator()(const PlacedPicture& placed) const {
    return "picture" + Numbers({placed.left, placed.top, placed.width, placed.height});
  }
  static std::string Numbers(std::initializer_list<double> numbers) {
    std::string all;
    for (const double number : numbers) all += " " + std::to_string(number);
    return all;
  }
};

class SamePlaces : public ShownDesigner {
 protected:
  // The pages that a print of the stored format sends to the printer; the preview shows the same.
  std::vector<Page> Printed(const SamplePrint& print, const RecordsetRef& rows) {
    std::vector<Page> pages;
    DesktopOptions options = Options();
    options.documentSink = [&pages](const PageDocument& document) { pages = document.Pages(); };
    DesktopPlatform desktop(std::move(options));
    Printer printer(desktop.Get());
    const auto call = print.byArea ? &Printer::DoPrint_GroupByArea : &Printer::DoPrint;
    (printer.*call)(true, SampleOn(SampleEngine::kSqlite), print.billType, print.onlyVariant, false,
                    rows, print.format, nullptr);
    return pages;
  }
  int CompareInk(const QImage& paper);

  // Drops an item of the same kind, and makes it the same column by column.
  void Rebuild(const Format& original, const Item& item) {
    const ItemChoice choice = ChoiceOf(original, item);
    const bool isText = choice.kind == ChoiceKind::kText;
    const std::string caption = isText ? item.row.Text("FObjectCaption") : item.FieldName();
    Window().TheWorkspace().place({choice, caption, {}, item.Site()});
    const ItemIds dropped = Selected().Items();
    for (const KnownColumn& column : ItemColumns()) {
      Document().Set(dropped, column.name, item.row.Get(column.name));
    }
  }
};

std::vector<std::string> Texts(const Page& page) {
  std::vector<std::string> texts;
  for (const DrawingCommand& command : page.commands) {
    texts.push_back(std::visit(CommandText{}, command));
  }
  return texts;
}

const SamplePrint& SampleNamed(const std::vector<SamplePrint>& prints, const std::string& name) {
  const auto found = std::ranges::find(prints, name, &SamplePrint::name);
  if (found == prints.end()) throw std::runtime_error("no sample " + name);
  return *found;
}

std::vector<std::string> Sorted(std::vector<std::string> texts) {
  std::ranges::sort(texts);
  return texts;
}

// The middle of the ink in an area, in pixels; nothing if it is empty.
std::optional<QPointF> MiddleOfInk(const QImage& image, const QRectF& area) {
  double sum = 0;
  QPointF middle;
  const QRect pixels = area.toAlignedRect() & image.rect();
  for (int y = pixels.top(); y <= pixels.bottom(); ++y) {
    for (int x = pixels.left(); x <= pixels.right(); ++x) {
      const double ink = 255 - qGray(image.pixel(x, y));
      sum += ink;
      middle += QPointF(x + 0.5, y + 0.5) * ink;
    }
  }
  constexpr double kLeastInk = 255.0 * 20;
  if (sum < kLeastInk) return std::nullopt;
  return middle / sum;
}

// Compares the texts that are seen whole; how many there were.
int SamePlaces::CompareInk(const QImage& paper) {
  const double scale = Sheet().PixelsPerTwip();
  const QImage screen = Sheet().viewport()->grab().toImage();
  const QPointF corner = Sheet().SheetRect().topLeft();
  int compared = 0;
  for (const SheetPiece& piece : Sheet().Page().pieces) {
    for (const DrawingCommand& command : piece.commands) {
      const auto* text = std::get_if<BoxText>(&command);
      if (text == nullptr || text->text.empty()) continue;
      // Without the lines of the table around it.
      const QRectF area =
          QRectF(text->left * scale, text->top * scale, text->width * scale, text->height * scale)
              .adjusted(6, 6, -6, -6);
      if (!QRectF(screen.rect()).contains(area.translated(corner))) continue;
      const auto ours = MiddleOfInk(screen, area.translated(corner));
      const auto theirs = MiddleOfInk(paper, area);
      EXPECT_EQ(ours.has_value(), theirs.has_value()) << text->text;
      if (!ours || !theirs) continue;
      const QPointF apart = (*ours - corner - *theirs) / scale / kTwipsPerMillimetre;
      EXPECT_LT(std::hypot(apart.x(), apart.y()), 0.1)
          << text->text << " " << apart.x() << ", " << apart.y();
      ++compared;
    }
  }
  return compared;
}

// Each sample that prints one bill.
TEST_F(SamePlaces, EachSampleIsShownAsItIsPrinted) {
  const auto prints = ReadSamplePrints(std::filesystem::path(QBTD_SOURCE_DIR) / "examples");
  int compared = 0;
  for (const SamplePrint& print : prints) {
    if (print.byArea || print.blankRows > 0) continue;
    Open({print.billType, print.format, print.data});
    if (print.onlyVariant) Trigger("onlyValues");
    Settle();
    const auto rows = databases_.OpenReadOnly(SampleOn(SampleEngine::kSqlite), print.data);
    const Value bill = rows->Field("FInterID");
    for (rows->MoveFirst(); !rows->Eof() && rows->Field("FInterID") == bill;) rows->MoveNext();
    if (!rows->Eof()) continue;  // several bills: the sheet shows the first
    rows->MoveFirst();
    const std::vector<Page> printed = Printed(print, rows);
    const SheetPicture& shown = Sheet().Picture();
    ASSERT_EQ(shown.pages.size(), printed.size()) << print.name;
    for (std::size_t page = 0; page < printed.size(); ++page) {
      std::vector<std::string> ours;
      for (const SheetPiece& piece : shown.pages[page].pieces) {
        for (const DrawingCommand& command : piece.commands) {
          ours.push_back(std::visit(CommandText{}, command));
        }
      }
      EXPECT_EQ(Sorted(ours), Sorted(Texts(printed[page]))) << print.name << " page " << page + 1;
      EXPECT_EQ(shown.pages[page].width, printed[page].width);
      EXPECT_EQ(shown.pages[page].height, printed[page].height);
    }
    ++compared;
  }
  EXPECT_GE(compared, 5);
}

// A format made anew with the window's own steps: an item dropped for each, its columns set as the
// fields set them, saved. It prints what the sample prints.
TEST_F(SamePlaces, EachSampleIsRebuiltAndPrintsTheSame) {
  const auto prints = ReadSamplePrints(std::filesystem::path(QBTD_SOURCE_DIR) / "examples");
  std::set<std::string> rebuilt;
  for (SamplePrint print : prints) {
    if (print.blankRows > 0 || print.format.empty()) continue;
    if (!rebuilt.insert(std::to_string(print.billType) + print.format).second) continue;
    Open({print.billType, print.format});
    const Format original = Document().Current();
    const std::string name = "重做";
    AnswerName(name.c_str());
    Trigger("new");
    Settle();
    for (const Item& item : original.items) Rebuild(original, item);
    for (const KnownColumn& column : FormatColumns()) {
      if (column.name == "FTDBillName" || column.name == "FSelected") continue;
      Document().SetFormat(column.name, original.row.Get(column.name));
    }
    AnswerName(name.c_str());
    Trigger("save");
    ASSERT_FALSE(Window().isWindowModified()) << print.name;

    const auto rows = [&] {
      return databases_.OpenReadOnly(SampleOn(SampleEngine::kSqlite), print.data);
    };
    const std::vector<Page> wanted = Printed(print, rows());
    print.format = name;
    const std::vector<Page> made = Printed(print, rows());
    ASSERT_EQ(made.size(), wanted.size()) << print.name;
    for (std::size_t page = 0; page < made.size(); ++page) {
      EXPECT_EQ(Texts(made[page]), Texts(wanted[page])) << print.name << " page " << page + 1;
    }
    CloseWindow();
    RunScriptOn(SampleEngine::kSqlite,
                "delete from TDBillDetail where FTDBillID in (select FTDBillID from TDBill where "
                "FTDBillName='重做'); delete from TDBill where FTDBillName='重做';");
  }
  EXPECT_EQ(rebuilt.size(), 9U);
}

// Both the screen and the reader of the PDF set letters on whole pixels, so that the pixels are to
// be small: a corner of the sheet at a time.
TEST_F(SamePlaces, InkOnTheScreenIsWhereThePdfHasIt) {
  const auto prints = ReadSamplePrints(std::filesystem::path(QBTD_SOURCE_DIR) / "examples");
  const SamplePrint& print = SampleNamed(prints, "sales-order-1-line");
  Open({print.billType, print.format, print.data});
  for (const char* action : {"showBands", "showFrames", "showGrid"}) Trigger(action);
  for (QDockWidget* dock : Window().findChildren<QDockWidget*>()) dock->hide();
  Window().resize(2300, 1500);
  Settle();
  Sheet().PutZoom(500);
  Settle();
  const double scale = Sheet().PixelsPerTwip();
  const auto pages =
      Printed(print, databases_.OpenReadOnly(SampleOn(SampleEngine::kSqlite), print.data));
  WritePdf(pages, folder_ / "bill.pdf", "bill");
  ASSERT_EQ(
      QProcess::execute("pdftoppm", {"-r", QString::number(scale * 1440), "-png", "-singlefile",
                                     QString::fromStdString(folder_ / "bill.pdf"),
                                     QString::fromStdString(folder_ / "bill")}),
      0);
  const QImage paper(QString::fromStdString(folder_ / "bill.png"));
  ASSERT_FALSE(paper.isNull());
  int compared = 0;
  for (const int x : {0, Sheet().horizontalScrollBar()->maximum()}) {
    for (const int y : {0, Sheet().verticalScrollBar()->maximum()}) {
      Sheet().horizontalScrollBar()->setValue(x);
      Sheet().verticalScrollBar()->setValue(y);
      Settle();
      compared += CompareInk(paper);
    }
  }
  EXPECT_GT(compared, 30);
}

TEST_F(SamePlaces, WhatIsShownIsTheFormatInMemory) {
  Open();
  const auto before = *Sheet().BoxOf(ItemNamed("客户").id);
  Document().Move({ItemNamed("客户").id}, TwipsOf(12), TwipsOf(3));
  const auto after = *Sheet().BoxOf(ItemNamed("客户").id);
  EXPECT_NEAR(after.left - before.left, TwipsOf(12), 0.1);
  EXPECT_NEAR(after.top - before.top, TwipsOf(3), 0.1);
}

// The run's places are those of the model's layout: what is hit is what is seen.
TEST_F(SamePlaces, CaptionsStandWhereTheLayoutOfAFullPageHasThem) {
  for (const auto& [type, format] : {std::pair(21, "销售订货单"), std::pair(22, "")}) {
    Open({type, type == 21 ? "" : format});
    for (const Item& item : Document().Current().items) {
      if (!IsDrawn(item) || item.Kind() == ItemKind::kPicture) continue;
      if (ChoiceOf(Document().Current(), item).kind == ChoiceKind::kImage) continue;
      const auto seen = Sheet().BoxOf(item.id);
      ASSERT_TRUE(seen);
      const Box expected = DrawnBox(Sheet().Layout(), item);
      EXPECT_NEAR(seen->left, expected.left, kTenth) << item.row.Text("FObjectCaption");
      EXPECT_NEAR(seen->top, expected.top, kTenth) << item.row.Text("FObjectCaption");
    }
  }
}

}  // namespace
}  // namespace td::designer
