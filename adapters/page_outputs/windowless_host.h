// The host of a document that nobody looks at.
#pragma once

#include <string>

#include "page_document/document_host.h"
#include "page_outputs/text_measures.h"

namespace td {

// Measures texts as the outputs lay them out, and shows and exports nothing. Printers and
// complaints are its descendant's.
class WindowlessHost : public DocumentHost {
 public:
  double LineHeight(const TextLine& line) override { return td::LineHeight(line); }
  double LineWidth(const TextLine& line) override { return td::LineWidth(line); }
  bool ShowPageSetup(PageDocument& /*document*/) override { return false; }
  void Export(PageDocument& /*document*/, const std::string& /*file*/,
              std::int32_t /*format*/) override {}
  void PreviewChanged(PageDocument& /*document*/) override {}
  void PointerChanged(std::int32_t /*shape*/) override {}
};

}  // namespace td
