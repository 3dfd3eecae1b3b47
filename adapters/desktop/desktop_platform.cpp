#include "desktop/desktop_platform.h"

#include <utility>

#include "desktop/databases.h"
#include "desktop/desktop_parts.h"
#include "desktop/lock_waits.h"
#include "desktop/print_journal.h"
#include "explanation/explainer.h"
#include "print_calls/device_failure.h"
#include "print_calls/printers.h"
#include "run_witnesses/witness_group.h"

namespace td {
namespace {

DesktopOptions Checked(DesktopOptions options) {
  PrepareDesktop();
  if (!options.printer.empty() && !td::HasPrinter(options.printer)) {
    throw DeviceFailure(kInvalidProperty, "找不到打印机“" + options.printer + "”。");
  }
  return options;
}

}  // namespace

struct DesktopPlatform::Parts {
  explicit Parts(DesktopOptions options)
      : own(MakeDesktopParts(options.componentFolder, options.messages, &outcome)) {
    own->MessagesOfCalls().PutPlace(
        [this] { return PlaceText(CurrentPlace(), LanguageOfLocale()); });
    Put(std::move(options));
  }

  [[nodiscard]] RunPlace CurrentPlace() const {
    return explains ? explainer.CurrentPlace() : placeKeeper.CurrentPlace();
  }

  void Put(DesktopOptions options) {
    own->MessagesOfCalls().PutMode(options.messages);
    journal.Put(
        {.logFile = std::move(options.logFile), .onLogFailure = std::move(options.onLogFailure)});
    lockWaits.Put({.seconds = options.lockWaitLimit, .goOn = std::move(options.onLockWait)});
    own->PutSettings({.printer = std::move(options.printer),
                      .stateDirectory = std::move(options.stateDirectory),
                      .documentSink = std::move(options.documentSink),
                      .sinkTarget = std::move(options.sinkTarget),
                      .calibrated = options.calibrated,
                      .onPage = std::move(options.onPage),
                      .onPrinted = std::move(options.onPrinted),
                      .onComplaint = std::move(options.onComplaint),
                      .outcome = &outcome,
                      .stop = &stop,
                      .listener = journal.IsOn() ? &journal : nullptr});
    PutWitnesses(options.explain);
  }

  void PutWitnesses(bool withExplanation) {
    explains = withExplanation;
    if (!explains) explainer.Clear();
    witnesses = {};
    witnesses.Add(explains ? explainer : placeKeeper);
    if (journal.IsOn()) witnesses.Add(journal.Witness());
    platform.witness = witnesses.OrNone();
  }

  Databases databases;
  PrintStop stop;
  LockWaits lockWaits{stop};
  PatientDatabase patientDatabases{databases, lockWaits};
  DocumentOutcome outcome;
  std::unique_ptr<DesktopParts> own;
  PrintJournal journal{outcome, own->ThisMachine()};
  WitnessGroup witnesses;
  PlaceKeeper placeKeeper;
  Explainer explainer;
  bool explains = false;
  Platform platform{patientDatabases, own->PictureFiles(), own->MessagesOfCalls(),
                    own->ThisMachine(), own->PrintWindows()};
};

DesktopPlatform::DesktopPlatform(DesktopOptions options)
    : parts_(std::make_unique<Parts>(Checked(std::move(options)))) {}

DesktopPlatform::~DesktopPlatform() = default;

Platform& DesktopPlatform::Get() {
  return parts_->platform;
}

void DesktopPlatform::PutOptions(DesktopOptions options) {
  parts_->Put(Checked(std::move(options)));
}

RecordsetRef DesktopPlatform::Limited(RecordsetRef rows) {
  return PatientRows(std::move(rows), parts_->lockWaits, parts_->stop);
}

void DesktopPlatform::CancelPrint(const std::string& reason) {
  parts_->stop.Ask(reason);
}

RecordsetRef DesktopPlatform::OpenReadOnly(const std::string& connection, const std::string& sql) {
  return parts_->lockWaits.Watch([&] { return parts_->databases.OpenReadOnly(connection, sql); });
}

Explanation DesktopPlatform::LastExplanation() const {
  return parts_->explainer.Explain(parts_->databases);
}

RunPlace DesktopPlatform::CurrentPlace() const {
  return parts_->CurrentPlace();
}

bool DesktopPlatform::HasDisplay() const {
  return DesktopHasDisplay();
}

bool DesktopPlatform::HasPrinter(const std::string& name) const {
  return td::HasPrinter(name);
}

DocumentOutcome DesktopPlatform::LastDocument() const {
  return parts_->outcome;
}

int DesktopPlatform::MessagesShown() const {
  return parts_->own->MessagesOfCalls().Shown();
}

}  // namespace td
