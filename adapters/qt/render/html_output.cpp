#include <QRegularExpression>
#include <QString>
#include <array>
#include <map>
#include <utility>

#include "page_document/pictures.h"
#include "render/number_text.h"
#include "render/outputs.h"
#include "render/picture_images.h"
#include "render/text_layout.h"
#include "render/written_file.h"

namespace td {
namespace {

constexpr std::size_t kPartSize = 65536;  // of the file: what is handed on at a time

std::string Number(double number) {
  std::string text;
  AppendNumber(text, number);
  return text;
}

std::string Millimetres(double twips) {
  return QString::number(twips / kTwipsPerMillimetre, 'f', 3).toStdString() + "mm";
}

// Only what must not stand in the file as it is costs more than a copy.
void AppendEscaped(std::string& html, std::string_view text) {
  constexpr std::array<std::string_view, 2> kNoCharacters = {"\uFFFE", "\uFFFF"};
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char byte = text[i];
    if (byte == '&') {
      html += "&amp;";
    } else if (byte == '<') {
      html += "&lt;";
    } else if (byte == '>') {
      html += "&gt;";
    } else if (byte == '"') {
      html += "&quot;";
    } else if (byte >= 0 && byte < ' ') {
      html += ' ';
    } else if (byte == '\xEF' &&
               (text.substr(i, 3) == kNoCharacters[0] || text.substr(i, 3) == kNoCharacters[1])) {
      html += ' ';
      i += 2;
    } else {
      html += byte;
    }
  }
}

std::string HexColour(const Colour& colour) {
  return QString("#%1%2%3")
      .arg(colour.red, 2, 16, QChar('0'))
      .arg(colour.green, 2, 16, QChar('0'))
      .arg(colour.blue, 2, 16, QChar('0'))
      .toStdString();
}

// A style sheet's string.
QString Quoted(QString text) {
  text.remove(QRegularExpression("[\\x00-\\x1F\\x7F]"));
  return '"' + text.replace('\\', "\\\\").replace('"', "\\\"").replace('<', "\\3c ") + '"';
}

// A bold that the family lacks is made by a stroke instead of the browser's own way, so that the
// letters are as wide as in the other outputs, where they are struck twice.
double BoldStroke(const Face& face) {
  return face.synthesis.emboldens ? face.raw.lineThickness() / 2 : 0;
}

std::string FontStyle(const Face& face) {
  // A machine without the family that was measured may have the one that the format names.
  const QStringList families = face.font.families();
  QString names = Quoted(families.value(0)) + ',' + Quoted(face.name) + ',';
  for (const QString& family : families.mid(1)) names += Quoted(family) + ',';
  std::string style =
      "font-family:" + names.toStdString() + "sans-serif;font-size:" + Number(face.size) + "px;";
  if (face.synthesis.emboldens) {
    style += "stroke:#000;stroke-width:" + Number(BoldStroke(face)) + ';';
  } else if (face.font.bold()) {
    style += "font-weight:bold;";
  }
  return face.font.italic() ? style + "font-style:italic;" : style;
}

// Writes pages as SVG, in twips, one after the other: no more than a page is held. The file has
// each font, each sheet and each picture once, where it is used first.
class HtmlWriter {
 public:
  explicit HtmlWriter(const ByteSink& sink) : sink_(sink) {}

  void Write(const std::vector<Page>& pages, const std::string& title) {
    html_ += "<!DOCTYPE html>\n<html lang=\"zh-CN\">\n<head>\n<meta charset=\"utf-8\">\n<title>";
    AppendEscaped(html_, title);
    html_ += "</title>\n<style>\n" + StyleSheet(pages) + "</style>\n</head>\n<body>\n";
    for (const Page& page : pages) {
      AddPage(page);
      if (html_.size() >= kPartSize) HandOn();
    }
    html_ += "</body>\n</html>\n";
    HandOn();
  }

 private:
  void HandOn() {
    sink_(html_);
    html_.clear();
  }

  std::string StyleSheet(const std::vector<Page>& pages) {
    std::string style =
        "body{margin:0;background:#ddd}\n"
        "svg{display:block;margin:5mm auto;background:#fff;fill:#000}\n"
        "text{white-space:pre;font-kerning:none;font-variant-ligatures:none;"
        "text-rendering:geometricPrecision}\n"
        "image{image-orientation:none}\n"
        "@media print{body{background:none}svg{margin:0;break-after:page;break-inside:avoid}"
        "svg:last-of-type{break-after:auto}}\n";
    for (const Page& page : pages) {
      const auto [known, isNew] =
          sheets_.try_emplace({page.width, page.height}, "s" + std::to_string(sheets_.size()));
      if (!isNew) continue;
      const std::string& name = known->second;
      style.append("@page ").append(name).append("{size:").append(Millimetres(page.width));
      style.append(" ").append(Millimetres(page.height)).append(";margin:0}\n.").append(name);
      style.append("{page:").append(name).append("}\n");
    }
    return style;
  }

  // The fonts that the page is the first to use stand in front of its texts.
  void AddPage(const Page& page) {
    html_ += "<svg class=\"" + sheets_.at({page.width, page.height}) + "\" width=\"" +
             Millimetres(page.width) + "\" height=\"" + Millimetres(page.height) +
             "\" viewBox=\"0 0 " + Number(page.width) + ' ' + Number(page.height) + "\">\n";
    const std::size_t begin = html_.size();
    for (const DrawingCommand& command : page.commands) {
      std::visit([this](const auto& drawn) { Add(drawn); }, command);
    }
    html_ += "</svg>\n";
    if (newFonts_.empty()) return;
    html_.insert(begin, "<style>\n" + newFonts_ + "</style>\n");
    newFonts_.clear();
  }

  // Adds ` name="number"`.
  void AddNumber(std::string_view name, double number) {
    html_.append(" ").append(name).append("=\"");
    AppendNumber(html_, number);
    html_ += '"';
  }

  void Add(const BoxText& command) { AddTexts(LayOut(command), {}); }
  void Add(const PointText& command) { AddTexts(LayOut(command), {}); }

  void Add(const Line& line) {
    html_ += "<path d=\"M";
    AppendNumber(html_, line.x1);
    html_ += ' ';
    AppendNumber(html_, line.y1);
    html_ += 'L';
    AppendNumber(html_, line.x2);
    html_ += ' ';
    AppendNumber(html_, line.y2);
    html_ += "\" stroke=\"#000\"";
    AddNumber("stroke-width", std::max(line.penWidth, 1.0));
    html_ += " stroke-linecap=\"square\"/>\n";
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
    const auto [known, isNew] =
        pictures_.try_emplace(ContentKey(image), "i" + std::to_string(pictures_.size()));
    if (isNew) {
      const std::string uri = DataUri(image);
      if (uri.empty()) {
        known->second.clear();
      } else {
        html_ += "<defs><image id=\"" + known->second +
                 "\" width=\"1\" height=\"1\" preserveAspectRatio=\"none\" href=\"" + uri +
                 "\"/></defs>\n";
      }
    }
    if (known->second.empty()) return;
    html_ += "<use href=\"#" + known->second + "\" transform=\"translate(" + Number(placed.left) +
             ' ' + Number(placed.top) + ") scale(" + Number(placed.width) + ' ' +
             Number(placed.height) + ")\"/>\n";
  }

  void AddVectors(const VectorPicture& drawing, const PlacedPicture& placed) {
    const PictureSize size = drawing.NaturalSize();
    const auto scale = [](double factor) { return QString::number(factor, 'g', 9).toStdString(); };
    html_ += "<g transform=\"translate(" + Number(placed.left) + ' ' + Number(placed.top) +
             ") scale(" + scale(placed.width / size.width) + ' ' +
             scale(placed.height / size.height) + ")\" shape-rendering=\"crispEdges\">\n";
    for (const VectorPicture::Rectangle& bar : drawing.Rectangles()) {
      html_ += "<rect";
      AddNumber("x", bar.left);
      AddNumber("y", bar.top);
      AddNumber("width", bar.width);
      AddNumber("height", bar.height);
      html_ += " fill=\"" + HexColour(bar.colour) + "\"/>\n";
    }
    for (const VectorPicture::Text& text : drawing.Texts()) AddTexts(LayOut(text), text.colour);
    html_ += "</g>\n";
  }

  // Each line is one text, so that readers select and find it whole.
  void AddTexts(const std::vector<PlacedText>& texts, const Colour& colour) {
    const PlacedText* last = nullptr;
    for (const PlacedText& text : texts) {
      if (text.text.empty()) continue;
      if (last == nullptr || last->y != text.y) {
        if (last != nullptr) html_ += "</text>\n";
        html_ += "<text";
        AddNumber("y", text.y);
        if (colour != Colour()) html_ += " fill=\"" + HexColour(colour) + '"';
        html_ += '>';
      }
      html_ += "<tspan class=\"";
      html_ += FontClass(text.face);
      html_ += '"';
      AddNumber("x", text.x - BoldStroke(*text.face) / 2);
      AddNumber("textLength", text.width);
      html_ += '>';
      AppendEscaped(html_, text.text);
      html_ += "</tspan>";
      last = &text;
    }
    if (last != nullptr) html_ += "</text>\n";
  }

  const std::string& FontClass(FaceRef face) {
    if (const auto known = fonts_.find(face); known != fonts_.end()) return known->second;
    const std::string& name =
        fonts_.emplace(face, "f" + std::to_string(fonts_.size())).first->second;
    newFonts_ += '.' + name + '{' + FontStyle(*face) + "}\n";
    return name;
  }

  const ByteSink& sink_;
  std::string html_;                      // what has not been handed on
  std::string newFonts_;                  // rules of the fonts that the page is the first to use
  std::map<FaceRef, std::string> fonts_;  // face → class
  std::map<std::pair<double, double>, std::string> sheets_;  // size → class
  std::map<QByteArray, std::string> pictures_;  // content → identifier; empty if it can't be shown
};

}  // namespace

void StreamHtml(const std::vector<Page>& pages, const std::string& title, const ByteSink& sink) {
  RequirePages(pages.size());
  HtmlWriter(sink).Write(pages, title);
}

std::string ToHtml(const std::vector<Page>& pages, const std::string& title) {
  std::string html;
  StreamHtml(pages, title, [&html](std::string_view part) { html += part; });
  return html;
}

void WriteHtml(const std::vector<Page>& pages, const std::string& path, const std::string& title) {
  WriteFile(path, [&](const ByteSink& sink) { StreamHtml(pages, title, sink); });
}

}  // namespace td
