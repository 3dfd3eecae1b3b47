#include "page_outputs/html_writer.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string_view>
#include <utility>

#include "page_outputs/number_text.h"
#include "page_outputs/written_file.h"

namespace td {
namespace {

constexpr std::size_t kPartSize = 65536;  // of the file: what is handed on at a time

std::string Number(double number) {
  std::string text;
  AppendNumber(text, number);
  return text;
}

std::string Formatted(double number, std::chars_format format, int digits) {
  std::array<char, 64> text{};
  return {text.data(), std::to_chars(text.begin(), text.end(), number, format, digits).ptr};
}

std::string Millimetres(double twips) {
  return Formatted(twips / kTwipsPerMillimetre, std::chars_format::fixed, 3) + "mm";
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
  constexpr std::string_view kDigits = "0123456789abcdef";
  std::string text = "#";
  for (const std::uint8_t part : {colour.red, colour.green, colour.blue}) {
    text += kDigits[part / 16U];
    text += kDigits[part % 16U];
  }
  return text;
}

// A style sheet's string.
std::string Quoted(std::string_view text) {
  std::string quoted = "\"";
  for (const char byte : text) {
    if ((byte >= 0 && byte < ' ') || byte == 0x7F) continue;
    if (byte == '<') {
      quoted += "\\3c ";
      continue;
    }
    if (byte == '"' || byte == '\\') quoted += '\\';
    quoted += byte;
  }
  return quoted + '"';
}

std::string Base64(const Bytes& bytes) {
  constexpr std::string_view kDigits =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::string text;
  text.reserve((bytes.size() + 2) / 3 * 4);
  for (std::size_t i = 0; i < bytes.size(); i += 3) {
    const std::size_t count = std::min<std::size_t>(3, bytes.size() - i);
    std::uint32_t group = 0;
    for (std::size_t j = 0; j < 3; ++j) {
      group = (group << 8U) | (j < count ? std::to_integer<std::uint32_t>(bytes[i + j]) : 0U);
    }
    for (std::size_t j = 0; j < 4; ++j) {
      text += j <= count ? kDigits[(group >> (18U - 6U * j)) & 0x3FU] : '=';
    }
  }
  return text;
}

bool StartsWith(const Bytes& bytes, std::string_view signature) {
  return bytes.size() >= signature.size() &&
         std::equal(signature.begin(), signature.end(), bytes.begin(),
                    [](char a, std::byte b) { return static_cast<std::byte>(a) == b; });
}

// The bytes of the file where browsers show its kind, else of a PNG file. Empty if it can't be
// decoded.
std::string DataUri(const ImagePicture& picture, const HtmlParts& parts) {
  using std::string_view_literals::operator""sv;
  const Bytes& file = picture.Encoded();
  if (StartsWith(file, "\xFF\xD8\xFF"sv)) return "data:image/jpeg;base64," + Base64(file);
  if (StartsWith(file, "\x89PNG\r\n\x1A\n"sv)) return "data:image/png;base64," + Base64(file);
  const Bytes png = parts.PngOf(picture);
  return png.empty() ? std::string() : "data:image/png;base64," + Base64(png);
}

std::string FontStyle(const HtmlFont& font) {
  std::string style = "font-family:";
  for (const std::string& family : font.families) style += Quoted(family) + ',';
  style += "sans-serif;font-size:" + Number(font.size) + "px;";
  if (font.boldStroke > 0) {
    style += "stroke:#000;stroke-width:" + Number(font.boldStroke) + ';';
  } else if (font.bold) {
    style += "font-weight:bold;";
  }
  return font.italic ? style + "font-style:italic;" : style;
}

// Pictures with the same bytes are one.
struct ByContent {
  bool operator()(const ImagePicture* left, const ImagePicture* right) const {
    return left != right && left->Encoded() < right->Encoded();
  }
};

// Writes pages as SVG, in twips, one after the other: no more than a page is held. The file has
// each font, each sheet and each picture once, where it is used first.
class HtmlWriter {
 public:
  HtmlWriter(const HtmlParts& parts, const ByteSink& sink) : parts_(parts), sink_(sink) {}

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

  void Add(const BoxText& command) { AddTexts(&command, {}); }
  void Add(const PointText& command) { AddTexts(&command, {}); }

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
        pictures_.try_emplace(&image, "i" + std::to_string(pictures_.size()));
    if (isNew) {
      const std::string uri = DataUri(image, parts_);
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
    const auto scale = [](double factor) {
      return Formatted(factor, std::chars_format::general, 9);
    };
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
    for (const VectorPicture::Text& text : drawing.Texts()) AddTexts(&text, text.colour);
    html_ += "</g>\n";
  }

  // Each line is one text, so that readers select and find it whole.
  void AddTexts(const HtmlParts::Text& drawn, const Colour& colour) {
    texts_.clear();
    parts_.LayOut(drawn, texts_);
    const HtmlText* last = nullptr;
    for (const HtmlText& text : texts_) {
      if (text.text.empty()) continue;
      if (last == nullptr || last->y != text.y) {
        if (last != nullptr) html_ += "</text>\n";
        html_ += "<text";
        AddNumber("y", text.y);
        if (colour != Colour()) html_ += " fill=\"" + HexColour(colour) + '"';
        html_ += '>';
      }
      const KnownFont& font = FontClass(text.face);
      html_ += "<tspan class=\"";
      html_ += font.name;
      html_ += '"';
      AddNumber("x", text.x - font.boldStroke / 2);
      AddNumber("textLength", text.width);
      html_ += '>';
      AppendEscaped(html_, text.text);
      html_ += "</tspan>";
      last = &text;
    }
    if (last != nullptr) html_ += "</text>\n";
  }

  struct KnownFont {
    std::string name;  // of its class
    double boldStroke = 0;
  };

  const KnownFont& FontClass(const HtmlFace& face) {
    if (const auto known = fonts_.find(face); known != fonts_.end()) return known->second;
    const HtmlFont font = parts_.FontOf(face);
    const KnownFont& added =
        fonts_.emplace(face, KnownFont{"f" + std::to_string(fonts_.size()), font.boldStroke})
            .first->second;
    newFonts_ += '.' + added.name + '{' + FontStyle(font) + "}\n";
    return added;
  }

  const HtmlParts& parts_;
  const ByteSink& sink_;
  std::string html_;             // what has not been handed on
  std::string newFonts_;         // rules of the fonts that the page is the first to use
  std::vector<HtmlText> texts_;  // those that are being added
  std::map<HtmlFace, KnownFont> fonts_;
  std::map<std::pair<double, double>, std::string> sheets_;  // size → class
  // → identifier; empty if it can't be shown
  std::map<const ImagePicture*, std::string, ByContent> pictures_;
};

}  // namespace

void WriteHtmlPages(const std::vector<Page>& pages, const std::string& title,
                    const HtmlParts& parts, const ByteSink& sink) {
  RequirePages(pages.size());
  HtmlWriter(parts, sink).Write(pages, title);
}

}  // namespace td
