#include "win32/ports/sound_devices.h"

#include <oleauto.h>

#include <functional>
#include <optional>

#include "win32/ansi_text.h"

namespace ordelan::win32 {
namespace {

class PropertyValue {
 public:
  PropertyValue() { VariantInit(&value_); }
  ~PropertyValue() { VariantClear(&value_); }
  PropertyValue(const PropertyValue&) = delete;
  PropertyValue& operator=(const PropertyValue&) = delete;

  VARIANT* out() { return &value_; }
  // The text that it holds; null for anything else.
  const wchar_t* text() const { return value_.vt == VT_BSTR ? value_.bstrVal : nullptr; }

 private:
  VARIANT value_;
};

std::optional<std::string> property(IMoniker& device, const wchar_t* name) {
  ComPtr<IPropertyBag> bag;
  PropertyValue value;
  if (FAILED(device.BindToStorage(nullptr, nullptr, IID_IPropertyBag, bag.out_void())) ||
      FAILED(bag->Read(name, value.out(), nullptr)) || value.text() == nullptr) {
    return std::nullopt;
  }
  return narrow(value.text());
}

std::optional<std::string> id_of(IMoniker& device) {
  wchar_t* name = nullptr;
  if (FAILED(device.GetDisplayName(nullptr, nullptr, &name))) return std::nullopt;
  auto id = narrow(name);
  CoTaskMemFree(name);
  return id;
}

// Calls `visit` with each device and its id, until that gives false.
void each_device(const std::function<bool(IMoniker& device, const std::string& id)>& visit) {
  ComPtr<ICreateDevEnum> all;
  ComPtr<IEnumMoniker> renderers;
  // Where there is none at all the second call succeeds and gives nothing.
  if (FAILED(CoCreateInstance(CLSID_SystemDeviceEnum, nullptr, CLSCTX_INPROC_SERVER,
                              IID_ICreateDevEnum, all.out_void())) ||
      FAILED(all->CreateClassEnumerator(CLSID_AudioRendererCategory, renderers.out(), 0)) ||
      !renderers) {
    return;
  }
  ComPtr<IMoniker> device;
  while (renderers->Next(1, device.out(), nullptr) == S_OK) {
    // Each device stands there twice, the second time for the older interface of the system. The
    // default one is of no use here: it is what plays without a choice.
    const auto guid = property(*device.get(), L"DSGuid");
    if (!guid || *guid == "{00000000-0000-0000-0000-000000000000}") continue;
    const auto id = id_of(*device.get());
    if (id && !visit(*device.get(), *id)) return;
  }
}

// Wine's renderer plays on the default device whatever it was made for.
bool renderer_takes_a_device() {
  ComPtr<IPersistPropertyBag> bag;
  return SUCCEEDED(CoCreateInstance(CLSID_DSoundRender, nullptr, CLSCTX_INPROC_SERVER,
                                    IID_IPersistPropertyBag, bag.out_void()));
}

}  // namespace

std::vector<system::SoundDevice> sound_devices() {
  std::vector<system::SoundDevice> devices;
  if (!renderer_takes_a_device()) return devices;
  each_device([&](IMoniker& device, const std::string& id) {
    constexpr std::string_view kKind = "DirectSound: ";
    auto name = property(device, L"FriendlyName");
    if (!name) return true;
    if (name->starts_with(kKind)) name->erase(0, kKind.size());
    devices.push_back({id, *std::move(name)});
    return true;
  });
  return devices;
}

ComPtr<IBaseFilter> renderer_on(const std::string& id) {
  ComPtr<IBaseFilter> filter;
  each_device([&](IMoniker& device, const std::string& each) {
    if (each != id) return true;
    device.BindToObject(nullptr, nullptr, IID_IBaseFilter, filter.out_void());
    return false;
  });
  return filter;
}

}  // namespace ordelan::win32
