#include "win32/peers/accessible.h"

#include <exception>
#include <new>
#include <utility>

#include "win32/com_ptr.h"
#include "win32/peers/control_peer.h"
#include "win32/peers/window_peer.h"

namespace ordelan::win32 {
namespace {

HRESULT give(BSTR* to, const std::wstring& text) {
  *to = nullptr;
  if (text.empty()) return S_FALSE;
  *to = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
  return *to ? S_OK : E_OUTOFMEMORY;
}

HRESULT give(VARIANT* to, LONG number) {
  to->vt = VT_I4;
  to->lVal = number;
  return S_OK;
}

HRESULT give_none(VARIANT* to) {
  to->vt = VT_EMPTY;
  return S_FALSE;
}

}  // namespace

UINT action_message() {
  static const UINT message = RegisterWindowMessageW(L"Ordelan.Action");
  return message;
}

HWND Accessible::handle() const {
  return peer_->handle();
}

template <class Body>
HRESULT Accessible::answer(const Body& body) noexcept {
  try {
    // A client sees the program's state, as the user is about to.
    if (peer_) peer_->settle();
    return peer_ ? body() : CO_E_OBJNOTCONNECTED;
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
  } catch (const std::exception&) {
    return E_FAIL;
  }
}

template <class Body>
HRESULT Accessible::answer(const VARIANT& part, const Body& body) noexcept {
  return answer([&] {
    if (part.vt != VT_I4 || part.lVal < 0 || part.lVal > count()) return E_INVALIDARG;
    return body(part.lVal);
  });
}

LONG Accessible::state_of_window() const {
  const auto style = GetWindowLongPtrW(handle(), GWL_STYLE);
  LONG state = 0;
  if (!IsWindowVisible(handle())) state |= STATE_SYSTEM_INVISIBLE;
  if (!IsWindowEnabled(handle())) return state | STATE_SYSTEM_UNAVAILABLE;
  if ((style & WS_TABSTOP) != 0) state |= STATE_SYSTEM_FOCUSABLE;
  if (GetFocus() == handle()) state |= STATE_SYSTEM_FOCUSED;
  return state;
}

RECT Accessible::place(LONG) const {
  RECT area{};
  GetWindowRect(handle(), &area);
  return area;
}

// Whether the mouse could reach it: not while a dialog keeps its window from it, say.
bool Accessible::within_reach() const {
  return IsWindowVisible(handle()) && IsWindowEnabled(handle()) &&
         IsWindowEnabled(GetAncestor(handle(), GA_ROOT));
}

// Rows may have moved since a client asked: an action must not meet another row than it was meant
// for.
bool Accessible::can_act(const Action& action) const {
  return peer_ && within_reach() && action.part <= count() && mark_of(action.part) == action.mark &&
         !this->action(action.part).empty();
}

void Accessible::act() {
  if (!peer_ || actions_.empty()) return;
  const auto self = ComPtr<Accessible>::shared(this);
  const Action action = std::move(actions_.front());
  actions_.pop_front();
  peer_->settle();
  if (!can_act(action)) return;
  peer_->parent().preview_press();
  if (can_act(action)) peer_->act(static_cast<int>(action.part) - 1);
}

HRESULT Accessible::QueryInterface(REFIID id, void** object) {
  if (!object) return E_POINTER;
  const bool own = IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IDispatch) ||
                   IsEqualIID(id, kAccessibleId);
  *object = own ? this : nullptr;
  if (own) AddRef();
  return own ? S_OK : E_NOINTERFACE;
}

ULONG Accessible::AddRef() {
  return ++references_;
}

ULONG Accessible::Release() {
  const ULONG left = --references_;
  if (left == 0) delete this;
  return left;
}

// The interface is called by its functions, never by names: clients that cannot do that have the
// system's translation.
HRESULT Accessible::GetTypeInfoCount(UINT* count) {
  if (!count) return E_POINTER;
  *count = 0;
  return S_OK;
}
HRESULT Accessible::GetTypeInfo(UINT, LCID, ITypeInfo**) {
  return E_NOTIMPL;
}
HRESULT Accessible::GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) {
  return E_NOTIMPL;
}
HRESULT Accessible::Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) {
  return E_NOTIMPL;
}

// The window that the control stands in, and what stands beside it, are the system's to answer.
HRESULT Accessible::get_accParent(IDispatch** parent) {
  if (!parent) return E_POINTER;
  *parent = nullptr;
  return answer([&] {
    return AccessibleObjectFromWindow(handle(), static_cast<DWORD>(OBJID_WINDOW), IID_IDispatch,
                                      reinterpret_cast<void**>(parent));
  });
}

HRESULT Accessible::get_accChildCount(LONG* children) {
  if (!children) return E_POINTER;
  *children = 0;
  return answer([&] {
    *children = count();
    return S_OK;
  });
}

HRESULT Accessible::get_accChild(VARIANT part, IDispatch** object) {
  if (!object) return E_POINTER;
  *object = nullptr;
  return answer(part, [&](LONG which) {
    if (which != CHILDID_SELF) return S_FALSE;
    AddRef();
    *object = this;
    return S_OK;
  });
}

HRESULT Accessible::get_accName(VARIANT part, BSTR* text) {
  if (!text) return E_POINTER;
  *text = nullptr;
  return answer(part, [&](LONG which) { return give(text, name(which)); });
}

HRESULT Accessible::get_accValue(VARIANT part, BSTR* text) {
  if (!text) return E_POINTER;
  *text = nullptr;
  return answer(part, [&](LONG which) {
    const HRESULT given = give(text, value(which));
    return given == S_FALSE ? DISP_E_MEMBERNOTFOUND : given;
  });
}

HRESULT Accessible::get_accDescription(VARIANT part, BSTR* text) {
  if (!text) return E_POINTER;
  *text = nullptr;
  return answer(part, [&](LONG which) { return give(text, description(which)); });
}

HRESULT Accessible::get_accHelp(VARIANT part, BSTR* text) {
  if (!text) return E_POINTER;
  *text = nullptr;
  return answer(part, [&](LONG which) { return give(text, help(which)); });
}

HRESULT Accessible::get_accHelpTopic(BSTR* file, VARIANT, LONG* topic) {
  if (!file || !topic) return E_POINTER;
  *file = nullptr;
  *topic = 0;
  return DISP_E_MEMBERNOTFOUND;
}

HRESULT Accessible::get_accKeyboardShortcut(VARIANT, BSTR* shortcut) {
  if (!shortcut) return E_POINTER;
  *shortcut = nullptr;
  return DISP_E_MEMBERNOTFOUND;
}

HRESULT Accessible::get_accRole(VARIANT part, VARIANT* to) {
  if (!to) return E_POINTER;
  to->vt = VT_EMPTY;
  return answer(part, [&](LONG which) { return give(to, role(which)); });
}

HRESULT Accessible::get_accState(VARIANT part, VARIANT* to) {
  if (!to) return E_POINTER;
  to->vt = VT_EMPTY;
  return answer(part, [&](LONG which) { return give(to, state(which)); });
}

HRESULT Accessible::get_accFocus(VARIANT* to) {
  if (!to) return E_POINTER;
  to->vt = VT_EMPTY;
  return answer([&] { return GetFocus() == handle() ? give(to, chosen()) : give_none(to); });
}

HRESULT Accessible::get_accSelection(VARIANT* to) {
  if (!to) return E_POINTER;
  to->vt = VT_EMPTY;
  return answer([&] {
    const LONG part = chosen();
    return part > 0 ? give(to, part) : give_none(to);
  });
}

HRESULT Accessible::get_accDefaultAction(VARIANT part, BSTR* text) {
  if (!text) return E_POINTER;
  *text = nullptr;
  return answer(part, [&](LONG which) {
    const HRESULT given = give(text, action(which));
    return given == S_FALSE ? DISP_E_MEMBERNOTFOUND : given;
  });
}

HRESULT Accessible::accSelect(LONG flags, VARIANT part) {
  return answer(part, [&](LONG which) {
    constexpr LONG kPossible = SELFLAG_TAKEFOCUS | SELFLAG_TAKESELECTION;
    if (flags == 0 || (flags & ~kPossible) != 0) return E_INVALIDARG;
    if (!within_reach()) return E_FAIL;
    if (which == CHILDID_SELF ? (flags & SELFLAG_TAKESELECTION) != 0 : !choose(which)) {
      return DISP_E_MEMBERNOTFOUND;
    }
    if (peer_ && (flags & SELFLAG_TAKEFOCUS) != 0) SetFocus(handle());
    return S_OK;
  });
}

HRESULT Accessible::accLocation(LONG* left, LONG* top, LONG* width, LONG* height, VARIANT part) {
  if (!left || !top || !width || !height) return E_POINTER;
  *left = *top = *width = *height = 0;
  return answer(part, [&](LONG which) {
    const RECT area = place(which);
    *left = area.left;
    *top = area.top;
    *width = area.right - area.left;
    *height = area.bottom - area.top;
    return S_OK;
  });
}

HRESULT Accessible::accNavigate(LONG direction, VARIANT part, VARIANT* end) {
  if (!end) return E_POINTER;
  end->vt = VT_EMPTY;
  return answer(part, [&](LONG which) { return navigate(direction, which, end); });
}

HRESULT Accessible::navigate(LONG direction, LONG part, VARIANT* end) const {
  LONG to = 0;
  switch (direction) {
    case NAVDIR_FIRSTCHILD:
    case NAVDIR_LASTCHILD:
      if (part != CHILDID_SELF) return S_FALSE;
      to = direction == NAVDIR_LASTCHILD ? count() : 1;
      break;
    case NAVDIR_NEXT:
    case NAVDIR_DOWN:
      to = part + 1;
      break;
    case NAVDIR_PREVIOUS:
    case NAVDIR_UP:
      to = part - 1;
      break;
    case NAVDIR_LEFT:
    case NAVDIR_RIGHT:
      break;
    default:
      return E_INVALIDARG;
  }
  if (part == CHILDID_SELF && direction != NAVDIR_FIRSTCHILD && direction != NAVDIR_LASTCHILD) {
    ComPtr<IAccessible> standard;
    const HRESULT made =
        CreateStdAccessibleObject(handle(), OBJID_CLIENT, kAccessibleId, standard.out_void());
    VARIANT self{};
    give(&self, CHILDID_SELF);
    return SUCCEEDED(made) ? standard->accNavigate(direction, self, end) : made;
  }
  return to > 0 && to <= count() ? give(end, to) : give_none(end);
}

HRESULT Accessible::accHitTest(LONG x, LONG y, VARIANT* part) {
  if (!part) return E_POINTER;
  part->vt = VT_EMPTY;
  return answer([&] {
    const POINT at{x, y};
    const RECT area = place(CHILDID_SELF);
    return PtInRect(&area, at) ? give(part, part_at(at)) : give_none(part);
  });
}

// Handlers must not run inside a client's call: it would wait for as long as they take.
HRESULT Accessible::accDoDefaultAction(VARIANT part) {
  return answer(part, [&](LONG which) {
    if (action(which).empty()) return DISP_E_MEMBERNOTFOUND;
    if (!within_reach()) return E_FAIL;
    actions_.push_back({which, mark_of(which)});
    if (PostMessageW(handle(), action_message(), 0, 0)) return S_OK;
    actions_.pop_back();
    return E_FAIL;
  });
}

HRESULT Accessible::put_accName(VARIANT, BSTR) {
  return DISP_E_MEMBERNOTFOUND;
}

HRESULT Accessible::put_accValue(VARIANT part, BSTR text) {
  return answer(part, [&](LONG which) {
    if (which != CHILDID_SELF || value(which).empty()) return DISP_E_MEMBERNOTFOUND;
    if (!within_reach()) return E_FAIL;
    return take_value(text ? text : L"") ? S_OK : E_INVALIDARG;
  });
}

}  // namespace ordelan::win32
