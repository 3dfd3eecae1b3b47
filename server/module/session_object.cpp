#include "module/session_object.h"

#include <atomic>
#include <cmath>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "module/component.h"
#include "module/printing_object.h"
#include "module/session_answers.h"
#include "module/session_members.h"
#include "module/session_print.h"
#include "objects/variant_values.h"
#include "platform/standard_failures.h"

namespace td {
namespace {

constexpr int kNoSuchElement = 9;

using Output = SessionSettings::Output;

MessageMode MessageModeOf(std::int32_t number) {
  switch (number) {
    case TD_MESSAGES_SHOWN:
      return MessageMode::kAutomatic;
    case TD_MESSAGES_ON_STANDARD_ERROR:
      return MessageMode::kStandardError;
    case TD_MESSAGES_COLLECTED:
      return MessageMode::kCollected;
    default:
      throw InvalidCallFailure();
  }
}

// Of a file, a folder or a printer: the systems would take the part in front of a zero for it.
std::string NameOf(std::string text) {
  if (text.find('\0') != std::string::npos) throw InvalidCallFailure();
  return text;
}

class SessionObject final : public PrintingObject<SessionObject, TdSession> {
  friend PrintingObject;

 public:
  SessionObject() : PrintingObject(&kTable) {}

  static const TdGuid& OwnInterface() { return kTdSessionId; }
  static bool Has(const TdGuid& id) {
    return SameGuid(id, kTdDispatchId) || SameGuid(id, kTdSessionId);
  }
  // Each operation but one asks for the thread by itself.
  static void Enter() {}
  static const Members& AllMembers() { return SessionMembers(); }

  void Call(std::int32_t member, const CallArguments& arguments, TdVariant& result);

 private:
  void Print(PrintMethod method, PrintCall call);
  void SendTo(Output output, std::string target, double dotsPerInch = 0);
  void Put(std::int32_t member, const CallArguments& arguments);
  void PutLockWaitLimit(double seconds);
  void Cancel() const {
    if (isPrinting_) Component::Get().CancelPrint();
  }
  [[nodiscard]] Value Get(std::int32_t member) const {
    return result_ ? Answer(member, *result_) : AnswerBefore(member);
  }
  // `texts` of the last call, one for each message.
  [[nodiscard]] const std::string& OfMessage(std::vector<std::string> DocumentOutcome::*texts,
                                             std::int32_t index) const;

  // Runs a direct operation on the owner's thread.
  template <class Operation>
  static TdResult RunOwned(TdSession* self, Operation operation) noexcept {
    return Run(self, [&](SessionObject& session) {
      Component::Get().CheckThread();
      operation(session);
    });
  }
  template <class Operation>
  static TdResult GiveText(TdSession* self, TdString* value, Operation operation) noexcept {
    if (value == nullptr) return TD_BAD_POINTER;
    *value = nullptr;
    return RunOwned(self, [&](SessionObject& session) { *value = StringOf(operation(session)); });
  }
  template <SessionMember id>
  static TdResult TD_CALL TextOfMember(TdSession* self, TdString* value) {
    return GiveText(self, value,
                    [](SessionObject& session) { return std::get<std::string>(session.Get(id)); });
  }
  template <SessionMember id>
  static TdResult TD_CALL NumberOfMember(TdSession* self, std::int32_t* value) {
    if (value == nullptr) return TD_BAD_POINTER;
    *value = 0;
    return RunOwned(self, [&](SessionObject& session) {
      *value = static_cast<std::int32_t>(std::get<std::int64_t>(session.Get(id)));
    });
  }
  template <Output output>
  static TdResult TD_CALL Send(TdSession* self, TdString target) {
    return RunOwned(self, [&](SessionObject& session) { session.SendTo(output, TextOf(target)); });
  }

  static TdResult TD_CALL ToPng(TdSession* self, TdString Folder, double DotsPerInch);
  static TdResult TD_CALL DirectMessageMode(TdSession* self, std::int32_t NewValue);
  static TdResult TD_CALL DirectLockWaitLimit(TdSession* self, double NewValue);
  static TdResult TD_CALL DirectProgress(TdSession* self, TdDispatch* NewValue);
  static TdResult TD_CALL DirectExplain(TdSession* self, TdFlag NewValue);
  static TdResult TD_CALL DirectLogFile(TdSession* self, TdString NewValue);
  static TdResult TD_CALL DirectCancel(TdSession* self);
  static TdResult TD_CALL DirectDelivered(TdSession* self, TdFlag* value);
  template <std::vector<std::string> DocumentOutcome::*texts>
  static TdResult TD_CALL TextOfMessage(TdSession* self, std::int32_t Index, TdString* value) {
    return GiveText(self, value,
                    [Index](SessionObject& session) { return session.OfMessage(texts, Index); });
  }

  static const TdSessionTable kTable;

  SessionSettings settings_;
  std::optional<SessionResult> result_;  // of the last call
  std::atomic<bool> isPrinting_ = false;
  Use use_;
};

const TdSessionTable SessionObject::kTable = TableWith<TdSessionTable>(
    Send<Output::kPrinter>, Send<Output::kPdf>, ToPng, Send<Output::kHtml>, DirectMessageMode,
    DirectLockWaitLimit, DirectProgress, DirectExplain, DirectLogFile, DirectCancel,
    DirectDelivered, TextOfMember<kResult>, TextOfMember<kReason>, NumberOfMember<kPages>,
    TextOfMember<kPrinterName>, NumberOfMember<kJobNumber>, TextOfMember<kJobs>,
    NumberOfMember<kMessageCount>, TextOfMessage<&DocumentOutcome::texts>, TextOfMember<kMessages>,
    TextOfMessage<&DocumentOutcome::places>, TextOfMember<kComplaints>, TextOfMember<kExplanation>,
    TextOfMember<kExplanationJson>);

void SessionObject::Call(std::int32_t member, const CallArguments& arguments, TdVariant& result) {
  if (member == kCancel) return Cancel();
  Component::Get().CheckThread();
  if (CallPrintMember(member, arguments, result)) return;
  switch (member) {
    case kMessage:
      result = VariantOf(OfMessage(&DocumentOutcome::texts, arguments.Integer32(0)));
      return;
    case kMessagePlace:
      result = VariantOf(OfMessage(&DocumentOutcome::places, arguments.Integer32(0)));
      return;
    default:
      if (member < kMessage) return Put(member, arguments);
      result = VariantOf(Get(member));
  }
}

// Methods and properties that choose.
void SessionObject::Put(std::int32_t member, const CallArguments& arguments) {
  switch (member) {
    case kToPrinter:
      return SendTo(Output::kPrinter, arguments.Text(0));
    case kToPdf:
      return SendTo(Output::kPdf, arguments.Text(0));
    case kToPng:
      return SendTo(Output::kPng, arguments.Text(0), arguments.Real(1));
    case kToHtml:
      return SendTo(Output::kHtml, arguments.Text(0));
    case kMessageMode:
      settings_.messages = MessageModeOf(arguments.Integer32(0));
      return;
    case kLockWaitLimit:
      return PutLockWaitLimit(arguments.Real(0));
    case kProgress:
      settings_.progress = arguments.Object(0);
      return;
    case kExplain:
      settings_.explain = arguments.Flag(0);
      return;
    default:
      settings_.logFile = NameOf(arguments.Text(0));
  }
}

void SessionObject::Print(PrintMethod method, PrintCall call) {
  RequireData(call);
  DesktopPlatform& desktop = Component::Get().Desktop();
  if (isPrinting_) throw RequestRunsFailure();
  result_ = SessionResult();
  struct Printing {
    explicit Printing(std::atomic<bool>& on) : flag(on) { flag = true; }
    ~Printing() { flag = false; }
    Printing(const Printing&) = delete;
    Printing& operator=(const Printing&) = delete;
    std::atomic<bool>& flag;
  } const printing(isPrinting_);
  result_ = PrintInSession(desktop, settings_, method, std::move(call));
}

void SessionObject::SendTo(Output output, std::string target, double dotsPerInch) {
  constexpr double kMostDotsPerInch = 2400;
  const bool isResolution =
      dotsPerInch == 0 || (dotsPerInch >= 1 && dotsPerInch <= kMostDotsPerInch);
  if (!isResolution) throw InvalidCallFailure();
  settings_.target = NameOf(std::move(target));
  settings_.output = output;
  settings_.dotsPerInch = dotsPerInch;
}

void SessionObject::PutLockWaitLimit(double seconds) {
  if (std::isnan(seconds)) throw InvalidCallFailure();
  settings_.lockWaitLimit.reset();
  if (seconds >= 0) settings_.lockWaitLimit = seconds;
}

const std::string& SessionObject::OfMessage(std::vector<std::string> DocumentOutcome::*texts,
                                            std::int32_t index) const {
  const std::size_t count = result_ ? (result_->document.*texts).size() : 0;
  if (index < 1 || static_cast<std::size_t>(index) > count) {
    throw Failure(kNoSuchElement, "下标越界");
  }
  return (result_->document.*texts)[static_cast<std::size_t>(index) - 1];
}

TdResult SessionObject::ToPng(TdSession* self, TdString Folder, double DotsPerInch) {
  return RunOwned(self, [&](SessionObject& session) {
    session.SendTo(Output::kPng, TextOf(Folder), DotsPerInch);
  });
}

TdResult SessionObject::DirectMessageMode(TdSession* self, std::int32_t NewValue) {
  return RunOwned(self, [NewValue](SessionObject& session) {
    session.settings_.messages = MessageModeOf(NewValue);
  });
}

TdResult SessionObject::DirectLockWaitLimit(TdSession* self, double NewValue) {
  return RunOwned(self, [NewValue](SessionObject& session) { session.PutLockWaitLimit(NewValue); });
}

TdResult SessionObject::DirectProgress(TdSession* self, TdDispatch* NewValue) {
  return RunOwned(self, [NewValue](SessionObject& session) {
    session.settings_.progress = Reference<TdDispatch>::To(NewValue);
  });
}

TdResult SessionObject::DirectExplain(TdSession* self, TdFlag NewValue) {
  return RunOwned(
      self, [NewValue](SessionObject& session) { session.settings_.explain = NewValue != 0; });
}

TdResult SessionObject::DirectLogFile(TdSession* self, TdString NewValue) {
  return RunOwned(
      self, [&](SessionObject& session) { session.settings_.logFile = NameOf(TextOf(NewValue)); });
}

TdResult SessionObject::DirectCancel(TdSession* self) {
  return Run(self, [](const SessionObject& session) { session.Cancel(); });
}

TdResult SessionObject::DirectDelivered(TdSession* self, TdFlag* value) {
  if (value == nullptr) return TD_BAD_POINTER;
  *value = TD_FALSE_FLAG;
  return RunOwned(self, [value](SessionObject& session) {
    if (std::get<bool>(session.Get(kDelivered))) *value = TD_TRUE_FLAG;
  });
}

}  // namespace

TdObject* NewSessionObject() {
  return reinterpret_cast<TdObject*>(static_cast<TdSession*>(new SessionObject));
}

}  // namespace td
