#include "render/page_painter.h"

#include <QGlyphRun>
#include <QPaintEngine>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <vector>

#include "page_document/pictures.h"
#include "render/picture_images.h"
#include "render/text_layout.h"

namespace td {
namespace {

// Strokes around the letters of a bold that the family doesn't have, as a part of the font's size.
constexpr double kBoldStroke = 1.0 / 30;

bool WritesPdf(const QPainter& painter) {
  return painter.paintEngine()->type() == QPaintEngine::Pdf;
}

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
    const QImage pixels = DecodedImage(image);
    if (pixels.isNull()) return;
    painter_.setRenderHint(QPainter::LosslessImageRendering, !IsJpeg(image));
    painter_.drawImage(box, pixels);
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

  // Glyphs wait until all texts of their face are known; other texts are drawn at once.
  void Add(const std::vector<PlacedText>& texts) {
    for (const PlacedText& text : texts) {
      if (text.glyphs.empty()) {
        painter_.setPen(colour_);
        painter_.setFont(text.face->font);
        painter_.drawText(QPointF(text.x, text.y), text.text);
        continue;
      }
      auto& [indexes, positions] = WaitingGlyphs(text.face);
      double x = text.x;
      for (std::size_t i = 0; i < text.glyphs.size(); ++i) {
        indexes.append(text.glyphs[i]);
        positions.append(QPointF(x, text.y));
        x += text.advances[i];
      }
    }
  }

  Glyphs& WaitingGlyphs(const FaceRef& face) {
    const auto found = std::ranges::find(glyphs_, face, [](const auto& run) { return run.first; });
    return found != glyphs_.end() ? found->second : glyphs_.emplace_back(face, Glyphs()).second;
  }

  void FlushText() {
    painter_.setPen(colour_);
    for (const auto& [face, glyphs] : glyphs_) {
      if (face->syntheticBold && !WritesPdf(painter_)) {
        DrawBold(*face, glyphs);
        continue;
      }
      QGlyphRun run;
      run.setRawFont(face->raw);
      run.setGlyphIndexes(glyphs.first);
      run.setPositions(glyphs.second);
      painter_.drawGlyphRun(QPointF(0, 0), run);
    }
    glyphs_.clear();
  }

  // The PDF engine makes letters bold itself, others don't.
  void DrawBold(const Face& face, const Glyphs& glyphs) {
    painter_.setBrush(colour_);
    painter_.setPen(QPen(colour_, face.size * kBoldStroke));
    for (qsizetype i = 0; i < glyphs.first.size(); ++i) {
      QPainterPath letter = face.raw.pathForGlyph(glyphs.first.at(i));
      letter.translate(glyphs.second.at(i));
      painter_.drawPath(letter);
    }
    painter_.setBrush(Qt::NoBrush);
    painter_.setPen(colour_);
  }

  QPainter& painter_;
  QColor colour_ = Qt::black;
  std::vector<std::pair<FaceRef, Glyphs>> glyphs_;  // in the order of their first use
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
