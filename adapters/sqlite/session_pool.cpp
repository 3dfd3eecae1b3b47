#include "sqlite/session_pool.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "sqlite/connection_text.h"

namespace td {
namespace {

constexpr std::size_t kMostIdle = 8;

}  // namespace

SessionPool::SessionPool() {
  idle_.reserve(kMostIdle);
}

std::unique_ptr<Session> SessionPool::TakeIdle(const std::string& connection) {
  const std::scoped_lock guard(mutex_);
  const auto found = std::find_if(idle_.rbegin(), idle_.rend(), [&connection](const Idle& idle) {
    return idle.connection == connection;
  });
  if (found == idle_.rend()) return nullptr;
  auto session = std::move(found->session);
  idle_.erase(std::next(found).base());
  return session;
}

std::unique_ptr<Session> SessionPool::Take(const std::string& connection) {
  while (auto session = TakeIdle(connection)) {
    if (session->FileUnchanged()) return session;
  }
  return std::make_unique<Session>(DatabasePath(connection));
}

void SessionPool::GiveBack(std::string connection, std::unique_ptr<Session> session) noexcept {
  if (!session->Reusable()) return;
  std::unique_ptr<Session> dropped;  // closed after the lock is gone
  const std::scoped_lock guard(mutex_);
  if (idle_.size() == kMostIdle) {
    dropped = std::move(idle_.front().session);
    idle_.erase(idle_.begin());
  }
  idle_.push_back({std::move(connection), std::move(session)});
}

}  // namespace td
