// The way of a finished document, and who is told of it.
#pragma once

#include <functional>
#include <set>
#include <string>

#include "print_calls/frame_settings.h"

namespace td {

// A print call of one window begins and ends: its outcome is empty, its stop can be asked for, its
// listener is told.
class RunningCall {
 public:
  // The settings outlive the call.
  explicit RunningCall(const FrameSettings& settings);
  ~RunningCall();
  RunningCall(const RunningCall&) = delete;
  RunningCall& operator=(const RunningCall&) = delete;

  // The user does something in the preview: a stop that was asked for before is over.
  void BeginAction() const;
  void BeginPreview() const;

 private:
  const FrameSettings& settings_;
};

// Begins the outcome of the document, hands it to the sink of the settings, or to `print`, which
// says in the outcome what became of it; then tells the listener and the program. A failure of
// `print` is a refusal, and goes through.
void Deliver(const FrameSettings& settings, const PageDocument& document,
             const std::function<void(DocumentOutcome& outcome)>& print);

// What documents of a print window go on without: each text is told once.
class Complaints {
 public:
  explicit Complaints(const FrameSettings& settings) : settings_(settings) {}

  void Tell(const std::string& text);

 private:
  const FrameSettings& settings_;
  std::set<std::string> told_;
};

}  // namespace td
