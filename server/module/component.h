// What all objects of the module share: who uses it, the thread that it belongs to, the platform.
#pragma once

#include <cstdint>
#include <memory>
#include <mutex>
#include <thread>

namespace td {

class DesktopPlatform;

// An object, a lock and a running call are uses. The thread that makes the first use owns the
// component until there is none left. Then the platform ends, with its database connections, and
// the record sets of the last print call are given back; the rest of the request state stays.
class Component {
 public:
  static Component& Get();

  // Adds a use for who isn't an object yet. Fails with TD_WRONG_THREAD when another thread owns the
  // component.
  void Claim();
  // Fails with TD_WRONG_THREAD on another thread than the owner.
  void CheckThread();

  // On any thread.
  void AddUse();
  void RemoveUse();
  // Whether there is no use. On the owner's thread this ends what a last use that another thread
  // gave back couldn't end.
  bool IsUnused();

  // Locks are uses that have no object. Fails with kInvalidCall on one more unlock than locks.
  void Lock();
  void Unlock();

  // The platform, made on first use. From then on the module stays in memory: Qt keeps texts of
  // this module in its caches, and can't be unloaded itself while its application lives.
  [[nodiscard]] DesktopPlatform& Desktop();

  // Ends the print that runs, on any thread.
  void CancelPrint();

  Component(const Component&) = delete;
  Component& operator=(const Component&) = delete;

 private:
  Component();
  ~Component() = delete;  // what is still used when the process ends stays as it is

  [[nodiscard]] bool IsForeignThread() const;
  void EndIfUnused(std::unique_lock<std::mutex> lock);

  std::mutex mutex_;  // of the next four
  std::thread::id owner_;
  std::uint32_t uses_ = 0;
  std::uint32_t locks_ = 0;
  std::unique_ptr<DesktopPlatform> desktop_;  // written by the owner's thread alone
};

// One use for the length of its life.
class Use {
 public:
  Use() { Component::Get().AddUse(); }
  ~Use() { Component::Get().RemoveUse(); }
  Use(const Use&) = delete;
  Use& operator=(const Use&) = delete;
};

}  // namespace td
