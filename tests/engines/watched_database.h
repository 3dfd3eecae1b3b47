// A database whose requests a test looks at while a print runs.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "platform/database.h"
#include "platform/failure.h"

namespace td {

class WatchedDatabase final : public Database {
  template <typename Request>
  auto Watch(const std::string& sql, const Request& request) {
    before_(sql);
    try {
      return request();
    } catch (const Failure& failure) {
      failed_(failure);
      throw;
    }
  }

  class WatchedConnection final : public Connection {
   public:
    WatchedConnection(WatchedDatabase& watching, std::unique_ptr<Connection> real)
        : watching_(watching), real_(std::move(real)) {}
    void Execute(const std::string& sql) override {
      watching_.Watch(sql, [&] { real_->Execute(sql); });
    }

   private:
    WatchedDatabase& watching_;
    std::unique_ptr<Connection> real_;
  };

 public:
  using Before = std::function<void(const std::string& sql)>;
  using Failed = std::function<void(const Failure& failure)>;

  // Calls `before` in front of each request to `real`, and `failed` when one has failed, before its
  // failure goes on. `real` outlives the database and its connections.
  WatchedDatabase(Database& real, Before before, Failed failed)
      : real_(real), before_(std::move(before)), failed_(std::move(failed)) {}

  RecordsetRef OpenQuery(const std::string& connection, const std::string& sql, CursorType cursor,
                         LockType lock) override {
    return Watch(sql, [&] { return real_.OpenQuery(connection, sql, cursor, lock); });
  }

  std::unique_ptr<Connection> Connect(const std::string& connection) override {
    return Watch(
        "", [&] { return std::make_unique<WatchedConnection>(*this, real_.Connect(connection)); });
  }

 private:
  Database& real_;
  Before before_;
  Failed failed_;
};

}  // namespace td
