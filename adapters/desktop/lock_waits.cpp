#include "desktop/lock_waits.h"

#include <array>
#include <cstdio>
#include <utility>

#include "platform/standard_failures.h"

namespace td {
namespace {

// "5", "0.25"
std::string SecondsText(double seconds) {
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%.10g", seconds);
  return text.data();
}

class PatientConnection final : public Connection {
 public:
  PatientConnection(std::unique_ptr<Connection> real, LockWaits& waits)
      : real_(std::move(real)), waits_(waits) {}

  void Execute(const std::string& sql) override {
    waits_.Watch([&] { real_->Execute(sql); });
  }

 private:
  std::unique_ptr<Connection> real_;
  LockWaits& waits_;
};

class PatientRecordset final : public Recordset {
 public:
  PatientRecordset(RecordsetRef real, LockWaits& waits, const PrintStop& stop)
      : real_(std::move(real)), waits_(waits), stop_(stop) {}

  bool Eof() override {
    return waits_.Watch([&] { return real_->Eof(); });
  }
  const Value& Field(std::string_view column) override {
    return *waits_.Watch([&] { return &real_->Field(column); });
  }
  const Value* Find(std::string_view column) override {
    return waits_.Watch([&] { return real_->Find(column); });
  }
  void MoveNext() override {
    stop_.Check();
    waits_.Watch([&] { real_->MoveNext(); });
  }
  void MoveFirst() override {
    waits_.Watch([&] { real_->MoveFirst(); });
  }
  void Close() override { real_->Close(); }
  RecordsetRef Clone() override { return PatientRows(real_->Clone(), waits_, stop_); }

 private:
  RecordsetRef real_;
  LockWaits& waits_;
  const PrintStop& stop_;
};

}  // namespace

void LockWaits::Put(LockPatience patience) {
  auto shared = std::make_shared<const LockPatience>(std::move(patience));
  const std::scoped_lock lock(mutex_);
  patience_ = std::move(shared);
}

void LockWaits::End() {
  const std::scoped_lock lock(mutex_);
  if (!begins_.empty()) begins_.erase(std::this_thread::get_id());
}

void LockWaits::GiveUp(const std::string& reason) {
  End();
  if (IsOfPrint()) stop_.Ask(reason);
  throw Failure(kDatabaseFailed, WithoutLockCharacter(reason));
}

void LockWaits::GoOnOrFail(const Failure& failure) {
  if (!IsLockConflict(failure)) {
    End();
    return;
  }
  if (IsOfPrint()) stop_.Check();
  std::unique_lock lock(mutex_);
  const auto now = Clock::now();
  const auto begin = begins_.try_emplace(std::this_thread::get_id(), now).first->second;
  const std::shared_ptr<const LockPatience> patience = patience_;
  lock.unlock();

  const double seconds = std::chrono::duration<double>(now - begin).count();
  if (patience->seconds && seconds >= *patience->seconds) {
    GiveUp("等了 " + SecondsText(*patience->seconds) + " 秒，要读写的数据仍被其他用户占用：" +
           failure.Description());
  }
  if (!patience->goOn) return;
  bool goesOn = false;
  try {
    goesOn = patience->goOn(seconds);
  } catch (const std::exception& error) {
    GiveUp(error.what());
  }
  if (!goesOn) GiveUp("已取消等待被其他用户占用的数据：" + failure.Description());
}

RecordsetRef PatientDatabase::OpenQuery(const std::string& connection, const std::string& sql,
                                        CursorType cursor, LockType lock) {
  return waits_.Watch([&] { return real_.OpenQuery(connection, sql, cursor, lock); });
}

std::unique_ptr<Connection> PatientDatabase::Connect(const std::string& connection) {
  auto real = waits_.Watch([&] { return real_.Connect(connection); });
  return std::make_unique<PatientConnection>(std::move(real), waits_);
}

RecordsetRef PatientRows(RecordsetRef rows, LockWaits& waits, const PrintStop& stop) {
  return std::make_shared<PatientRecordset>(std::move(rows), waits, stop);
}

}  // namespace td
