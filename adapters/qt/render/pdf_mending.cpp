#include "render/pdf_mending.h"

#include <QRegularExpression>
#include <algorithm>
#include <cmath>

#include "render/font_faces.h"

namespace td {
namespace {

constexpr qsizetype kCrossReferenceEntry = 20;  // bytes, as the format demands

// An object's number, and its bytes from "N 0 obj" to the next object.
struct PdfObject {
  qsizetype number = 0;
  qsizetype offset = 0;
  QByteArray bytes;
};

struct PdfFile {
  QByteArray head;
  std::vector<PdfObject> objects;  // in the file's order
  QByteArray crossReference;       // from "xref" to before "trailer"
  QByteArray trailer;              // to before "startxref"
};

// False if the file does not have one plain cross-reference table over all of its objects.
bool Split(const QByteArray& pdf, PdfFile& file) {
  const qsizetype start = pdf.lastIndexOf("startxref");
  if (start < 0) return false;
  const qsizetype table = pdf.mid(start + 9, 20).trimmed().split('\n').first().toLongLong();
  const qsizetype trailer = pdf.indexOf("trailer", table);
  const qsizetype entries = table + pdf.mid(table, 64).indexOf('\n', 5) + 1;
  if (!pdf.mid(table, 64).startsWith("xref\n0 ") || trailer < entries) return false;
  file.crossReference = pdf.mid(table, trailer - table);
  file.trailer = pdf.mid(trailer, start - trailer);
  for (qsizetype at = entries; at + kCrossReferenceEntry <= trailer; at += kCrossReferenceEntry) {
    if (pdf.at(at + 17) != 'n') continue;
    file.objects.push_back({(at - entries) / kCrossReferenceEntry,
                            static_cast<qsizetype>(pdf.mid(at, 10).toLongLong()),
                            {}});
  }
  std::ranges::sort(file.objects, {}, &PdfObject::offset);
  if (file.objects.empty()) return false;
  file.head = pdf.left(file.objects.front().offset);
  for (std::size_t i = 0; i < file.objects.size(); ++i) {
    PdfObject& object = file.objects[i];
    const qsizetype end = i + 1 < file.objects.size() ? file.objects[i + 1].offset : table;
    object.bytes = pdf.mid(object.offset, end - object.offset);
    if (!object.bytes.startsWith(QByteArray::number(object.number) + " 0 obj")) return false;
  }
  return true;
}

QByteArray Join(PdfFile file) {
  QByteArray pdf = file.head;
  const qsizetype entries = file.crossReference.indexOf('\n', 5) + 1;
  for (const PdfObject& object : file.objects) {
    file.crossReference.replace(entries + object.number * kCrossReferenceEntry, 10,
                                QByteArray::number(pdf.size()).rightJustified(10, '0'));
    pdf += object.bytes;
  }
  const QByteArray table = QByteArray::number(pdf.size());
  return pdf + file.crossReference + file.trailer + "startxref\n" + table + "\n%%EOF\n";
}

// The writer puts the content's top at the top of whole points, so the sheet ends there and its
// lower edge lies a part of a point above 0.
QByteArray MediaBox(const Page& page) {
  const int top = PointsToHold(page.height);
  return "/MediaBox [0 " + QByteArray::number(top - page.height / kTwipsPerPoint, 'f', 4) + ' ' +
         QByteArray::number(page.width / kTwipsPerPoint, 'f', 4) + ' ' + QByteArray::number(top) +
         ']';
}

void SetSize(QByteArray& object, const Page& page) {
  const qsizetype begin = object.indexOf("/MediaBox [");
  const qsizetype end = object.indexOf(']', begin);
  if (begin >= 0 && end >= 0) object.replace(begin, end + 1 - begin, MediaBox(page));
}

// Replaces the characters in lines such as <0001> <0003> [<9500> <552E> <0009> ] and
// <0010> <0010> <002E>; the first two numbers of a line are glyphs.
void NameCharacters(QByteArray& characterMap, const DrawnCharacters& drawn) {
  static const QRegularExpression line("^<[0-9A-F]{4}> <[0-9A-F]{4}> (.*)$",
                                       QRegularExpression::MultilineOption);
  static const QRegularExpression character("<([0-9A-F]{4})>");
  const QString text = QString::fromLatin1(characterMap);
  for (auto lines = line.globalMatch(text); lines.hasNext();) {
    const QRegularExpressionMatch named = lines.next();
    for (auto codes = character.globalMatch(named.captured(1)); codes.hasNext();) {
      const QRegularExpressionMatch code = codes.next();
      const char16_t extracted = static_cast<char16_t>(code.captured(1).toUShort(nullptr, 16));
      characterMap.replace(
          named.capturedStart(1) + code.capturedStart(1), 4,
          QByteArray::number(drawn.For(extracted), 16).toUpper().rightJustified(4, '0'));
    }
  }
}

}  // namespace

int PointsToHold(double twips) {
  constexpr double kTolerance = 1e-4;  // of a point: A4 is 842 points high, not 843
  return std::max(1, static_cast<int>(std::ceil(twips / kTwipsPerPoint - kTolerance)));
}

QByteArray MendPdf(const QByteArray& pdf, const std::vector<Page>& pages) {
  PdfFile file;
  if (!Split(pdf, file)) return pdf;
  const DrawnCharacters drawn;
  auto page = pages.begin();
  for (PdfObject& object : file.objects) {
    if (object.bytes.contains("/Type /Page\n") && page != pages.end()) {
      SetSize(object.bytes, *page++);
    } else if (object.bytes.contains("begincmap")) {
      NameCharacters(object.bytes, drawn);
    }
  }
  return Join(std::move(file));
}

}  // namespace td
