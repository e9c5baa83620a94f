#include "win32/ports/dispatch.h"

namespace ordelan::win32 {

Variant::Variant(long number) : Variant() {
  value_.vt = VT_I4;
  value_.lVal = number;
}

Variant::Variant(double number) : Variant() {
  value_.vt = VT_R8;
  value_.dblVal = number;
}

Variant::Variant(bool yes) : Variant() {
  value_.vt = VT_BOOL;
  value_.boolVal = yes ? VARIANT_TRUE : VARIANT_FALSE;
}

Variant::Variant(std::wstring_view text) : Variant() {
  value_.vt = VT_BSTR;
  value_.bstrVal = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
}

std::optional<long> Variant::number() const {
  Variant converted;
  if (FAILED(VariantChangeType(converted.get(), &value_, 0, VT_I4))) return std::nullopt;
  return converted.value_.lVal;
}

std::optional<double> Variant::fraction() const {
  Variant converted;
  if (FAILED(VariantChangeType(converted.get(), &value_, 0, VT_R8))) return std::nullopt;
  return converted.value_.dblVal;
}

std::optional<std::wstring> Variant::text() const {
  if (value_.vt != VT_BSTR) return std::nullopt;
  return std::wstring(value_.bstrVal ? value_.bstrVal : L"", SysStringLen(value_.bstrVal));
}

ComPtr<IDispatch> Variant::object() const {
  return ComPtr<IDispatch>::shared(value_.vt == VT_DISPATCH ? value_.pdispVal : nullptr);
}

HRESULT Dispatch::read(const wchar_t* name, Variant& value) const {
  DISPPARAMS none{};
  return invoke(name, DISPATCH_PROPERTYGET, none, value.get());
}

HRESULT Dispatch::write(const wchar_t* name, Variant& value) const {
  DISPID what = DISPID_PROPERTYPUT;
  DISPPARAMS parameters{value.get(), &what, 1, 1};
  return invoke(name, DISPATCH_PROPERTYPUT, parameters, nullptr);
}

HRESULT Dispatch::call(const wchar_t* name) const {
  DISPPARAMS none{};
  return invoke(name, DISPATCH_METHOD, none, nullptr);
}

long Dispatch::number(const wchar_t* name, long otherwise) const {
  Variant value;
  return SUCCEEDED(read(name, value)) ? value.number().value_or(otherwise) : otherwise;
}

double Dispatch::fraction(const wchar_t* name, double otherwise) const {
  Variant value;
  return SUCCEEDED(read(name, value)) ? value.fraction().value_or(otherwise) : otherwise;
}

std::wstring Dispatch::text(const wchar_t* name) const {
  Variant value;
  return SUCCEEDED(read(name, value)) ? value.text().value_or(L"") : L"";
}

Dispatch Dispatch::object(const wchar_t* name) const {
  Variant value;
  return SUCCEEDED(read(name, value)) ? Dispatch(value.object()) : Dispatch();
}

HRESULT Dispatch::invoke(const wchar_t* name, WORD kind, DISPPARAMS& parameters,
                         VARIANT* result) const {
  if (!object_) return E_POINTER;
  std::wstring changeable = name;
  LPOLESTR names = changeable.data();
  DISPID id = 0;
  const HRESULT found = object_->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id);
  if (FAILED(found)) return found;
  EXCEPINFO why{};
  const HRESULT done =
      object_->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, kind, &parameters, result, &why, nullptr);
  if (done != DISP_E_EXCEPTION) return done;
  if (why.pfnDeferredFillIn) why.pfnDeferredFillIn(&why);
  SysFreeString(why.bstrSource);
  SysFreeString(why.bstrDescription);
  SysFreeString(why.bstrHelpFile);
  return FAILED(why.scode) ? why.scode : E_FAIL;
}

bool is_not_there(HRESULT result) {
  return result == E_NOTIMPL || result == E_POINTER || result == E_NOINTERFACE ||
         result == DISP_E_UNKNOWNNAME || result == DISP_E_MEMBERNOTFOUND;
}

}  // namespace ordelan::win32
