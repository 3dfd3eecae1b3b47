// The end of a print before its time.
#pragma once

#include <atomic>
#include <mutex>
#include <string>

namespace td {

// Somebody asks for it, and the print ends where it next looks: at a page, at a row, at a locked
// database. What leaves there is neither forgiven by a routine nor a lock conflict, so that the run
// ends with the reason as its message, and nothing goes to a printer.
//
// Any thread may ask; the rest belongs to the platform's thread.
class PrintStop {
 public:
  // A print call begins, or its user does something in the preview: what was asked is over.
  void Begin();
  // The print call has ended.
  void End();

  // Does nothing between print calls. The first reason stays.
  void Ask(const std::string& reason);

  // Fails with kInvalidCall and the reason if a stop was asked for.
  void Check() const;

  // Runs what the program is called for. Whatever leaves it, it asks for the stop with its words,
  // and Check fails with them.
  template <class Call>
  void Run(Call&& call) {
    try {
      call();
    } catch (...) {
      AskByCurrent();
    }
    Check();
  }

 private:
  void AskByCurrent();

  enum class State { kIdle, kRunning, kAsked };

  mutable std::mutex mutex_;  // of a change to kAsked, and of the reason
  std::atomic<State> state_ = State::kIdle;
  std::string reason_;
};

}  // namespace td
