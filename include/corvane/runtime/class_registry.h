// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <corvane/export.h>
#include <corvane/runtime/object.h>

namespace corvane {

enum class ClassKind { Control, Class, PropertyPage };

// One public class of the component.
struct CORVANE_API ClassInfo {
  std::string name;   // as the host knows it ("VexFrame", "msg")
  std::string clsid;  // upper case, without braces
  ClassKind kind = ClassKind::Class;
  std::string defaultInterface;  // "_" + name
  std::string eventInterface;    // "__" + name, empty for a class without events
  std::vector<std::string> events;
  std::function<ObjectRef()> factory;  // empty until the class's code registers it
};

// A public enumeration as late-bound code sees it: its members under the names the interface
// gives them ("None"), whatever their C++ spelling (which may carry a prefix, as a member named
// like a common C macro would break programs that include the system's headers first).
struct CORVANE_API EnumInfo {
  std::string name;
  std::vector<std::pair<std::string, int32_t>> members;
};

// The table from class name and class identifier to a factory, and the count of live objects:
// the services a host uses to create the component's classes and to ask whether it may unload.
// It holds all public classes from the start; their code adds the factories.
class CORVANE_API ClassRegistry {
 public:
  static ClassRegistry& instance();

  ClassRegistry(const ClassRegistry&) = delete;
  ClassRegistry& operator=(const ClassRegistry&) = delete;

  // Sets the factory of a listed class; an unknown name is a programming error (logic_error).
  // An empty factory makes the class unavailable again.
  void registerFactory(std::string_view name, std::function<ObjectRef()> factory);

  // Lookup without regard to case; an identifier may carry braces. nullptr when unknown.
  const ClassInfo* find(std::string_view name) const;
  const ClassInfo* findById(std::string_view clsid) const;

  // A new object of the class. Error 429 when the class is unknown ("Class '<x>' is not
  // registered") or has no factory in this build ("Class '<Name>' is not available in this
  // build").
  ObjectRef create(std::string_view name) const;
  ObjectRef createById(std::string_view clsid) const;

  // All classes, in the order of the component's class table.
  const std::vector<ClassInfo>& all() const { return m_classes; }

  // Enters a public enumeration; the library enters its own at the registry's first use.
  void registerEnum(std::string_view name, std::vector<std::pair<std::string, int32_t>> members);
  // The value of "Enum.Member", or of a member name alone (the first enumeration that has it),
  // without regard to case. Error 438 when there is none.
  int32_t enumValue(std::string_view name) const;
  const std::vector<EnumInfo>& enums() const { return m_enums; }

  // The live objects of the public classes (DllCanUnloadNow): only objects that derive from
  // ComponentObject count, never the host's forms, Screen or App.
  static int64_t liveObjects();
  static bool canUnloadNow();

 private:
  ClassRegistry();
  ObjectRef make(const ClassInfo* info, std::string_view asked) const;

  std::vector<ClassInfo> m_classes;
  std::vector<EnumInfo> m_enums;
};

// Enters the factories of the classes the library has built; defined by the library's top layer
// and called once, at the registry's first use.
CORVANE_API void registerLibraryClasses(ClassRegistry& registry);

}  // namespace corvane
