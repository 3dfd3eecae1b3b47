#include "print_calls/delivery.h"

#include <exception>

#include "files/standard_error.h"
#include "page_document/page_document.h"
#include "print_calls/call_listener.h"
#include "print_calls/print_stop.h"

namespace td {
namespace {

void HandOver(const FrameSettings& settings, const PageDocument& document, DocumentOutcome& outcome,
              const std::function<void(DocumentOutcome& outcome)>& print) {
  if (!settings.documentSink) return print(outcome);
  settings.documentSink(document);
  outcome.file = settings.sinkTarget;
  outcome.delivery = Delivery::kSink;
}

}  // namespace

RunningCall::RunningCall(const FrameSettings& settings) : settings_(settings) {
  if (settings_.outcome != nullptr) *settings_.outcome = {};
  if (settings_.listener != nullptr) settings_.listener->CallBegins();
  BeginAction();
}

RunningCall::~RunningCall() {
  if (settings_.stop != nullptr) settings_.stop->End();
  if (settings_.listener != nullptr) settings_.listener->CallEnds();
}

void RunningCall::BeginAction() const {
  if (settings_.stop != nullptr) settings_.stop->Begin();
}

void RunningCall::BeginPreview() const {
  if (settings_.listener != nullptr) settings_.listener->PreviewBegins();
}

void Deliver(const FrameSettings& settings, const PageDocument& document,
             const std::function<void(DocumentOutcome& outcome)>& print) {
  DocumentOutcome untold;
  DocumentOutcome& outcome = settings.outcome != nullptr ? *settings.outcome : untold;
  BeginOutcome(outcome, static_cast<int>(document.Pages().size()));
  if (settings.listener != nullptr) settings.listener->PrintBegins();
  try {
    HandOver(settings, document, outcome, print);
  } catch (const std::exception& failure) {
    outcome.delivery = Delivery::kRefused;
    outcome.reason = failure.what();
    if (settings.listener != nullptr) settings.listener->PrintEnds();
    throw;
  }
  if (settings.listener != nullptr) settings.listener->PrintEnds();
  if (outcome.IsDelivered() && settings.onPrinted) settings.onPrinted();
}

void Complaints::Tell(const std::string& text) {
  if (!told_.insert(text).second) return;
  if (settings_.outcome != nullptr) settings_.outcome->complaints.push_back(text);
  if (settings_.onComplaint) {
    settings_.onComplaint(text);
  } else {
    WriteErrorLine("QbTdPrinter: " + text);
  }
}

}  // namespace td
