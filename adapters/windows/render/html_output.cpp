#include "page_outputs/document_files.h"
#include "page_outputs/html_writer.h"
#include "windows/api/wide_text.h"
#include "windows/render/picture_pixels.h"
#include "windows/render/text_layout.h"

namespace td {
namespace {

constexpr double kUsualDotsPerInch = 96;

void Put(const std::vector<PlacedText>& placed, std::vector<HtmlText>& texts) {
  for (const PlacedText& text : placed) {
    texts.push_back({text.face, FromWide(text.text), text.x, text.y, text.width});
  }
}

class WindowsHtmlParts : public HtmlParts {
 public:
  void LayOut(const Text& text, std::vector<HtmlText>& pieces) const override {
    std::visit([&pieces](const auto* laid) { Put(td::LayOut(*laid), pieces); }, text);
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
