#include "print_calls/reporting_document.h"

#include "print_calls/call_listener.h"
#include "print_calls/print_stop.h"

namespace td {

void ReportingDocument::Report(int page) {
  if (settings_.outcome != nullptr) settings_.outcome->pages = page;
  if (!settings_.onPage) {
    CheckStop();
  } else if (settings_.stop == nullptr) {
    settings_.onPage(page);
  } else {
    settings_.stop->Run([&] { settings_.onPage(page); });
  }
}

void ReportingDocument::CheckStop() const {
  if (settings_.stop != nullptr) settings_.stop->Check();
}

void ReportingDocument::StartDoc() {
  CheckStop();
  if (settings_.listener != nullptr) settings_.listener->DocumentBegins();
  if (settings_.outcome != nullptr) BeginOutcome(*settings_.outcome, 0);
  PageDocument::StartDoc();
}

void ReportingDocument::NewPage() {
  const int finished = PageCount();
  PageDocument::NewPage();
  Report(finished);
}

void ReportingDocument::EndDoc() {
  PageDocument::EndDoc();
  if (settings_.listener != nullptr) settings_.listener->DocumentEnds();
  Report(PageCount());
}

}  // namespace td
