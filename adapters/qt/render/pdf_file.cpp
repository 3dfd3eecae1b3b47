#include "render/pdf_file.h"

#include <QByteArray>

namespace td {
namespace {

// A stream as the filter FlateDecode wants it.
QByteArray Compressed(std::string_view bytes) {
  constexpr qsizetype kLengthInFront = 4;  // Qt's own
  return qCompress(reinterpret_cast<const uchar*>(bytes.data()),
                   static_cast<qsizetype>(bytes.size()))
      .mid(kLengthInFront);
}

}  // namespace

std::string Reference(int number) {
  return std::to_string(number) + " 0 R";
}

PdfFile::PdfFile(const ByteSink& sink) : sink_(sink) {
  // Bytes above 127 tell that the file is no text.
  HandOn("%PDF-1.4\n%\xE2\xE3\xCF\xD3\n");
}

int PdfFile::Reserve() {
  offsets_.push_back(0);
  return static_cast<int>(offsets_.size());
}

void PdfFile::Put(int number, std::string_view value) {
  Begin(number);
  object_.append(value).append("\nendobj\n");
  HandOn(object_);
}

void PdfFile::PutStream(int number, std::string_view entries, std::string_view bytes) {
  const QByteArray compressed = Compressed(bytes);
  PutEncoded(number, std::string(entries) + "/Filter/FlateDecode",
             {compressed.constData(), static_cast<std::size_t>(compressed.size())});
}

void PdfFile::PutEncoded(int number, std::string_view entries, std::string_view bytes) {
  Begin(number);
  object_.append("<<").append(entries).append("/Length ").append(std::to_string(bytes.size()));
  object_.append(">>\nstream\n").append(bytes).append("\nendstream\nendobj\n");
  HandOn(object_);
}

void PdfFile::End(int catalogue, int information) {
  const std::uint64_t table = written_;
  const std::string size = std::to_string(offsets_.size() + 1);
  object_ = "xref\n0 " + size + "\n0000000000 65535 f \n";
  for (const std::uint64_t offset : offsets_) {
    const std::string digits = std::to_string(offset);
    object_.append(10 - digits.size(), '0').append(digits).append(" 00000 n \n");
  }
  object_ += "trailer\n<</Size " + size + "/Root " + Reference(catalogue) + "/Info " +
             Reference(information) + ">>\nstartxref\n" + std::to_string(table) + "\n%%EOF\n";
  HandOn(object_);
}

void PdfFile::Begin(int number) {
  offsets_.at(static_cast<std::size_t>(number) - 1) = written_;
  object_ = std::to_string(number) + " 0 obj\n";
}

void PdfFile::HandOn(std::string_view bytes) {
  sink_(bytes);
  written_ += bytes.size();
}

}  // namespace td
