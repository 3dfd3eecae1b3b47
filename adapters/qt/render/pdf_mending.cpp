#include "render/pdf_mending.h"

#include <QRegularExpression>
#include <algorithm>
#include <cmath>

#include "render/font_faces.h"

namespace td {
namespace {

constexpr qsizetype kCrossReferenceEntry = 20;  // bytes, as the format demands

// The number of the object that a part begins, or 0.
std::size_t ObjectBegunBy(QByteArrayView part) {
  const qsizetype blank = part.indexOf(' ');
  if (blank <= 0 || !part.sliced(blank).startsWith(" 0 obj\n")) return 0;
  return part.first(blank).toULongLong();
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

MendedPdf::MendedPdf(const PageRefs& pages, const ByteSink& sink) : pages_(pages), sink_(sink) {
  open(QIODevice::WriteOnly);
}

MendedPdf::~MendedPdf() = default;

// The writer hands over the beginning of each object as a part of its own, and the cross-reference
// table in parts from "xref" on.
qint64 MendedPdf::writeData(const char* data, qint64 size) {
  if (failure_) return -1;
  const QByteArrayView part(data, size);
  const bool isBetweenObjects = object_.isEmpty() || object_.endsWith("endobj\n");
  if (tail_.isEmpty() && isBetweenObjects && part.startsWith("xref\n0 ")) {
    EndObject();
    tailOffset_ = written_;
  }
  if (tailOffset_ >= 0) {
    tail_.append(part);
    return size;
  }
  const std::size_t number = ObjectBegunBy(part);
  if (number > 0 && (isBetweenObjects || offsets_.empty())) {
    EndObject();
    if (offsets_.size() <= number) offsets_.resize(number + 1);
    offsets_[number] = written_;
  }
  object_.append(part);
  return size;
}

void MendedPdf::EndObject() {
  if (object_.contains("/Type /Page\n") && page_ < pages_.size()) {
    SetSize(object_, *pages_[page_++]);
  } else if (object_.contains("begincmap")) {
    if (!drawn_) drawn_ = std::make_unique<DrawnCharacters>();
    NameCharacters(object_, *drawn_);
  }
  HandOn(object_);
  object_.clear();
}

void MendedPdf::HandOn(const QByteArray& bytes) {
  if (failure_) return;
  try {
    sink_({bytes.constData(), static_cast<std::size_t>(bytes.size())});
    written_ += bytes.size();
  } catch (...) {
    failure_ = std::current_exception();  // no exception may pass through the writer
  }
}

void MendedPdf::Finish() {
  HandOn(object_);
  const qsizetype entries = tail_.indexOf('\n', 5) + 1;
  for (std::size_t number = 1; number < offsets_.size(); ++number) {
    const qsizetype entry = entries + static_cast<qsizetype>(number) * kCrossReferenceEntry;
    if (entry + kCrossReferenceEntry > tail_.size() || tail_.at(entry + 17) != 'n') continue;
    tail_.replace(entry, 10, QByteArray::number(offsets_[number]).rightJustified(10, '0'));
  }
  const qsizetype start = tail_.lastIndexOf("startxref");
  if (start >= 0) {
    tail_ = tail_.first(start) + "startxref\n" + QByteArray::number(tailOffset_) + "\n%%EOF\n";
  }
  HandOn(tail_);
  if (failure_) std::rethrow_exception(failure_);
}

}  // namespace td
