// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include <corvane/export.h>
#include <corvane/platform/platform.h>
#include <corvane/runtime/event.h>
#include <corvane/runtime/component_object.h>
#include <corvane/runtime/object.h>
#include <corvane/runtime/vb_array.h>

namespace corvane {

// Helpers shared by the two ways of hooking a window (clsSubClass and MSubclass).
namespace subclassing {

// Sets a window property. A value of 0 removes the key at once, so a count that falls to zero
// leaves nothing behind. Returns what SetPropA returned.
CORVANE_API bool setWindowProp(HWND hWnd, const std::string& key, int32_t value);

// A module's window procedure, registered once per platform. The address is registered when it
// is first asked for, and again when the platform is another one or no longer knows the address
// (a fresh desktop, or an unregistered procedure): a token held by the registered closure dies
// with the registration, which is how a stale address is noticed.
class CORVANE_API ModuleWindowProc {
 public:
  explicit ModuleWindowProc(WindowProcedure proc) : m_proc(std::move(proc)) {}
  WNDPROC address();

 private:
  struct Registration {
    Platform* platform;
    std::weak_ptr<void> alive;
    WNDPROC address;
  };
  WindowProcedure m_proc;
  std::vector<Registration> m_registrations;
};

// Objects that a window property refers to without holding them: each live object has a 32-bit
// id (never 0), entered when it is made and taken out when it goes, so a property holds the id
// and a lookup of a gone object finds nothing.
template <class T>
class UncountedRefs {
 public:
  int32_t add(T* object) {
    do {
      m_next = (m_next == INT32_MAX) ? 1 : m_next + 1;
    } while (m_objects.count(m_next));
    m_objects.emplace(m_next, object);
    return m_next;
  }
  void remove(int32_t id) { m_objects.erase(id); }
  T* find(int32_t id) const {
    auto it = m_objects.find(id);
    return it == m_objects.end() ? nullptr : it->second;
  }

 private:
  std::unordered_map<int32_t, T*> m_objects;
  int32_t m_next = 0;
};

}  // namespace subclassing

// Hooks windows for one owner: every message of a hooked window is raised as NewMessage, and the
// handler may change it or stop it before the previous window procedure sees it. The hook state
// lives on the window itself ("SSC_OLDPROC", "SSC_OBJADDR"); the object keeps the list of windows
// it hooked, so Terminate can undo them all.
class CORVANE_API clsSubClass : public Object, public ComponentObject {
 public:
  clsSubClass();
  ~clsSubClass() override;  // runs Terminate
  std::string typeName() const override { return "clsSubClass"; }

  // Hooks (true) or unhooks (false) a window. True when a new hook was made, or when an unhook
  // wrote the previous procedure back successfully.
  bool SubClassHwnd(int32_t hWnd, bool bSubClass);

  // (hWnd, uMsg, wParam, lParam, Cancel): a handler may change uMsg, wParam and lParam (the
  // previous procedure sees the changed values) and set Cancel to swallow the message.
  Event<int32_t, int32_t&, int32_t&, int32_t&, bool&> NewMessage;

  // Called by the module window procedure for each message of a hooked window (library-private).
  int32_t WindowProc(int32_t hWnd, int32_t uMsg, int32_t wParam, int32_t lParam);

  // Unhooks every window in the object's list, from the last entry down.
  void Terminate();

  // The hooked windows: bounds 0 to n, index 0 stays 0, entries below 1 are free (-1: removed).
  const VbArray<int32_t>& hookedWindows() const { return m_hWnds; }

  // The value stored under "SSC_OBJADDR": the object's id among the live clsSubClass objects.
  int32_t objectId() const { return m_objectId; }
  static clsSubClass* fromObjectId(int32_t id);

 protected:
  const Dispatch* dispatch() const override;

 private:
  int32_t find(int32_t hWnd) const;
  void add(int32_t hWnd);
  void remove(int32_t hWnd);

  VbArray<int32_t> m_hWnds;
  int32_t m_objectId;
};

// The module of clsSubClass: the window procedure that hooked windows point to.
namespace bSubClass {
constexpr const char* kOldProc = "SSC_OLDPROC";
constexpr const char* kObjAddr = "SSC_OBJADDR";

// Hands the message to the object named by "SSC_OBJADDR"; with none the message is lost (0).
CORVANE_API LRESULT WindowProc(HWND hWnd, int32_t uMsg, WPARAM wParam, LPARAM lParam);
// The address of WindowProc on the current platform.
CORVANE_API WNDPROC WindowProcAddress();
}  // namespace bSubClass

}  // namespace corvane
