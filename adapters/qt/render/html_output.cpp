#include <QRegularExpression>
#include <QString>
#include <map>
#include <utility>

#include "page_document/pictures.h"
#include "render/outputs.h"
#include "render/picture_images.h"
#include "render/text_layout.h"
#include "render/written_file.h"

namespace td {
namespace {

// A length in twips, to a hundredth: finer than any output can show.
QString Number(double number) {
  QString text = QString::number(number, 'f', 2);
  while (text.endsWith('0')) text.chop(1);
  if (text.endsWith('.')) text.chop(1);
  return text == "-0" ? QString("0") : text;
}

QString Millimetres(double twips) {
  return QString::number(twips / kTwipsPerMillimetre, 'f', 3) + "mm";
}

QString Escaped(const QString& text) {
  QString escaped;
  for (const char32_t character : text.toUcs4()) {
    const bool allowed = character >= 0x20 && character != 0xFFFE && character != 0xFFFF;
    escaped += allowed ? QString::fromUcs4(&character, 1).toHtmlEscaped() : QString(' ');
  }
  return escaped;
}

QString HexColour(const Colour& colour) {
  return QString("#%1%2%3")
      .arg(colour.red, 2, 16, QChar('0'))
      .arg(colour.green, 2, 16, QChar('0'))
      .arg(colour.blue, 2, 16, QChar('0'));
}

// A style sheet's string.
QString Quoted(QString text) {
  text.remove(QRegularExpression("[\\x00-\\x1F\\x7F]"));
  return '"' + text.replace('\\', "\\\\").replace('"', "\\\"").replace('<', "\\3c ") + '"';
}

// A bold that the family lacks is made by a stroke instead of the browser's own way, so that the
// letters are as wide as in the other outputs, where they are struck twice.
double BoldStroke(const Face& face) {
  return face.syntheticBold ? face.raw.lineThickness() / 2 : 0;
}

QString FontStyle(const Face& face) {
  // A machine without the family that was measured may have the one that the format names.
  const QStringList families = face.font.families();
  QString style = "font-family:" + Quoted(families.value(0)) + ',' + Quoted(face.name) + ',';
  for (const QString& family : families.mid(1)) style += Quoted(family) + ',';
  style += "sans-serif;font-size:" + Number(face.size) + "px;";
  if (face.syntheticBold) {
    style += "stroke:#000;stroke-width:" + Number(BoldStroke(face)) + ';';
  } else if (face.font.bold()) {
    style += "font-weight:bold;";
  }
  return face.font.italic() ? style + "font-style:italic;" : style;
}

// Writes pages as SVG, in twips. Fonts, sheets and pictures are collected, so that the file holds
// each of them once.
class HtmlWriter {
 public:
  std::string Write(const std::vector<Page>& pages, const std::string& title) {
    for (const Page& page : pages) AddPage(page);
    QString html;
    html += "<!DOCTYPE html>\n<html lang=\"zh-CN\">\n<head>\n<meta charset=\"utf-8\">\n<title>";
    html += Escaped(QString::fromStdString(title)) + "</title>\n<style>\n" + StyleSheet();
    html += "</style>\n</head>\n<body>\n" + body_ + "</body>\n</html>\n";
    return html.toStdString();
  }

 private:
  QString StyleSheet() const {
    return "body{margin:0;background:#ddd}\n"
           "svg{display:block;margin:5mm auto;background:#fff;fill:#000}\n"
           "text{white-space:pre;font-kerning:none;font-variant-ligatures:none;"
           "text-rendering:geometricPrecision}\n"
           "image{image-orientation:none}\n"
           "@media print{body{background:none}svg{margin:0;break-after:page;break-inside:avoid}"
           "svg:last-of-type{break-after:auto}}\n" +
           style_;
  }

  void AddPage(const Page& page) {
    body_ += QString("<svg class=\"%1\" width=\"%2\" height=\"%3\" viewBox=\"0 0 %4 %5\">\n")
                 .arg(SheetClass(page), Millimetres(page.width), Millimetres(page.height),
                      Number(page.width), Number(page.height));
    for (const DrawingCommand& command : page.commands) {
      std::visit([this](const auto& drawn) { Add(drawn); }, command);
    }
    body_ += "</svg>\n";
  }

  void Add(const BoxText& command) { AddTexts(LayOut(command), {}); }
  void Add(const PointText& command) { AddTexts(LayOut(command), {}); }

  void Add(const Line& line) {
    body_ += QString(
                 "<path d=\"M%1 %2L%3 %4\" stroke=\"#000\" stroke-width=\"%5\" "
                 "stroke-linecap=\"square\"/>\n")
                 .arg(Number(line.x1), Number(line.y1), Number(line.x2), Number(line.y2),
                      Number(std::max(line.penWidth, 1.0)));
  }

  void Add(const PlacedPicture& placed) {
    if (placed.width <= 0 || placed.height <= 0) return;
    if (const auto* image = dynamic_cast<const ImagePicture*>(placed.picture.get())) {
      AddImage(*image, placed);
    } else if (const auto* drawing = dynamic_cast<const VectorPicture*>(placed.picture.get())) {
      AddVectors(*drawing, placed);
    }
  }

  // A picture is a square of 1 by 1 that each of its uses stretches over a box.
  void AddImage(const ImagePicture& image, const PlacedPicture& placed) {
    const std::string uri = DataUri(image);
    if (uri.empty()) return;
    const auto [known, isNew] = pictures_.try_emplace(uri, QString("i%1").arg(pictures_.size()));
    if (isNew) {
      body_ += QString(
                   "<defs><image id=\"%1\" width=\"1\" height=\"1\" "
                   "preserveAspectRatio=\"none\" href=\"%2\"/></defs>\n")
                   .arg(known->second, QString::fromStdString(uri));
    }
    body_ += QString("<use href=\"#%1\" transform=\"translate(%2 %3) scale(%4 %5)\"/>\n")
                 .arg(known->second, Number(placed.left), Number(placed.top), Number(placed.width),
                      Number(placed.height));
  }

  void AddVectors(const VectorPicture& drawing, const PlacedPicture& placed) {
    const PictureSize size = drawing.NaturalSize();
    body_ += QString(
                 "<g transform=\"translate(%1 %2) scale(%3 %4)\" "
                 "shape-rendering=\"crispEdges\">\n")
                 .arg(Number(placed.left), Number(placed.top),
                      QString::number(placed.width / size.width, 'g', 9),
                      QString::number(placed.height / size.height, 'g', 9));
    for (const VectorPicture::Rectangle& bar : drawing.Rectangles()) {
      body_ += QString("<rect x=\"%1\" y=\"%2\" width=\"%3\" height=\"%4\" fill=\"%5\"/>\n")
                   .arg(Number(bar.left), Number(bar.top), Number(bar.width), Number(bar.height),
                        HexColour(bar.colour));
    }
    for (const VectorPicture::Text& text : drawing.Texts()) AddTexts(LayOut(text), text.colour);
    body_ += "</g>\n";
  }

  // Each line is one text, so that readers select and find it whole.
  void AddTexts(const std::vector<PlacedText>& texts, const Colour& colour) {
    const QString fill = colour == Colour() ? QString() : " fill=\"" + HexColour(colour) + '"';
    const PlacedText* last = nullptr;
    for (const PlacedText& text : texts) {
      if (text.text.isEmpty()) continue;
      if (last == nullptr || last->y != text.y) {
        if (last != nullptr) body_ += "</text>\n";
        body_ += QString("<text y=\"%1\"%2>").arg(Number(text.y), fill);
      }
      body_ += QString("<tspan class=\"%1\" x=\"%2\" textLength=\"%3\">")
                   .arg(FontClass(text.face), Number(text.x - BoldStroke(*text.face) / 2),
                        Number(text.width));
      body_ += Escaped(text.text) + "</tspan>";
      last = &text;
    }
    if (last != nullptr) body_ += "</text>\n";
  }

  const QString& FontClass(const FaceRef& face) {
    const auto [known, isNew] = fonts_.try_emplace(face, QString("f%1").arg(fonts_.size()));
    if (isNew) style_ += '.' + known->second + '{' + FontStyle(*face) + "}\n";
    return known->second;
  }

  QString SheetClass(const Page& page) {
    const QString size = Millimetres(page.width) + ' ' + Millimetres(page.height);
    const auto [known, isNew] = sheets_.try_emplace(size, QString("s%1").arg(sheets_.size()));
    if (isNew) {
      style_ += QString("@page %1{size:%2;margin:0}\n.%1{page:%1}\n").arg(known->second, size);
    }
    return known->second;
  }

  QString body_;
  QString style_;
  std::map<FaceRef, QString> fonts_;         // face → class
  std::map<QString, QString> sheets_;        // size → class
  std::map<std::string, QString> pictures_;  // data → identifier
};

}  // namespace

std::string ToHtml(const std::vector<Page>& pages, const std::string& title) {
  RequirePages(pages);
  return HtmlWriter().Write(pages, title);
}

void WriteHtml(const std::vector<Page>& pages, const std::string& path, const std::string& title) {
  WriteFile(path, [&](const ByteSink& sink) { sink(ToHtml(pages, title)); });
}

}  // namespace td
