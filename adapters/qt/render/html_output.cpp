#include <QImage>

#include "page_outputs/html_writer.h"
#include "render/outputs.h"
#include "render/picture_images.h"
#include "render/text_layout.h"

namespace td {
namespace {

// The faces live as long as the application: they have no owner here.
HtmlFace Unowned(FaceRef face) {
  return {std::shared_ptr<const void>(), face};
}

void Put(std::vector<PlacedText> placed, std::vector<HtmlText>& texts) {
  for (PlacedText& text : placed) {
    texts.push_back({Unowned(text.face), std::move(text.text), text.x, text.y, text.width});
  }
}

class QtHtmlParts : public HtmlParts {
 public:
  void LayOut(const Text& text, std::vector<HtmlText>& pieces) const override {
    std::visit([&pieces](const auto* laid) { Put(td::LayOut(*laid), pieces); }, text);
  }

  [[nodiscard]] HtmlFont FontOf(const HtmlFace& known) const override {
    const Face& face = *static_cast<FaceRef>(known.get());
    HtmlFont font{.families = {},
                  .size = face.size,
                  .bold = face.font.bold(),
                  .italic = face.font.italic(),
                  .boldStroke = face.synthesis.emboldens ? face.raw.lineThickness() / 2 : 0};
    // A machine without the family that was measured may have the one that the format names.
    const QStringList families = face.font.families();
    font.families = {families.value(0).toStdString(), face.name.toStdString()};
    for (const QString& family : families.mid(1)) font.families.push_back(family.toStdString());
    return font;
  }

  [[nodiscard]] Bytes PngOf(const ImagePicture& picture) const override {
    return td::PngOf(DecodedImage(picture));
  }
};

}  // namespace

void StreamHtml(const std::vector<Page>& pages, const std::string& title, const ByteSink& sink) {
  WriteHtmlPages(pages, title, QtHtmlParts(), sink);
}

}  // namespace td
