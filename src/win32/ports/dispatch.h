// Objects of the system that are called by the names of what they do.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <optional>
#include <string>
#include <string_view>

#include "win32/com_ptr.h"

namespace ordelan::win32 {

// A value that is handed to such an object or comes from it.
class Variant {
 public:
  Variant() { VariantInit(&value_); }
  explicit Variant(long number);
  explicit Variant(double number);
  explicit Variant(bool yes);
  explicit Variant(std::wstring_view text);
  ~Variant() { VariantClear(&value_); }
  Variant(const Variant&) = delete;
  Variant& operator=(const Variant&) = delete;

  VARIANT* get() { return &value_; }
  // What it holds, converted where it is of another kind; nothing where that has no sense.
  std::optional<long> number() const;
  std::optional<double> fraction() const;
  std::optional<std::wstring> text() const;
  // Null where it holds no object.
  ComPtr<IDispatch> object() const;

 private:
  mutable VARIANT value_{};  // some headers have conversions take what they only read as changeable
};

// One such object, or none: then every call fails with E_POINTER. To be used on the thread that the
// object is of. No call throws; each gives what the system says.
class Dispatch {
 public:
  Dispatch() = default;
  explicit Dispatch(ComPtr<IDispatch> object) : object_(std::move(object)) {}
  explicit operator bool() const { return static_cast<bool>(object_); }
  IDispatch* get() const { return object_.get(); }

  HRESULT read(const wchar_t* name, Variant& value) const;
  HRESULT write(const wchar_t* name, Variant& value) const;
  HRESULT call(const wchar_t* name) const;

  // What a property holds; the given value, or nothing, where it cannot be read.
  long number(const wchar_t* name, long otherwise) const;
  double fraction(const wchar_t* name, double otherwise) const;
  std::wstring text(const wchar_t* name) const;
  Dispatch object(const wchar_t* name) const;

  template <class Value>
  HRESULT set(const wchar_t* name, Value value) const {
    Variant variant(value);
    return write(name, variant);
  }

 private:
  HRESULT invoke(const wchar_t* name, WORD kind, DISPPARAMS& parameters, VARIANT* result) const;

  ComPtr<IDispatch> object_;
};

// Whether a failure says that the object has no such thing, and not that it cannot do it now.
bool is_not_there(HRESULT result);

}  // namespace ordelan::win32
