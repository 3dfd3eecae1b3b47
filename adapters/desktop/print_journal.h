// Writes the print log while prints happen.
#pragma once

#include <chrono>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>

#include "platform/platform.h"
#include "print_calls/call_listener.h"
#include "print_calls/document_outcome.h"
#include "print_log/print_record.h"
#include "run_witnesses/bill_list.h"

namespace td {

struct JournalSettings {
  // As DesktopOptions has them.
  std::optional<std::string> logFile;
  std::function<void(const std::string& text)> onLogFailure;
};

// A line for each document that was handed over, refused or cancelled; a call without any has one
// line, too. A log that can't be written is told once, until it can be again, and stops nothing.
class PrintJournal : public CallListener {
 public:
  // Both outlive the journal.
  PrintJournal(const DocumentOutcome& outcome, Machine& machine)
      : outcome_(outcome), machine_(machine) {}

  void Put(JournalSettings settings);

  [[nodiscard]] bool IsOn() const { return !file_.empty(); }
  // Is to be told of the runs.
  [[nodiscard]] RunWitness& Witness() { return bills_; }

  void CallBegins() override;
  void PreviewBegins() override { isPreview_ = true; }
  void DocumentBegins() override;
  void DocumentEnds() override;
  void PrintBegins() override;
  void PrintEnds() override;
  void CallEnds() override;

 private:
  using Clock = std::chrono::steady_clock;

  void WritePending();
  void Write(const std::string& result, double seconds);
  void TellFailure(const std::string& reason);
  [[nodiscard]] PrintRecord Record(const std::string& result, double seconds);

  const DocumentOutcome& outcome_;
  Machine& machine_;
  std::function<void(const std::string& text)> onLogFailure_;
  std::filesystem::path file_;  // empty: there is no log
  bool isFailureTold_ = false;
  BillList bills_;

  // Of the call that goes on.
  bool isPreview_ = false;
  bool hasLine_ = false;
  std::size_t loggedMessages_ = 0;
  std::size_t loggedComplaints_ = 0;
  std::optional<double> refusedAfter_;  // seconds; a refusal that has no line yet
  Clock::time_point callBegin_;
  Clock::time_point documentBegin_;
  Clock::time_point printBegin_;
  double making_ = 0;  // seconds that the last document took
};

}  // namespace td
