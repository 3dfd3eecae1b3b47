// Another user of the database who is in everybody's way.
#pragma once

#include <memory>
#include <string>

#include "platform/database.h"
#include "sample_engine.h"

namespace td {

// Keeps everybody else from reading a table of the sample, and from writing into it, until it is
// released or dies. The embedded engine locks nothing smaller than the whole database.
class TableLock {
 public:
  TableLock(Database& database, SampleEngine engine, const std::string& table);
  ~TableLock();
  TableLock(const TableLock&) = delete;
  TableLock& operator=(const TableLock&) = delete;

  void Release();

 private:
  SampleEngine engine_;
  std::unique_ptr<Connection> holder_;  // null: released
};

}  // namespace td
