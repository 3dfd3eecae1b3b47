// A PDF file as a sequence of objects.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "files/written_bytes.h"

struct libdeflate_compressor;

namespace td {

// Hands the file on in parts of a few pages, and keeps nothing of it but where each object begins.
// What the sink throws goes through.
class PdfFile {
 public:
  // The sink outlives the file.
  explicit PdfFile(const ByteSink& sink);

  // The number of an object that is put later, so that others can refer to it.
  [[nodiscard]] int Reserve();

  void Put(int number, std::string_view value);
  // A stream, compressed. `entries` are those of its dictionary, without length and filter.
  void PutStream(int number, std::string_view entries, std::string_view bytes);
  // A stream whose bytes are as the filter that `entries` name wants them.
  void PutEncoded(int number, std::string_view entries, std::string_view bytes);

  // Ends the file, all of whose numbers have been put.
  void End(int catalogue, int information);

 private:
  struct CompressorCloser {
    void operator()(libdeflate_compressor* compressor) const;
  };

  void HandOn();
  void Begin(int number);

  const ByteSink& sink_;
  std::unique_ptr<libdeflate_compressor, CompressorCloser> compressor_;
  std::string compressed_;              // the current stream
  std::string part_;                    // what has not been handed on
  std::uint64_t written_ = 0;           // what has
  std::vector<std::uint64_t> offsets_;  // of the objects, from the first number
};

// "12 0 R"
[[nodiscard]] std::string Reference(int number);

}  // namespace td
