// SPDX-License-Identifier: MIT
#include <corvane/frame/subclass.h>

#include <algorithm>

#include <corvane/platform/api.h>

namespace corvane {

namespace subclassing {

bool setWindowProp(HWND hWnd, const std::string& key, int32_t value) {
  bool ok = user().SetPropA(hWnd, key, value);
  if (value == 0) user().RemovePropA(hWnd, key);
  return ok;
}

WNDPROC ModuleWindowProc::address() {
  Platform* current = &platform();
  // A registration whose token died belongs to a platform that is gone or that forgot it; the
  // same platform address may come back as a new object, so its entry must not be trusted.
  std::erase_if(m_registrations, [](const Registration& r) { return r.alive.expired(); });
  for (const Registration& r : m_registrations)
    if (r.platform == current) return r.address;
  auto token = std::make_shared<int>(0);
  WindowProcedure proc = m_proc;
  WNDPROC addr = current->user().RegisterWindowProc(
      [proc, token](HWND h, int32_t m, WPARAM w, LPARAM l) { return proc(h, m, w, l); });
  m_registrations.push_back({current, token, addr});
  return addr;
}

}  // namespace subclassing

namespace {

subclassing::UncountedRefs<clsSubClass>& liveObjects() {
  static subclassing::UncountedRefs<clsSubClass> table;
  return table;
}

int32_t argLong(const Dispatch::Args& a, size_t i) {
  if (i >= a.size()) throw RuntimeError(449, "Argument not optional");
  return a[i].toLong();
}

bool argBool(const Dispatch::Args& a, size_t i) {
  if (i >= a.size()) throw RuntimeError(449, "Argument not optional");
  return a[i].toBool();
}

}  // namespace

clsSubClass::clsSubClass() : m_objectId(liveObjects().add(this)) { m_hWnds.redim(0, 0); }

clsSubClass::~clsSubClass() {
  // A destructor must not throw; an unhook that fails leaves that window as it is.
  try {
    Terminate();
  } catch (...) {
  }
  liveObjects().remove(m_objectId);
}

clsSubClass* clsSubClass::fromObjectId(int32_t id) { return id ? liveObjects().find(id) : nullptr; }

bool clsSubClass::SubClassHwnd(int32_t hWnd, bool bSubClass) {
  UserApi& u = user();
  bool isWindow = u.IsWindow(hWnd);
  if (isWindow && bSubClass) {
    // A window that carries a previous procedure already, from any object, is left alone.
    if (u.GetPropA(hWnd, bSubClass::kOldProc) != 0) return false;
    WNDPROC old = u.SetWindowLongA(hWnd, GWL_WNDPROC, bSubClass::WindowProcAddress());
    if (old == 0) return false;
    subclassing::setWindowProp(hWnd, bSubClass::kOldProc, old);
    subclassing::setWindowProp(hWnd, bSubClass::kObjAddr, m_objectId);
    add(hWnd);
    return true;
  }
  bool restored = false;
  if (isWindow) {
    WNDPROC old = u.GetPropA(hWnd, bSubClass::kOldProc);
    if (old != 0) restored = u.SetWindowLongA(hWnd, GWL_WNDPROC, old) != 0;
  }
  // Also for a window that is gone: the object forgets it.
  u.RemovePropA(hWnd, bSubClass::kOldProc);
  u.RemovePropA(hWnd, bSubClass::kObjAddr);
  remove(hWnd);
  return restored;
}

int32_t clsSubClass::WindowProc(int32_t hWnd, int32_t uMsg, int32_t wParam, int32_t lParam) {
  bool Cancel = false;
  NewMessage(hWnd, uMsg, wParam, lParam, Cancel);
  if (Cancel) return 0;
  WNDPROC old = user().GetPropA(hWnd, bSubClass::kOldProc);
  if (old == 0) return 0;
  return user().CallWindowProcA(old, hWnd, uMsg, wParam, lParam);
}

void clsSubClass::Terminate() {
  if (m_hWnds.empty()) return;
  for (int32_t i = m_hWnds.ubound(); i >= 1; --i) {
    // An unhook shrinks the list when it takes the last entry, so read within the bounds.
    if (i > m_hWnds.ubound()) continue;
    int32_t h = m_hWnds(i);
    if (h > 0) SubClassHwnd(h, false);
  }
}

int32_t clsSubClass::find(int32_t hWnd) const {
  for (int32_t i = 1; i <= m_hWnds.ubound(); ++i)
    if (m_hWnds(i) >= 1 && m_hWnds(i) == hWnd) return i;
  return 0;
}

void clsSubClass::add(int32_t hWnd) {
  if (find(hWnd)) return;
  for (int32_t i = 1; i <= m_hWnds.ubound(); ++i)
    if (m_hWnds(i) < 1) {
      m_hWnds(i) = hWnd;
      return;
    }
  int32_t upper = m_hWnds.ubound() + 1;
  m_hWnds.redimPreserve(upper);
  m_hWnds(upper) = hWnd;
}

void clsSubClass::remove(int32_t hWnd) {
  int32_t i = find(hWnd);
  if (i == 0) return;
  if (i == m_hWnds.ubound())
    m_hWnds.redimPreserve(i - 1);
  else
    m_hWnds(i) = -1;
}

const Dispatch* clsSubClass::dispatch() const {
  static const Dispatch d = [] {
    Dispatch t;
    DispatchBuilder<clsSubClass>(t).method("SubClassHwnd", [](clsSubClass& o, Dispatch::Args& a) {
      return o.SubClassHwnd(argLong(a, 0), argBool(a, 1));
    });
    return t;
  }();
  return &d;
}

namespace bSubClass {

LRESULT WindowProc(HWND hWnd, int32_t uMsg, WPARAM wParam, LPARAM lParam) {
  // The property holds the object without counting it; a gone object reads like 0.
  clsSubClass* owner = clsSubClass::fromObjectId(user().GetPropA(hWnd, kObjAddr));
  if (!owner) return 0;
  return owner->WindowProc(hWnd, uMsg, wParam, lParam);
}

WNDPROC WindowProcAddress() {
  static subclassing::ModuleWindowProc proc(&WindowProc);
  return proc.address();
}

}  // namespace bSubClass

}  // namespace corvane
