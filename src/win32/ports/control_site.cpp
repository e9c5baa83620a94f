#include "win32/ports/control_site.h"

#include <atomic>

namespace ordelan::win32 {

// What a control asks of the window that it is shown in: the site, and the frame around it, which
// is the same window and has neither menus nor tools.
class ControlSite::Site final : public IOleClientSite,
                                public IOleInPlaceSite,
                                public IOleInPlaceFrame {
 public:
  explicit Site(HWND window) : window_(window) {}

  // The control may keep the site longer than the window is there.
  void window_goes() { window_ = nullptr; }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    if (IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IOleClientSite)) {
      *object = static_cast<IOleClientSite*>(this);
    } else if (IsEqualIID(id, IID_IOleInPlaceSite)) {
      *object = static_cast<IOleInPlaceSite*>(this);
    } else if (IsEqualIID(id, IID_IOleInPlaceFrame) || IsEqualIID(id, IID_IOleInPlaceUIWindow) ||
               IsEqualIID(id, IID_IOleWindow)) {
      *object = static_cast<IOleInPlaceFrame*>(this);
    } else {
      *object = nullptr;
      return E_NOINTERFACE;
    }
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }

  // The site.
  HRESULT STDMETHODCALLTYPE SaveObject() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE GetMoniker(DWORD, DWORD, IMoniker** moniker) override {
    *moniker = nullptr;
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE GetContainer(IOleContainer** container) override {
    *container = nullptr;
    return E_NOINTERFACE;
  }
  HRESULT STDMETHODCALLTYPE ShowObject() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnShowWindow(BOOL) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE RequestNewObjectLayout() override { return E_NOTIMPL; }

  // Of the site and of the frame.
  HRESULT STDMETHODCALLTYPE GetWindow(HWND* window) override {
    *window = window_;
    return window_ ? S_OK : E_FAIL;
  }
  HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL) override { return S_OK; }

  // The place in the window.
  HRESULT STDMETHODCALLTYPE CanInPlaceActivate() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnInPlaceActivate() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnUIActivate() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE GetWindowContext(IOleInPlaceFrame** frame,
                                             IOleInPlaceUIWindow** document, LPRECT place,
                                             LPRECT clip, LPOLEINPLACEFRAMEINFO info) override {
    *frame = this;
    AddRef();
    *document = nullptr;
    *place = {};
    if (window_) GetClientRect(window_, place);
    *clip = *place;
    info->fMDIApp = FALSE;
    info->hwndFrame = window_;
    info->haccel = nullptr;
    info->cAccelEntries = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE Scroll(SIZE) override { return S_FALSE; }
  HRESULT STDMETHODCALLTYPE OnUIDeactivate(BOOL) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnInPlaceDeactivate() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE DiscardUndoState() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE DeactivateAndUndo() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnPosRectChange(LPCRECT) override { return S_OK; }

  // The frame.
  HRESULT STDMETHODCALLTYPE GetBorder(LPRECT) override { return INPLACE_E_NOTOOLSPACE; }
  HRESULT STDMETHODCALLTYPE RequestBorderSpace(LPCBORDERWIDTHS) override {
    return INPLACE_E_NOTOOLSPACE;
  }
  HRESULT STDMETHODCALLTYPE SetBorderSpace(LPCBORDERWIDTHS) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE SetActiveObject(IOleInPlaceActiveObject*, LPCOLESTR) override {
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE InsertMenus(HMENU, LPOLEMENUGROUPWIDTHS) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE SetMenu(HMENU, HOLEMENU, HWND) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE RemoveMenus(HMENU) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE SetStatusText(LPCOLESTR) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE EnableModeless(BOOL) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE TranslateAccelerator(LPMSG, WORD) override { return S_FALSE; }

 private:
  ~Site() = default;

  std::atomic<ULONG> references_ = 1;
  HWND window_;
};

ControlSite::ControlSite(ComPtr<IOleObject> control, HWND window)
    : control_(std::move(control)), window_(window), site_(new Site(window)) {
  control_->SetClientSite(site_.get());
  const RECT place = area();
  shown_ = SUCCEEDED(
      control_->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, site_.get(), 0, window_, &place));
  fit();
}

ControlSite::~ControlSite() {
  if (const auto placed = control_.as<IOleInPlaceObject>(IID_IOleInPlaceObject)) {
    placed->InPlaceDeactivate();
  }
  control_->SetClientSite(nullptr);
  site_->window_goes();
}

void ControlSite::fit() {
  const RECT place = area();
  if (const auto placed = control_.as<IOleInPlaceObject>(IID_IOleInPlaceObject)) {
    placed->SetObjectRects(&place, &place);
  }
}

RECT ControlSite::area() const {
  RECT place{};
  GetClientRect(window_, &place);
  return place;
}

}  // namespace ordelan::win32
