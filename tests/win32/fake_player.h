// A player control as the program calls it: by names, and as an object that is shown in a window.
#pragma once

#include <windows.h>

#include <ole2.h>
#include <oleauto.h>

#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "win32/com_ptr.h"

namespace ordelan::test {

// An object with properties and methods; a test reads and writes them, and sees what was called.
class FakeObject : public IDispatch {
 public:
  FakeObject() = default;
  FakeObject(const FakeObject&) = delete;
  FakeObject& operator=(const FakeObject&) = delete;
  virtual ~FakeObject() = default;

  std::map<std::wstring, std::wstring> texts;
  std::map<std::wstring, double> numbers;
  std::map<std::wstring, FakeObject*> objects;
  std::set<std::wstring> methods;
  std::set<std::wstring> not_implemented;  // they have a name and answer nothing
  std::map<std::wstring, HRESULT> failures;
  std::vector<std::wstring> called;                  // methods, and what was written as "URL=..."
  std::function<void(const std::wstring&)> on_call;  // each method, by its name
  ULONG references = 1;  // a test owns its objects; they do not delete themselves

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    *object = IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IDispatch) ? this : nullptr;
    if (*object) AddRef();
    return *object ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
  ULONG STDMETHODCALLTYPE Release() override { return --references; }
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    *count = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* name, UINT, LCID, DISPID* id) override {
    const std::wstring wanted = *name;
    const bool there = texts.count(wanted) + numbers.count(wanted) + objects.count(wanted) +
                           methods.count(wanted) + not_implemented.count(wanted) >
                       0;
    if (!there) return DISP_E_UNKNOWNNAME;
    names_.push_back(wanted);
    *id = static_cast<DISPID>(names_.size());
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD kind, DISPPARAMS* parameters,
                                   VARIANT* result, EXCEPINFO* why, UINT*) override {
    const std::wstring name = names_.at(static_cast<std::size_t>(id) - 1);
    if (not_implemented.count(name) > 0) return E_NOTIMPL;
    if (failures.count(name) > 0) {
      why->scode = failures[name];
      return DISP_E_EXCEPTION;
    }
    if (kind == DISPATCH_METHOD) {
      if (methods.count(name) == 0) return DISP_E_MEMBERNOTFOUND;
      called.push_back(name);
      if (on_call) on_call(name);
      return S_OK;
    }
    return kind == DISPATCH_PROPERTYPUT ? put(name, parameters) : give(name, result);
  }

 private:
  HRESULT put(const std::wstring& name, DISPPARAMS* parameters) {
    if (parameters->cArgs != 1 || parameters->cNamedArgs != 1 ||
        parameters->rgdispidNamedArgs[0] != DISPID_PROPERTYPUT) {
      return DISP_E_BADPARAMCOUNT;
    }
    VARIANT& value = parameters->rgvarg[0];
    if (value.vt == VT_BSTR) {
      texts[name] = value.bstrVal ? value.bstrVal : L"";
      called.push_back(name + L"=" + texts[name]);
    } else if (value.vt == VT_BOOL) {
      numbers[name] = value.boolVal == VARIANT_TRUE ? 1 : 0;
    } else {
      numbers[name] = value.vt == VT_I4 ? value.lVal : value.dblVal;
    }
    return S_OK;
  }
  HRESULT give(const std::wstring& name, VARIANT* result) {
    if (texts.count(name) > 0) {
      result->vt = VT_BSTR;
      result->bstrVal = SysAllocString(texts[name].c_str());
    } else if (numbers.count(name) > 0) {
      result->vt = VT_R8;
      result->dblVal = numbers[name];
    } else if (objects.count(name) > 0) {
      result->vt = VT_DISPATCH;
      result->pdispVal = objects[name];
      if (objects[name]) objects[name]->AddRef();
    } else {
      return DISP_E_MEMBERNOTFOUND;
    }
    return S_OK;
  }

  std::vector<std::wstring> names_;
};

// A complete player without a file, which plays nothing by itself.
class FakePlayer final : public FakeObject, public IOleObject {
 public:
  FakePlayer() {
    texts = {{L"URL", L""}, {L"status", L"Listo"}, {L"uiMode", L"full"}};
    numbers = {{L"playState", 10}, {L"enableContextMenu", 1}};
    methods = {L"close"};
    objects = {{L"controls", &controls}, {L"settings", &settings}, {L"currentMedia", nullptr}};
    controls.methods = {L"play", L"pause", L"stop"};
    controls.numbers = {{L"currentPosition", 0}};
    settings.numbers = {{L"volume", 100},  {L"balance", 0}, {L"autoStart", 0},
                        {L"playCount", 7}, {L"rate", 2},    {L"enableErrorDialogs", 1}};
    media.texts = {{L"name", L"Canci\xF3n"}, {L"durationString", L"00:03"}, {L"sourceURL", L""}};
    media.numbers = {{L"duration", 3}};
  }

  // As the real one when it has taken up a file.
  void take_up(double state, const wchar_t* status) {
    objects[L"currentMedia"] = &media;
    media.texts[L"sourceURL"] = texts[L"URL"];
    numbers[L"playState"] = state;
    texts[L"status"] = status;
  }

  FakeObject controls;
  FakeObject settings;
  FakeObject media;
  win32::ComPtr<IOleClientSite> site;
  HWND window = nullptr;  // the one that it is shown in
  RECT place{};
  int closed = 0;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    if (!IsEqualIID(id, IID_IOleObject)) return FakeObject::QueryInterface(id, object);
    *object = static_cast<IOleObject*>(this);
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return FakeObject::AddRef(); }
  ULONG STDMETHODCALLTYPE Release() override { return FakeObject::Release(); }

  HRESULT STDMETHODCALLTYPE SetClientSite(IOleClientSite* given) override {
    site = win32::ComPtr<IOleClientSite>::shared(given);
    return S_OK;
  }
  // Asks the site for its window, as a control does.
  HRESULT STDMETHODCALLTYPE DoVerb(LONG, LPMSG, IOleClientSite* given, LONG, HWND,
                                   LPCRECT) override {
    win32::ComPtr<IOleInPlaceSite> in_place;
    given->QueryInterface(IID_IOleInPlaceSite, in_place.out_void());
    if (!in_place || in_place->CanInPlaceActivate() != S_OK) return E_FAIL;
    win32::ComPtr<IOleInPlaceFrame> frame;
    win32::ComPtr<IOleInPlaceUIWindow> document;
    OLEINPLACEFRAMEINFO info{};
    info.cb = sizeof info;
    RECT clip{};
    in_place->GetWindowContext(frame.out(), document.out(), &place, &clip, &info);
    return in_place->GetWindow(&window);
  }
  HRESULT STDMETHODCALLTYPE Close(DWORD) override {
    ++closed;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetClientSite(IOleClientSite**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE SetHostNames(LPCOLESTR, LPCOLESTR) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE SetMoniker(DWORD, IMoniker*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetMoniker(DWORD, DWORD, IMoniker**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE InitFromData(IDataObject*, BOOL, DWORD) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetClipboardData(DWORD, IDataObject**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE EnumVerbs(IEnumOLEVERB**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Update() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE IsUpToDate() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE GetUserClassID(CLSID*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetUserType(DWORD, LPOLESTR*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE SetExtent(DWORD, SIZEL*) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE GetExtent(DWORD, SIZEL*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Advise(IAdviseSink*, DWORD*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Unadvise(DWORD) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE EnumAdvise(IEnumSTATDATA**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetMiscStatus(DWORD, DWORD*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE SetColorScheme(LOGPALETTE*) override { return E_NOTIMPL; }
};

// Gives the program that player, as often as it asks.
inline std::function<win32::ComPtr<IDispatch>()> maker_of(FakePlayer& player) {
  return [&player] { return win32::ComPtr<IDispatch>::shared(static_cast<FakeObject*>(&player)); };
}

}  // namespace ordelan::test
