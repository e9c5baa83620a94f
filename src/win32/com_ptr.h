// A counted reference to one of the system's objects, given back when it is destroyed.
#pragma once

#include <windows.h>

#include <unknwn.h>

#include <utility>

namespace ordelan::win32 {

template <class Interface>
class ComPtr {
 public:
  ComPtr() = default;
  // Takes over a reference that the caller holds.
  explicit ComPtr(Interface* owned) : object_(owned) {}
  ComPtr(const ComPtr& other) : object_(other.object_) {
    if (object_) object_->AddRef();
  }
  ComPtr(ComPtr&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
  ComPtr& operator=(ComPtr other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }
  ~ComPtr() {
    if (object_) object_->Release();
  }

  // A reference of one's own to an object that somebody else holds.
  static ComPtr shared(Interface* object) {
    if (object) object->AddRef();
    return ComPtr(object);
  }

  Interface* get() const { return object_; }
  Interface* operator->() const { return object_; }
  explicit operator bool() const { return object_ != nullptr; }

  // For calls that give a reference: what was held is given back first.
  Interface** out() {
    *this = ComPtr();
    return &object_;
  }
  void** out_void() { return reinterpret_cast<void**>(out()); }

  // Another interface of the same object; null where it has none.
  template <class Other>
  ComPtr<Other> as(const IID& id) const {
    ComPtr<Other> other;
    if (object_) object_->QueryInterface(id, other.out_void());
    return other;
  }

 private:
  Interface* object_ = nullptr;
};

}  // namespace ordelan::win32
