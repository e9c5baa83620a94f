// The object by which screen readers and other assistive programs look at a control: the system's
// IAccessible. Its parts, the rows of a list, are numbered from 1 and have no objects of their own.
#pragma once

#include <windows.h>

#include <ole2.h>
#include <oleacc.h>

#include <atomic>
#include <deque>
#include <optional>
#include <string>

namespace ordelan::win32 {

class ControlPeer;

// Written out: the libraries of some compilers hold another number under the interface's name.
inline constexpr IID kAccessibleId = {
    0x618736E0, 0x3C3D, 0x11CF, {0x81, 0x0C, 0x00, 0xAA, 0x00, 0x38, 0x9B, 0x71}};

// The message at which the control does what a client has asked for.
UINT action_message();

// A client may hold the object for longer than the control lives: calls fail with
// CO_E_OBJNOTCONNECTED then. Calls of other programs come through the message loop, so that all
// run on the thread of the windows. None raises an event of the program.
class Accessible : public IAccessible {
 public:
  Accessible(const Accessible&) = delete;
  Accessible& operator=(const Accessible&) = delete;

  // The control goes.
  void disconnect() { peer_ = nullptr; }
  // Does the first of the actions that clients have asked for and that are not done yet, if the
  // user could do it now. The control may be gone afterwards.
  void act();

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;
  ULONG STDMETHODCALLTYPE AddRef() override;
  ULONG STDMETHODCALLTYPE Release() override;
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override;
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override;
  HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                   UINT*) override;

  HRESULT STDMETHODCALLTYPE get_accParent(IDispatch** parent) override;
  HRESULT STDMETHODCALLTYPE get_accChildCount(LONG* count) override;
  HRESULT STDMETHODCALLTYPE get_accChild(VARIANT part, IDispatch** object) override;
  HRESULT STDMETHODCALLTYPE get_accName(VARIANT part, BSTR* name) override;
  HRESULT STDMETHODCALLTYPE get_accValue(VARIANT part, BSTR* value) override;
  HRESULT STDMETHODCALLTYPE get_accDescription(VARIANT part, BSTR* description) override;
  HRESULT STDMETHODCALLTYPE get_accRole(VARIANT part, VARIANT* role) override;
  HRESULT STDMETHODCALLTYPE get_accState(VARIANT part, VARIANT* state) override;
  HRESULT STDMETHODCALLTYPE get_accHelp(VARIANT part, BSTR* help) override;
  HRESULT STDMETHODCALLTYPE get_accHelpTopic(BSTR* file, VARIANT part, LONG* topic) override;
  HRESULT STDMETHODCALLTYPE get_accKeyboardShortcut(VARIANT part, BSTR* shortcut) override;
  HRESULT STDMETHODCALLTYPE get_accFocus(VARIANT* part) override;
  HRESULT STDMETHODCALLTYPE get_accSelection(VARIANT* part) override;
  HRESULT STDMETHODCALLTYPE get_accDefaultAction(VARIANT part, BSTR* action) override;
  HRESULT STDMETHODCALLTYPE accSelect(LONG flags, VARIANT part) override;
  HRESULT STDMETHODCALLTYPE accLocation(LONG* left, LONG* top, LONG* width, LONG* height,
                                        VARIANT part) override;
  HRESULT STDMETHODCALLTYPE accNavigate(LONG direction, VARIANT part, VARIANT* end) override;
  HRESULT STDMETHODCALLTYPE accHitTest(LONG x, LONG y, VARIANT* part) override;
  HRESULT STDMETHODCALLTYPE accDoDefaultAction(VARIANT part) override;
  HRESULT STDMETHODCALLTYPE put_accName(VARIANT part, BSTR name) override;
  HRESULT STDMETHODCALLTYPE put_accValue(VARIANT part, BSTR value) override;

 protected:
  explicit Accessible(ControlPeer& peer) : peer_(&peer) {}
  virtual ~Accessible() = default;

  ControlPeer& peer() const { return *peer_; }
  HWND handle() const;

  // What is answered of a part, 0 for the control itself. Asked only of a control that lives and
  // shows all that has changed, and of parts that it has.
  virtual LONG count() const { return 0; }
  virtual LONG role(LONG part) const = 0;
  virtual std::wstring name(LONG part) const = 0;
  virtual std::wstring value(LONG) const { return {}; }
  virtual std::wstring description(LONG) const { return {}; }
  virtual std::wstring help(LONG) const { return {}; }
  virtual std::wstring action(LONG) const { return {}; }
  virtual LONG state(LONG part) const = 0;
  virtual RECT place(LONG part) const;             // on the screen
  virtual LONG part_at(POINT) const { return 0; }  // of a place on the screen and in the control
  virtual LONG chosen() const { return 0; }        // 0 for none
  // Makes it the chosen part. False where there is no such thing.
  virtual bool choose(LONG) { return false; }
  virtual bool take_value(const std::wstring&) { return false; }
  // By which a part that an action was asked for is recognised when the action is done.
  virtual std::string mark_of(LONG) const { return {}; }

  // The state that comes from the control's window.
  LONG state_of_window() const;

 private:
  struct Action {
    LONG part;
    std::string mark;
  };

  template <class Body>
  HRESULT answer(const Body& body) noexcept;
  // The same for a part; E_INVALIDARG where there is none of that number.
  template <class Body>
  HRESULT answer(const VARIANT& part, const Body& body) noexcept;
  HRESULT navigate(LONG direction, LONG part, VARIANT* end) const;
  bool within_reach() const;
  bool can_act(const Action& action) const;

  std::atomic<ULONG> references_ = 1;
  ControlPeer* peer_;
  std::deque<Action> actions_;  // asked for, and not done yet
};

}  // namespace ordelan::win32
