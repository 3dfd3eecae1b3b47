// Documents as HTML, whatever knows the fonts and pictures.
#pragma once

#include <memory>
#include <string>
#include <variant>
#include <vector>

#include "files/written_bytes.h"
#include "page_document/drawing.h"
#include "page_document/pictures.h"

namespace td {

// A face of one font at one size, as a renderer knows it: equal for the same face, and kept as long
// as the document is written.
using HtmlFace = std::shared_ptr<const void>;

// A piece of one line in one face. Twips; `y` is the base line.
struct HtmlText {
  HtmlFace face;
  std::string text;  // UTF-8
  double x = 0;
  double y = 0;
  double width = 0;
};

struct HtmlFont {
  std::vector<std::string> families;  // the most wanted one first
  double size = 0;                    // twips
  bool bold = false;                  // in a face of the family's own
  bool italic = false;
  // Width of the stroke that makes a bold which the family lacks, so that the letters are as wide
  // as in the other outputs, where they are struck twice; 0: none. A browser's own way is wider.
  double boldStroke = 0;
};

// What a renderer knows.
class HtmlParts {
 public:
  virtual ~HtmlParts() = default;

  // A text of a page, or one in a picture.
  using Text = std::variant<const BoxText*, const PointText*, const VectorPicture::Text*>;
  // Puts the pieces behind those of a list that keeps its room from text to text.
  virtual void LayOut(const Text& text, std::vector<HtmlText>& pieces) const = 0;
  [[nodiscard]] virtual HtmlFont FontOf(const HtmlFace& face) const = 0;
  // The picture as a PNG file; empty if it doesn't decode.
  [[nodiscard]] virtual Bytes PngOf(const ImagePicture& picture) const = 0;
};

// One self-contained file, page by page: each page an inline SVG at its true size, on a sheet of
// its own when printed; texts are texts, pictures are inside. Fails with kInvalidCall without
// pages.
void WriteHtmlPages(const std::vector<Page>& pages, const std::string& title,
                    const HtmlParts& parts, const ByteSink& sink);

}  // namespace td
