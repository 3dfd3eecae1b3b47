// Keeps connections to databases that nobody uses at the moment.
#pragma once

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <memory>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

namespace td {

// Opening a connection costs more than most queries of a print run. Sessions are kept by connection
// text; those that failed, hold something or are no longer usable are dropped. Safe to use from
// several threads; a session belongs to the one that took it.
//
// A Session is made from a connection text; Usable says whether it still can be used, Reusable
// whether nothing failed in it and nothing was left behind.
template <typename Session>
class SessionPool {
 public:
  SessionPool() { idle_.reserve(kMostIdle); }

  // A kept session, or nothing.
  [[nodiscard]] std::unique_ptr<Session> TakeKept(const std::string& connection) {
    while (auto session = TakeLast(connection)) {
      if (session->Usable()) return session;
    }
    return nullptr;
  }

  // A kept session, or a new one.
  [[nodiscard]] std::unique_ptr<Session> Take(const std::string& connection) {
    auto session = TakeKept(connection);
    return session ? std::move(session) : std::make_unique<Session>(connection);
  }

  void GiveBack(std::string connection, std::unique_ptr<Session> session) noexcept {
    if (!session->Reusable()) return;
    std::unique_ptr<Session> dropped;  // closed after the lock is gone
    const std::scoped_lock guard(mutex_);
    if (idle_.size() == kMostIdle) {
      dropped = std::move(idle_.front().session);
      idle_.erase(idle_.begin());
    }
    idle_.push_back({std::move(connection), std::move(session)});
  }

 private:
  static constexpr std::size_t kMostIdle = 8;

  struct Idle {
    std::string connection;
    std::unique_ptr<Session> session;
  };

  [[nodiscard]] std::unique_ptr<Session> TakeLast(const std::string& connection) {
    const std::scoped_lock guard(mutex_);
    const auto found = std::find_if(idle_.rbegin(), idle_.rend(), [&connection](const Idle& idle) {
      return idle.connection == connection;
    });
    if (found == idle_.rend()) return nullptr;
    auto session = std::move(found->session);
    idle_.erase(std::next(found).base());
    return session;
  }

  std::mutex mutex_;
  std::vector<Idle> idle_;  // the last used at the end
};

}  // namespace td
