#include "render/pdf_fonts.h"

#include <QChar>
#include <algorithm>
#include <string>

#include "page_outputs/number_text.h"
#include "render/true_type.h"

namespace td {
namespace {

// From a font's table of what its maker allows.
bool AllowsEmbedding(const QRawFont& raw) {
  constexpr int kRights = 8;  // where they stand
  constexpr int kNoEmbedding = 0x0002;
  constexpr int kOnlyBitmaps = 0x0200;
  if (raw.fontTable("head").isEmpty()) return false;
  const QByteArray table = raw.fontTable("OS/2");
  if (table.size() < kRights + 2) return true;
  const int rights = static_cast<unsigned char>(table[kRights]) << 8 |
                     static_cast<unsigned char>(table[kRights + 1]);
  return rights != kNoEmbedding && (rights & kOnlyBitmaps) == 0;
}

double Thousandths(double em) {
  return em * 1000 / kTrueTypeEm;
}

// A unit of UTF-16 in hexadecimal.
void AppendUnit(std::string& text, unsigned unit) {
  for (int shift = 12; shift >= 0; shift -= 4) text += "0123456789ABCDEF"[unit >> shift & 15];
}

}  // namespace

PdfFont::PdfFont(const QRawFont& raw, int number)
    : raw_(raw), number_(number), mayBeEmbedded_(AllowsEmbedding(raw_)) {
  used_.push_back({});
  advances_.push_back(AdvanceInFont(0));
}

double PdfFont::AdvanceInFont(quint32 glyph) const {
  return Thousandths(raw_.advancesForGlyphIndexes({glyph}).value(0).x());
}

GlyphCode PdfFont::Find(quint32 glyph, char32_t character, double advance) {
  if (character == 0) character = CharacterOf(glyph);
  const auto [code, isNew] =
      codes_.try_emplace({glyph, character}, static_cast<GlyphCode>(used_.size()));
  if (isNew) {
    used_.push_back({glyph, character});
    const double exact = advance > 0 ? advance : AdvanceInFont(glyph);
    advances_.push_back(static_cast<double>(Hundredths(exact)) / 100);  // as it stands in the file
  }
  return code->second;
}

// Shaped texts tell no characters. The first one in Unicode's first plane is taken that the font
// shows with the glyph.
char32_t PdfFont::CharacterOf(quint32 glyph) {
  if (characters_.empty()) {
    QString all;
    for (char32_t character = ' '; character < 0xFFFE; ++character) {
      if (!QChar::isSurrogate(character)) all += QChar(character);
    }
    const QList<quint32> glyphs = raw_.glyphIndexesForString(all);
    for (qsizetype i = 0; i < std::min(glyphs.size(), all.size()); ++i) {
      characters_.try_emplace(glyphs[i], all[i].unicode());
    }
  }
  const auto found = characters_.find(glyph);
  return found == characters_.end() ? 0 : found->second;
}

void PdfFont::Put(PdfFile& file) const {
  const int descendant = file.Reserve();
  const int descriptor = file.Reserve();
  const int program = file.Reserve();
  const int characterMap = file.Reserve();
  const std::string name = "/" + Name();

  file.Put(number_, "<</Type/Font/Subtype/Type0/BaseFont" + name +
                        "/Encoding/Identity-H/DescendantFonts[" + Reference(descendant) +
                        "]/ToUnicode " + Reference(characterMap) + ">>");

  std::string advances;
  for (const double advance : advances_) {
    AppendNumber(advances, advance);
    advances += ' ';
  }
  file.Put(descendant, "<</Type/Font/Subtype/CIDFontType2/BaseFont" + name +
                           "/CIDSystemInfo<</Registry(Adobe)/Ordering(Identity)/Supplement 0>>"
                           "/CIDToGIDMap/Identity/FontDescriptor " +
                           Reference(descriptor) + "/W[0[" + advances + "]]>>");

  std::string heights;
  AppendNumber(heights.append("/Ascent "), Thousandths(raw_.ascent()));
  AppendNumber(heights.append("/Descent "), -Thousandths(raw_.descent()));
  AppendNumber(heights.append("/CapHeight "), Thousandths(raw_.capHeight()));
  AppendNumber(heights.append("/FontBBox[0 "), -Thousandths(raw_.descent()));
  AppendNumber(heights.append(" "), Thousandths(raw_.maxCharWidth()));
  AppendNumber(heights.append(" "), Thousandths(raw_.ascent()));
  file.Put(descriptor, "<</Type/FontDescriptor/FontName" + name +
                           "/Flags 4/ItalicAngle 0/StemV 80" + heights + "]/FontFile2 " +
                           Reference(program) + ">>");

  const std::string font = Program();
  file.PutStream(program, "/Length1 " + std::to_string(font.size()), font);
  file.PutStream(characterMap, "", CharacterMap());
}

// The six letters in front tell that the font is not whole; the number makes them this one's own.
std::string PdfFont::Name() const {
  std::string name(6, 'A');
  for (int rest = number_, i = 5; rest > 0 && i >= 0; rest /= 26, --i) {
    name[static_cast<std::size_t>(i)] = static_cast<char>('A' + rest % 26);
  }
  name += '+';
  for (const QChar letter : raw_.familyName() + '-' + raw_.styleName()) {
    const bool isPlain = letter == '-' || (letter.unicode() < 128 && letter.isLetterOrNumber());
    if (isPlain) name += letter.toLatin1();
  }
  return name;
}

std::string PdfFont::Program() const {
  std::vector<TrueTypeGlyph> glyphs;
  for (std::size_t code = 0; code < used_.size(); ++code) {
    glyphs.push_back({OutlineOf(used_[code].glyph), advances_[code] * kTrueTypeEm / 1000});
  }
  return TrueTypeFont(glyphs, raw_.ascent(), raw_.descent());
}

std::string PdfFont::CharacterMap() const {
  constexpr std::size_t kMostOfABlock = 100;
  std::vector<std::string> lines;
  for (std::size_t code = 1; code < used_.size(); ++code) {
    if (used_[code].character == 0) continue;
    std::string line = "<";
    AppendUnit(line, static_cast<unsigned>(code));
    line += "> <";
    for (const QChar unit : QChar::fromUcs4(used_[code].character))
      AppendUnit(line, unit.unicode());
    lines.push_back(line + ">\n");
  }
  std::string map =
      "/CIDInit /ProcSet findresource begin\n12 dict begin\nbegincmap\n"
      "/CIDSystemInfo <</Registry (Adobe) /Ordering (UCS) /Supplement 0>> def\n"
      "/CMapName /Adobe-Identity-UCS def\n/CMapType 2 def\n"
      "1 begincodespacerange\n<0000> <FFFF>\nendcodespacerange\n";
  for (std::size_t begin = 0; begin < lines.size(); begin += kMostOfABlock) {
    const std::size_t end = std::min(begin + kMostOfABlock, lines.size());
    map += std::to_string(end - begin) + " beginbfchar\n";
    for (std::size_t i = begin; i < end; ++i) map += lines[i];
    map += "endbfchar\n";
  }
  return map + "endcmap\nCMapName currentdict /CMap defineresource pop\nend\nend\n";
}

const PdfFace& PdfFonts::Of(FaceRef face) {
  if (last_.first == face) return *last_.second;
  const auto [known, isNew] = faces_.try_emplace(face);
  if (isNew) known->second = Make(face->raw, face->synthesis);
  last_ = {face, &known->second};
  return known->second;
}

PdfFace PdfFonts::Of(const QRawFont& raw) {
  return Make(raw,
              SynthesisOf(raw, raw.weight() >= QFont::Bold, raw.style() != QFont::StyleNormal));
}

PdfFace PdfFonts::Make(const QRawFont& raw, const Synthesis& synthesis) {
  const Key key(raw.familyName(), raw.styleName(), raw.fontTable("head"));
  auto known = fonts_.find(key);
  if (known == fonts_.end()) {
    QRawFont font = raw;
    font.setPixelSize(kTrueTypeEm);
    known = fonts_
                .emplace(std::piecewise_construct, std::forward_as_tuple(key),
                         std::forward_as_tuple(font, file_.Reserve()))
                .first;
  }
  std::string selection = "/F" + std::to_string(known->second.Number()) + ' ';
  AppendNumber(selection, raw.pixelSize());
  return {&known->second, raw.pixelSize(), synthesis.slants,
          synthesis.emboldens ? raw.lineThickness() / 2 : 0, selection + " Tf\n"};
}

void PdfFonts::Put() const {
  for (const auto& [key, font] : fonts_) font.Put(file_);
}

}  // namespace td
