#include "recording/forwarding_database.h"

#include <utility>

namespace td::recording {
namespace {

class ForwardingConnection : public Connection {
 public:
  ForwardingConnection(Recorder& recorder, std::unique_ptr<Connection> real)
      : recorder_(recorder), real_(std::move(real)) {}

  void Execute(const std::string& sql) override {
    recorder_.Write("execute", {{"sql", sql}});
    recorder_.Request("execute", sql);
    real_->Execute(sql);
  }

 private:
  Recorder& recorder_;
  std::unique_ptr<Connection> real_;
};

}  // namespace

RecordsetRef ForwardingDatabase::OpenQuery(const std::string& /*connection*/,
                                           const std::string& sql, CursorType cursor,
                                           LockType lock) {
  recorder_.Write("query", {{"sql", sql}});
  recorder_.Request("query", sql);
  return real_.database.OpenQuery(real_.connection, sql, cursor, lock);
}

std::unique_ptr<Connection> ForwardingDatabase::Connect(const std::string& /*connection*/) {
  recorder_.Write("connect");
  recorder_.Request("connect");
  return std::make_unique<ForwardingConnection>(recorder_,
                                                real_.database.Connect(real_.connection));
}

}  // namespace td::recording
