#include "page_outputs/document_files.h"
#include "page_outputs/html_writer.h"
#include "windows/api/wide_text.h"
#include "windows/render/picture_pixels.h"
#include "windows/render/text_layout.h"

namespace td {
namespace {

constexpr double kUsualDotsPerInch = 96;

std::vector<HtmlText> AsHtml(const std::vector<PlacedText>& placed) {
  std::vector<HtmlText> texts;
  texts.reserve(placed.size());
  for (const PlacedText& text : placed) {
    texts.push_back({text.face, FromWide(text.text), text.x, text.y, text.width});
  }
  return texts;
}

class WindowsHtmlParts : public HtmlParts {
 public:
  [[nodiscard]] std::vector<HtmlText> LayOut(const Text& text) const override {
    return std::visit([](const auto* laid) { return AsHtml(td::LayOut(*laid)); }, text);
  }

  [[nodiscard]] HtmlFont FontOf(const HtmlFace& known) const override {
    const Face& face = *static_cast<const Face*>(known.get());
    return {.families = {FromWide(face.family)},
            .size = face.size,
            .bold = face.bold,
            .italic = face.italic,
            .boldStroke = face.syntheticBold ? face.lineThickness / 2 : 0};
  }

  [[nodiscard]] Bytes PngOf(const ImagePicture& picture) const override {
    const PixelsRef pixels = PixelsOf(picture);
    return pixels ? ToPng(*pixels, kUsualDotsPerInch) : Bytes();
  }
};

}  // namespace

void StreamHtml(const std::vector<Page>& pages, const std::string& title, const ByteSink& sink) {
  WriteHtmlPages(pages, title, WindowsHtmlParts(), sink);
}

}  // namespace td
