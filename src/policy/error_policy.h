// The one error policy: what a routine does when one of its statements fails.
#pragma once

#include <functional>
#include <utility>

#include "platform/failure.h"
#include "platform/platform.h"

namespace td {

// A routine's table of reactions. A failure that no entry forgives ends the routine with a message.
struct Reactions {
  bool retriesLocked = false;       // a description that contains 锁: the statement runs again
  bool skipsNull = false;           // kInvalidUseOfNull: on with the next statement
  bool skipsMissingColumn = false;  // kNoSuchColumn: on with the next statement
  bool reportsPrinter = false;      // kInvalidProperty: a report of the routine's own, then on
  bool ignoresAll = false;          // whatever it is: on with the next statement
};

namespace reactions {

inline constexpr Reactions kPlainRun{
    .retriesLocked = true, .skipsNull = true, .skipsMissingColumn = true, .reportsPrinter = true};
inline constexpr Reactions kDrawing{
    .retriesLocked = true, .skipsNull = true, .skipsMissingColumn = true};
inline constexpr Reactions kStockAreaRun = kDrawing;
inline constexpr Reactions kSettingsLoad{.retriesLocked = true, .skipsNull = true};
inline constexpr Reactions kSettingsSave{.retriesLocked = true};
inline constexpr Reactions kAreaPrinterLoad{.skipsNull = true};
inline constexpr Reactions kMessageOnly{};  // area printers, goods picture, toolbar, page setup
inline constexpr Reactions kIgnoreAll{.ignoresAll = true};  // row sums, window load, print calls

}  // namespace reactions

// Runs the statements of one routine under its reactions.
class Guard {
 public:
  // `handle` is the routine's own work on a forgiven failure: the report of a refused printer under
  // `reportsPrinter`, or whatever is due before the next statement under `ignoresAll`. A failure
  // inside it leaves the routine. `witness` is told of each decision, if there is one.
  explicit Guard(const Reactions& reactions, std::function<void()> handle = {},
                 RunWitness* witness = nullptr)
      : reactions_(reactions), handle_(std::move(handle)), witness_(witness) {}

  // One statement. It is repeated or skipped as a whole; a skipped one leaves its target as it was.
  template <class Action>
  void Step(Action&& action) const {
    Run(action, Statement::kStep);
  }

  // A test is a statement of its own; when it fails and is forgiven it counts as true.
  template <class Condition>
  [[nodiscard]] bool Test(Condition&& condition) const {
    bool holds = true;
    Run([&] { holds = condition(); }, Statement::kTest);
    return holds;
  }

 private:
  enum class Statement { kStep, kTest };
  enum class Reaction { kRetry, kNext };

  template <class Action>
  void Run(Action&& action, Statement statement) const {
    for (;;) {
      try {
        action();
        return;
      } catch (...) {
        if (ReactToCurrent(statement) == Reaction::kNext) return;
      }
    }
  }

  // Called while an exception is handled; throws what ends the routine.
  Reaction ReactToCurrent(Statement statement) const;

  Reactions reactions_;
  std::function<void()> handle_;
  RunWitness* witness_;
};

// Ends a routine and passes it by: a failure inside the routine's own handler.
struct EscapingFailure {
  Failure failure;
};

// The exception being handled as a Failure, whatever a platform threw.
[[nodiscard]] Failure CurrentFailure();

// Shows the description of a failure that ended a routine.
void ShowFailure(Messages& messages, const Failure& failure);

// Runs `body(guard)` as a routine: what the guard does not forgive ends it with a message box.
template <class Body>
void RunRoutine(const Guard& guard, Messages& messages, Body&& body) {
  try {
    body(guard);
  } catch (const EscapingFailure& escaping) {
    throw escaping.failure;
  } catch (const Failure& failure) {
    ShowFailure(messages, failure);
  }
}

}  // namespace td
