// All database engines behind one interface.
#pragma once

#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "sql_support/transaction.h"

namespace td {

// Chooses the engine by the connection text. SQLite serves each text that no other engine does, so
// that its failure tells which texts are right.
class Databases : public TransactionalDatabase {
 public:
  Databases();
  ~Databases() override;

  RecordsetRef OpenQuery(const std::string& connection, const std::string& sql, CursorType cursor,
                         LockType lock) override;
  RecordsetRef OpenReadOnly(const std::string& connection, const std::string& sql) override;
  std::unique_ptr<Connection> Connect(const std::string& connection) override;
  std::unique_ptr<Transaction> Begin(const std::string& connection, Access access) override;

 private:
  struct Engine {
    bool (*serves)(const std::string& connection);
    std::unique_ptr<TransactionalDatabase> database;
  };

  [[nodiscard]] TransactionalDatabase& EngineFor(const std::string& connection);

  std::vector<Engine> engines_;  // the first that serves a text is taken; the last serves any
  // The text of the last call and its engine: a run asks with one text all the time.
  std::mutex mutex_;
  std::string lastConnection_;
  TransactionalDatabase* lastDatabase_ = nullptr;
};

}  // namespace td
