#include "table_lock.h"

namespace td {

TableLock::TableLock(Database& database, SampleEngine engine, const std::string& table)
    : engine_(engine), holder_(database.Connect(SampleOn(engine))) {
  switch (engine) {
    case SampleEngine::kSqlite:
      holder_->Execute("begin exclusive");
      break;
    case SampleEngine::kPostgreSql:
      holder_->Execute("begin");
      holder_->Execute("lock table " + table + " in access exclusive mode");
      break;
    case SampleEngine::kMariaDb:
      holder_->Execute("lock tables " + table + " write");
      break;
  }
}

TableLock::~TableLock() {
  Release();
}

void TableLock::Release() {
  if (holder_ == nullptr) return;
  holder_->Execute(engine_ == SampleEngine::kMariaDb ? "unlock tables" : "commit");
  holder_.reset();
}

}  // namespace td
