#include "render/pdf_file.h"

#include <libdeflate.h>

#include <new>

namespace td {
namespace {

constexpr std::size_t kPartSize = 32768;  // of the file: what is handed on at a time

}  // namespace
std::string Reference(int number) {
  return std::to_string(number) + " 0 R";
}

void PdfFile::CompressorCloser::operator()(libdeflate_compressor* compressor) const {
  libdeflate_free_compressor(compressor);
}

PdfFile::PdfFile(const ByteSink& sink) : sink_(sink) {
  constexpr int kLevel = 6;  // behind it, a tenth less size costs twice the time
  compressor_.reset(libdeflate_alloc_compressor(kLevel));
  if (!compressor_) throw std::bad_alloc();
  // Bytes above 127 tell that the file is no text.
  part_ = "%PDF-1.4\n%\xE2\xE3\xCF\xD3\n";
}

int PdfFile::Reserve() {
  offsets_.push_back(0);
  return static_cast<int>(offsets_.size());
}

void PdfFile::Put(int number, std::string_view value) {
  Begin(number);
  part_.append(value).append("\nendobj\n");
}

void PdfFile::PutStream(int number, std::string_view entries, std::string_view bytes) {
  compressed_.resize(libdeflate_zlib_compress_bound(compressor_.get(), bytes.size()));
  const std::size_t size = libdeflate_zlib_compress(compressor_.get(), bytes.data(), bytes.size(),
                                                    compressed_.data(), compressed_.size());
  PutEncoded(number, std::string(entries) + "/Filter/FlateDecode",
             std::string_view(compressed_).substr(0, size));
}

void PdfFile::PutEncoded(int number, std::string_view entries, std::string_view bytes) {
  Begin(number);
  part_.append("<<").append(entries).append("/Length ").append(std::to_string(bytes.size()));
  part_.append(">>\nstream\n").append(bytes).append("\nendstream\nendobj\n");
}

void PdfFile::End(int catalogue, int information) {
  const std::uint64_t table = written_ + part_.size();
  const std::string size = std::to_string(offsets_.size() + 1);
  part_ += "xref\n0 " + size + "\n0000000000 65535 f \n";
  for (const std::uint64_t offset : offsets_) {
    const std::string digits = std::to_string(offset);
    part_.append(10 - digits.size(), '0').append(digits).append(" 00000 n \n");
    if (part_.size() >= kPartSize) HandOn();
  }
  part_ += "trailer\n<</Size " + size + "/Root " + Reference(catalogue) + "/Info " +
           Reference(information) + ">>\nstartxref\n" + std::to_string(table) + "\n%%EOF\n";
  HandOn();
}

void PdfFile::Begin(int number) {
  if (part_.size() >= kPartSize) HandOn();
  offsets_.at(static_cast<std::size_t>(number) - 1) = written_ + part_.size();
  part_.append(std::to_string(number)).append(" 0 obj\n");
}

void PdfFile::HandOn() {
  sink_(part_);
  written_ += part_.size();
  part_.clear();
}

}  // namespace td
