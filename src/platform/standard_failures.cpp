#include "platform/standard_failures.h"

#include <string>
#include <utility>

namespace td {

namespace {

constexpr std::string_view kLock = "锁";
constexpr std::string_view kTraditional = "鎖";
static_assert(kLock.size() == kTraditional.size());

}  // namespace

bool IsLockConflict(const Failure& failure) {
  return failure.Description().find(kLock) != std::string::npos;
}

std::string WithoutLockCharacter(std::string text) {
  for (auto at = text.find(kLock); at != std::string::npos; at = text.find(kLock, at)) {
    text.replace(at, kLock.size(), kTraditional);
  }
  return text;
}

Failure InvalidCallFailure() {
  return {kInvalidCall, "无效的过程调用或参数"};
}

Failure OverflowFailure() {
  return {kOverflow, "溢出"};
}

Failure DivisionByZeroFailure() {
  return {kDivisionByZero, "除数为零"};
}

Failure MismatchFailure() {
  return {kTypeMismatch, "类型不匹配"};
}

Failure NullFailure() {
  return {kInvalidUseOfNull, "无效使用 Null"};
}

Failure NoCurrentRowFailure() {
  return {kNoCurrentRow, "记录集中没有当前记录"};
}

Failure ClosedFailure() {
  return {kObjectClosed, "对象已关闭，不允许此操作"};
}

Failure WrongThreadFailure() {
  return {kWrongThread, "打印组件正被另一个线程使用，只能由首先使用它的线程调用。"};
}

Failure RequestRunsFailure() {
  return {kInvalidCall, "打印、预览或设置尚未结束，不能再次调用。"};
}

Failure NoSuchColumnFailure(std::string_view column) {
  std::string description = "记录集中找不到该名称的列";
  if (!column.empty()) description.append("：").append(column);
  return {kNoSuchColumn, WithoutLockCharacter(std::move(description))};
}

}  // namespace td
