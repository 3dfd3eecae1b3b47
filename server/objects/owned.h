// Holders that free a string, a variant or a reference at the end of their life.
#pragma once

#include <utility>

#include "client/client.h"

namespace td {

class OwnedVariant {
 public:
  OwnedVariant() = default;
  explicit OwnedVariant(const TdVariant& taken) : variant_(taken) {}
  ~OwnedVariant() { TdClearVariant(&variant_); }
  OwnedVariant(OwnedVariant&& other) noexcept
      : variant_(std::exchange(other.variant_, TdEmptyVariant())) {}
  OwnedVariant& operator=(OwnedVariant&&) = delete;

  [[nodiscard]] TdVariant& operator*() { return variant_; }
  [[nodiscard]] TdVariant* operator->() { return &variant_; }
  // Hands the content over.
  [[nodiscard]] TdVariant Take() { return std::exchange(variant_, TdEmptyVariant()); }

 private:
  TdVariant variant_ = TdEmptyVariant();
};

class OwnedString {
 public:
  explicit OwnedString(TdString taken) : string_(taken) {}
  ~OwnedString() { TdFreeString(string_); }
  OwnedString(const OwnedString&) = delete;
  OwnedString& operator=(const OwnedString&) = delete;

  [[nodiscard]] TdString Get() const { return string_; }

 private:
  TdString string_;
};

// A counted reference to an object through one of its interfaces; may be empty.
template <class Interface>
class Reference {
 public:
  Reference() = default;
  // Takes a reference over that is counted already.
  static Reference Taking(Interface* object) {
    Reference reference;
    reference.object_ = object;
    return reference;
  }
  // Counts a reference of its own.
  static Reference To(Interface* object) {
    if (object != nullptr) object->table->AddRef(object);
    return Taking(object);
  }
  ~Reference() {
    if (object_ != nullptr) object_->table->Release(object_);
  }
  Reference(Reference&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
  Reference& operator=(Reference&& other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }

  [[nodiscard]] Interface* Get() const { return object_; }
  // Hands the counted reference over.
  [[nodiscard]] Interface* Give() { return std::exchange(object_, nullptr); }
  // Forgets the object without a call to it.
  void Abandon() { object_ = nullptr; }

 private:
  Interface* object_ = nullptr;
};

// Another interface of an object; empty if it hasn't got that.
template <class Interface, class From>
[[nodiscard]] Reference<Interface> InterfaceOf(From* object, const TdGuid& id) {
  void* found = nullptr;
  if (object == nullptr || TD_FAILED(object->table->QueryInterface(object, &id, &found))) return {};
  return Reference<Interface>::Taking(static_cast<Interface*>(found));
}

}  // namespace td
