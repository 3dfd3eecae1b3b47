#include "module/component.h"

#include <array>
#include <cstddef>
#include <new>
#include <utility>

#include "desktop/desktop_platform.h"
#include "interface/binary_interface.h"
#include "module/module_file.h"
#include "platform/standard_failures.h"
#include "service/request.h"

namespace td {
namespace {

// Record sets that the program hasn't got back when the process ends are not released: their code
// may be gone by then.
class KeepDataAtTheEnd {
 public:
  KeepDataAtTheEnd() : kept_(new std::array<RecordsetRef, 2>) {}
  ~KeepDataAtTheEnd() {
    *kept_ = {std::move(Context().PrintData), std::move(Context().PrintDataClone)};
  }
  KeepDataAtTheEnd(const KeepDataAtTheEnd&) = delete;
  KeepDataAtTheEnd& operator=(const KeepDataAtTheEnd&) = delete;

 private:
  std::array<RecordsetRef, 2>* kept_;  // never deleted
};

}  // namespace

static_assert(kWrongThread == TD_WRONG_THREAD, "the module and the C++ classes refuse alike");

Component::Component() = default;

// In static memory and never destroyed: at the end of the process the objects that its program
// didn't give back are no longer to be called.
Component& Component::Get() {
  alignas(Component) static std::byte place[sizeof(Component)];
  static auto* const component = new (place) Component;
  return *component;
}

bool Component::IsForeignThread() const {
  return owner_ != std::thread::id() && owner_ != std::this_thread::get_id();
}

void Component::Claim() {
  const std::lock_guard lock(mutex_);
  if (IsForeignThread()) throw WrongThreadFailure();
  owner_ = std::this_thread::get_id();
  ++uses_;
}

void Component::CheckThread() {
  const std::lock_guard lock(mutex_);
  if (IsForeignThread()) throw WrongThreadFailure();
}

void Component::AddUse() {
  const std::lock_guard lock(mutex_);
  ++uses_;
}

void Component::RemoveUse() {
  std::unique_lock lock(mutex_);
  --uses_;
  EndIfUnused(std::move(lock));
}

bool Component::IsUnused() {
  EndIfUnused(std::unique_lock(mutex_));
  const std::lock_guard lock(mutex_);
  return uses_ == 0 && owner_ == std::thread::id();
}

void Component::Lock() {
  const std::lock_guard lock(mutex_);
  ++locks_;
  ++uses_;
}

void Component::Unlock() {
  std::unique_lock lock(mutex_);
  if (locks_ == 0) throw Failure(kInvalidCall, "组件没有可解除的占用。");
  --locks_;
  --uses_;
  EndIfUnused(std::move(lock));
}

void Component::EndIfUnused(std::unique_lock<std::mutex> lock) {
  if (uses_ > 0) return;
  if (desktop_) {
    if (IsForeignThread()) return;
    std::unique_ptr<DesktopPlatform> desktop = std::move(desktop_);
    // Giving the record sets back calls the program, which may call the module.
    lock.unlock();
    Context().PrintDataClone.reset();
    Context().PrintData.reset();
    desktop.reset();
    lock.lock();
  }
  if (uses_ == 0) owner_ = std::thread::id();
}

DesktopPlatform& Component::Desktop() {
  if (!desktop_) {
    KeepModuleInMemory();
    (void)Context();
    static const KeepDataAtTheEnd keepData;  // destroyed before the request state
    auto desktop = std::make_unique<DesktopPlatform>();
    const std::lock_guard lock(mutex_);
    desktop_ = std::move(desktop);
  }
  return *desktop_;
}

void Component::CancelPrint() {
  const std::lock_guard lock(mutex_);
  if (desktop_) desktop_->CancelPrint();
}

}  // namespace td
