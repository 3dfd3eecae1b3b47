// How long a print waits for rows and tables that other users have locked.
#pragma once

#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <type_traits>

#include "platform/database.h"
#include "platform/failure.h"
#include "print_calls/print_stop.h"

namespace td {

struct LockPatience {
  std::optional<double> seconds;  // none: without limit
  // Called after each try, with the seconds that this wait has lasted; False ends the wait.
  std::function<bool(double seconds)> goOn;
};

// A wait begins with a lock conflict, which a routine answers by asking again, and ends with the
// next request that meets none. When the patience is at its end, the conflict becomes a failure
// that is none, with words of its own, and stops the print: a bill that lacks what was locked is
// not printed.
//
// Any thread may ask databases; each waits for itself.
class LockWaits {
 public:
  // `stop` outlives this object.
  explicit LockWaits(PrintStop& stop) : stop_(stop) {}

  // What holds for the conflicts from now on.
  void Put(LockPatience patience);

  // Runs one request.
  template <class Request>
  auto Watch(Request&& request) {
    try {
      if constexpr (std::is_void_v<decltype(request())>) {
        request();
        End();
      } else {
        auto answer = request();
        End();
        return answer;
      }
    } catch (const Failure& failure) {
      GoOnOrFail(failure);
      throw;
    }
  }

 private:
  using Clock = std::chrono::steady_clock;

  void End();
  // Returns if the wait goes on, or if the failure is no conflict.
  void GoOnOrFail(const Failure& failure);
  [[nodiscard]] bool IsOfPrint() const { return std::this_thread::get_id() == printThread_; }
  [[noreturn]] void GiveUp(const std::string& reason);

  PrintStop& stop_;
  const std::thread::id printThread_ = std::this_thread::get_id();
  std::mutex mutex_;
  std::shared_ptr<const LockPatience> patience_ = std::make_shared<LockPatience>();
  std::map<std::thread::id, Clock::time_point> begins_;  // of the threads that wait
};

// A database whose locks are waited for with patience; `real` and `waits` outlive it.
class PatientDatabase : public Database {
 public:
  PatientDatabase(Database& real, LockWaits& waits) : real_(real), waits_(waits) {}

  RecordsetRef OpenQuery(const std::string& connection, const std::string& sql, CursorType cursor,
                         LockType lock) override;
  std::unique_ptr<Connection> Connect(const std::string& connection) override;

 private:
  Database& real_;
  LockWaits& waits_;
};

// Rows whose locks are waited for in the same way, and whose cursor doesn't move on after a stop;
// the other two outlive them and their clones.
[[nodiscard]] RecordsetRef PatientRows(RecordsetRef rows, LockWaits& waits, const PrintStop& stop);

}  // namespace td
