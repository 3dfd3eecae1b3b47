// Keeps connections of the engine that nobody uses at the moment.
#pragma once

#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "sqlite/session.h"

namespace td {

// Opening a file and reading its tables costs more than most queries of a print run. Sessions are
// kept by connection text; those that failed, hold something, or whose file is no longer the same
// are dropped. Safe to use from several threads; a session belongs to the one that took it.
class SessionPool {
 public:
  SessionPool();

  [[nodiscard]] std::unique_ptr<Session> Take(const std::string& connection);
  void GiveBack(std::string connection, std::unique_ptr<Session> session) noexcept;

 private:
  struct Idle {
    std::string connection;
    std::unique_ptr<Session> session;
  };

  [[nodiscard]] std::unique_ptr<Session> TakeIdle(const std::string& connection);

  std::mutex mutex_;
  std::vector<Idle> idle_;  // the last used at the end
};

}  // namespace td
