// What a document draws onto its current page.
#include <numeric>
#include <utility>

#include "page_document/number_bounds.h"
#include "page_document/page_document.h"
#include "page_document/pictures.h"
#include "page_document/rich_text.h"
#include "platform/failure.h"
#include "platform/standard_failures.h"
#include "text/conversions.h"

namespace td {
namespace {

// The runs of a line and those of its continuation; texts of one font become one run.
TextLine Joined(TextLine line, const TextLine& continuation) {
  for (const TextRun& run : continuation) {
    if (run.text.empty()) continue;
    if (line.back().font == run.font) {
      line.back().text += run.text;
    } else {
      line.push_back(run);
    }
  }
  return line;
}

// Moves the first lines of a text into one of their own; the others then begin below them.
PointText TakeLines(PointText& text, std::size_t count) {
  PointText taken{{}, {}, text.x, text.y, text.alignment};
  const auto end = static_cast<std::ptrdiff_t>(count);
  taken.lines.assign(text.lines.begin(), text.lines.begin() + end);
  taken.heights.assign(text.heights.begin(), text.heights.begin() + end);
  text.lines.erase(text.lines.begin(), text.lines.begin() + end);
  text.heights.erase(text.heights.begin(), text.heights.begin() + end);
  text.y = std::accumulate(taken.heights.begin(), taken.heights.end(), text.y);
  return taken;
}

}  // namespace

PictureSize NaturalSize(const Picture& picture) {
  if (const auto* image = dynamic_cast<const ImagePicture*>(&picture)) return image->NaturalSize();
  if (const auto* drawing = dynamic_cast<const VectorPicture*>(&picture)) {
    return drawing->NaturalSize();
  }
  throw Failure(kInvalidPicture, "无法绘制这种图片");
}

Page& PageDocument::CurrentPage() {
  return overlayPage_ > 0 ? pages_[static_cast<std::size_t>(overlayPage_) - 1] : pages_.back();
}

FontRef PageDocument::SharedFont(const TextFont& font) {
  FontRef& shared = fonts_[font];
  if (!shared) shared = std::make_shared<const TextFont>(font);
  return shared;
}

TextAlignment PageDocument::Alignment() const {
  if (textAlign_ == kAlignCentre) return TextAlignment::kCentre;
  return textAlign_ == kAlignRight ? TextAlignment::kRight : TextAlignment::kLeft;
}

void PageDocument::AddBoxText(const std::string& text, double left, double top, double width,
                              double height, bool wordWrap) {
  RequireOpen("TextBox");
  RequireCoordinate("文本框的左边", left);
  RequireCoordinate("文本框的上边", top);
  RequireCoordinate("文本框的宽度", width);
  RequireCoordinate("文本框的高度", height);
  if (text.empty()) return;
  CurrentPage().commands.emplace_back(
      BoxText{text, left, top, width, height, wordWrap, Alignment(), Font()});
}

void PageDocument::TextBox(const std::string& text, double left, double top, double width,
                           double height) {
  AddBoxText(text, left, top, width, height, false);
}

void PageDocument::TextBox(const std::string& text, double left, double top, double width,
                           double height, const StoredFlag& wordWrap) {
  AddBoxText(text, left, top, width, height, IsSet(wordWrap));
}

void PageDocument::EndOpenLine() {
  currentY_ = CurrentY();
  openLine_.reset();
}

// Writes lines from the current point on, the first of them behind the line that is open there.
void PageDocument::WriteLines(std::vector<TextLine> lines, bool endsLastLine) {
  if (openLine_) lines.front() = Joined(OpenLine().lines.front(), lines.front());
  PointText text{std::move(lines), {}, currentX_, currentY_, Alignment()};
  double bottom = currentY_;
  for (const TextLine& line : text.lines) {
    text.heights.push_back(host_.LineHeight(line));
    bottom += text.heights.back();
  }
  RequireCoordinate("纵坐标", bottom);

  if (openLine_) {
    PointText longer = TakeLines(text, 1);
    longer.alignment = OpenLine().alignment;
    OpenLine() = std::move(longer);
    if (text.lines.empty() && !endsLastLine) return;
    openLine_.reset();
  }
  CommandList& commands = CurrentPage().commands;
  PointText ended = TakeLines(text, text.lines.size() - (endsLastLine ? 0 : 1));
  if (!ended.lines.empty()) commands.emplace_back(ended);
  currentY_ = text.y;
  if (text.lines.empty()) return;
  openLine_ = commands.AddText(text);
}

void PageDocument::PutParagraph(const std::string& text) {
  RequireOpen("PutParagraph");
  WriteLines(ReadPlainText(text, SharedFont(font_)), true);
}

void PageDocument::PutText(const std::string& text) {
  RequireOpen("PutText");
  if (text.empty()) return;
  const bool endsLine = text.back() == '\r' || text.back() == '\n';
  WriteLines(ReadPlainText(text, SharedFont(font_)), endsLine);
}

void PageDocument::PutRichText(const std::string& rtf) {
  RequireOpen("PutRichText");
  if (rtf.empty()) return;
  WriteLines(ReadRichText(rtf, font_, [this](const TextFont& font) { return SharedFont(font); }),
             true);
}

void PageDocument::DrawLine(double x1, double y1, double x2, double y2) {
  RequireOpen("DrawLine");
  for (const double coordinate : {x1, y1, x2, y2}) RequireCoordinate("线的坐标", coordinate);
  CurrentPage().commands.emplace_back(Line{x1, y1, x2, y2, penWidth_});
}

void PageDocument::DrawPicture(const PictureRef& picture, double left, double top) {
  RequireOpen("DrawPicture");
  if (!picture) return;
  const PictureSize size = NaturalSize(*picture);
  DrawPicture(picture, left, top, size.width, size.height);
}

void PageDocument::DrawPicture(const PictureRef& picture, double left, double top, double width,
                               double height) {
  RequireOpen("DrawPicture");
  for (const double number : {left, top, width, height}) RequireCoordinate("图片的位置", number);
  if (!picture) return;
  (void)NaturalSize(*picture);  // refuses kinds of pictures that no output can draw
  CurrentPage().commands.emplace_back(PlacedPicture{picture, left, top, width, height});
}

}  // namespace td
