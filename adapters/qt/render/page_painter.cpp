#include "render/page_painter.h"

#include <QGlyphRun>
#include <QPaintEngine>
#include <QPainter>
#include <algorithm>
#include <vector>

#include "page_document/pictures.h"
#include "render/picture_images.h"
#include "render/text_layout.h"

namespace td {
namespace {

class PagePainter {
 public:
  explicit PagePainter(QPainter& painter) : painter_(painter) {}

  void Draw(const Page& page) {
    for (const DrawingCommand& command : page.commands) {
      std::visit([this](const auto& drawn) { Draw(drawn); }, command);
    }
    FlushText();
  }

 private:
  using Glyphs = std::pair<QList<quint32>, QList<QPointF>>;
  using FaceRun = std::pair<FaceRef, Glyphs>;

  void Draw(const BoxText& command) { Add(LayOut(command)); }
  void Draw(const PointText& command) { Add(LayOut(command)); }

  void Draw(const Line& line) {
    painter_.setPen(QPen(Qt::black, std::max(line.penWidth, 1.0), Qt::SolidLine, Qt::SquareCap));
    painter_.drawLine(QPointF(line.x1, line.y1), QPointF(line.x2, line.y2));
  }

  void Draw(const PlacedPicture& placed) {
    if (placed.width <= 0 || placed.height <= 0) return;
    FlushText();  // a picture covers the texts that were written before it
    if (const auto* image = dynamic_cast<const ImagePicture*>(placed.picture.get())) {
      DrawImage(*image, QRectF(placed.left, placed.top, placed.width, placed.height));
    } else if (const auto* drawing = dynamic_cast<const VectorPicture*>(placed.picture.get())) {
      DrawVectors(*drawing, placed);
    }
  }

  void DrawImage(const ImagePicture& image, const QRectF& box) {
    const QImage pixels = Reduced(DecodedImage(image), box);
    if (pixels.isNull()) return;
    painter_.setRenderHint(QPainter::LosslessImageRendering, !IsJpeg(image));
    painter_.drawImage(box, pixels);
  }

  // Pixels of a screen or an image file can be much larger than those of a photograph, which would
  // then lose all but every n-th of its own. Printers get them all.
  QImage Reduced(const QImage& image, const QRectF& box) const {
    const QSize shown = painter_.transform().mapRect(box).size().toSize();
    const bool fits = image.width() <= 2 * shown.width() && image.height() <= 2 * shown.height();
    if (fits || shown.isEmpty() || painter_.paintEngine()->type() != QPaintEngine::Raster) {
      return image;
    }
    return image.scaled(shown.boundedTo(image.size()), Qt::IgnoreAspectRatio,
                        Qt::SmoothTransformation);
  }

  void DrawVectors(const VectorPicture& drawing, const PlacedPicture& placed) {
    painter_.save();
    painter_.translate(placed.left, placed.top);
    painter_.scale(placed.width / drawing.NaturalSize().width,
                   placed.height / drawing.NaturalSize().height);
    for (const VectorPicture::Rectangle& bar : drawing.Rectangles()) {
      painter_.fillRect(QRectF(bar.left, bar.top, bar.width, bar.height),
                        QColor(bar.colour.red, bar.colour.green, bar.colour.blue));
    }
    for (const VectorPicture::Text& text : drawing.Texts()) {
      colour_ = QColor(text.colour.red, text.colour.green, text.colour.blue);
      Add(LayOut(text));
      FlushText();
    }
    colour_ = Qt::black;
    painter_.restore();
  }

  // The glyphs of texts in one face wait until all texts of that face are known. A text that mixes
  // faces keeps its pieces in their order, or readers would extract them as separate words. Texts
  // without glyphs are drawn at once.
  void Add(const std::vector<PlacedText>& texts) {
    const bool isMixed = std::ranges::any_of(
        texts, [&texts](const PlacedText& text) { return text.face != texts.front().face; });
    for (const PlacedText& text : texts) {
      if (text.glyphs.empty()) {
        painter_.setPen(colour_);
        painter_.setFont(text.face->font);
        painter_.drawText(QPointF(text.x, text.y), QString::fromStdString(text.text));
        continue;
      }
      auto& [indexes, positions] = isMixed ? NextGlyphs(text.face) : GlyphsOf(text.face);
      double x = text.x;
      for (const FaceGlyph* glyph : text.glyphs) {
        indexes.append(glyph->index);
        positions.append(QPointF(x, text.y));
        x += glyph->advance;
      }
    }
  }

  Glyphs& GlyphsOf(FaceRef face) {
    const auto found = std::ranges::find(byFace_, face, &FaceRun::first);
    return found != byFace_.end() ? found->second : byFace_.emplace_back(face, Glyphs()).second;
  }

  Glyphs& NextGlyphs(FaceRef face) {
    const bool goesOn = !inOrder_.empty() && inOrder_.back().first == face;
    return goesOn ? inOrder_.back().second : inOrder_.emplace_back(face, Glyphs()).second;
  }

  void FlushText() {
    painter_.setPen(colour_);
    for (const FaceRun& run : byFace_) DrawRun(run);
    for (const FaceRun& run : inOrder_) DrawRun(run);
    byFace_.clear();
    inOrder_.clear();
  }

  void DrawRun(const FaceRun& run) {
    const auto& [face, glyphs] = run;
    QGlyphRun drawn;
    drawn.setRawFont(face->raw);
    drawn.setGlyphIndexes(glyphs.first);
    drawn.setPositions(glyphs.second);
    painter_.drawGlyphRun(QPointF(0, 0), drawn);
    // A bold that the family lacks is struck twice.
    if (face->synthesis.emboldens) {
      painter_.drawGlyphRun(QPointF(-face->raw.lineThickness() / 2, 0), drawn);
    }
  }

  QPainter& painter_;
  QColor colour_ = Qt::black;
  std::vector<FaceRun> byFace_;   // one for each face, in the order of their first use
  std::vector<FaceRun> inOrder_;  // of texts that mix faces
};

}  // namespace

void DrawPage(QPainter& painter, const Page& page) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setRenderHint(QPainter::TextAntialiasing);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  PagePainter(painter).Draw(page);
  painter.restore();
}

}  // namespace td
