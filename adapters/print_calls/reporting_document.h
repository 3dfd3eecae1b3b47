// A document of a print call.
#pragma once

#include "page_document/page_document.h"
#include "print_calls/frame_settings.h"

namespace td {

// Tells of its beginning and of each page that the run has finished, and is stopped between pages.
class ReportingDocument : public PageDocument {
 public:
  // The settings outlive the document.
  ReportingDocument(DocumentHost& host, const FrameSettings& settings)
      : PageDocument(host), settings_(settings) {}

  void StartDoc() override;
  void NewPage() override;
  void EndDoc() override;

 private:
  void Report(int page);
  void CheckStop() const;

  const FrameSettings& settings_;
};

}  // namespace td
