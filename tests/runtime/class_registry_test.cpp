// SPDX-License-Identifier: MIT
#include <corvane/runtime/class_registry.h>
#include <corvane/runtime/component_object.h>

#include <gtest/gtest.h>

#include <functional>
#include <set>
#include <stdexcept>

#include "runtime/expect_error.h"

using namespace corvane;

namespace {

class Probe : public Object, public ComponentObject {
 public:
  std::string typeName() const override { return "cFormMinMax"; }
};

// Restores a class's factory as it was before the test.
struct FactoryReset {
  explicit FactoryReset(std::string n) : name(std::move(n)), saved(ClassRegistry::instance().find(name)->factory) {}
  ~FactoryReset() { ClassRegistry::instance().registerFactory(name, saved); }
  std::string name;
  std::function<ObjectRef()> saved;
};

std::string errorDescription(const std::function<void()>& f) {
  try {
    f();
  } catch (const RuntimeError& e) {
    return e.description();
  }
  return {};
}

}  // namespace

TEST(ClassRegistry, ListsThe37PublicClassesInTableOrder) {
  const auto& all = ClassRegistry::instance().all();
  ASSERT_EQ(all.size(), 37u);
  EXPECT_EQ(all.front().name, "VexFrame");
  EXPECT_EQ(all[1].name, "VexFrameButton");
  EXPECT_EQ(all[4].name, "CGradient");
  EXPECT_EQ(all[32].name, "msg");
  EXPECT_EQ(all.back().name, "VexProgress");
  int controls = 0, classes = 0, pages = 0;
  std::set<std::string> names, ids;
  for (const auto& c : all) {
    controls += c.kind == ClassKind::Control;
    classes += c.kind == ClassKind::Class;
    pages += c.kind == ClassKind::PropertyPage;
    names.insert(c.name);
    ids.insert(c.clsid);
    EXPECT_EQ(c.clsid.size(), 36u) << c.name;
    EXPECT_EQ(c.defaultInterface, "_" + c.name);
    EXPECT_EQ(c.eventInterface, c.events.empty() ? "" : "__" + c.name);
  }
  EXPECT_EQ(controls, 19);
  EXPECT_EQ(classes, 15);
  EXPECT_EQ(pages, 3);
  EXPECT_EQ(names.size(), 37u);
  EXPECT_EQ(ids.size(), 37u);
}

TEST(ClassRegistry, EntriesCarryIdentifierKindAndEvents) {
  auto& r = ClassRegistry::instance();
  const ClassInfo* frame = r.find("VexFrame");
  ASSERT_NE(frame, nullptr);
  EXPECT_EQ(frame->clsid, "DBF54F29-1E98-428A-A835-7C6999872029");
  EXPECT_EQ(frame->kind, ClassKind::Control);
  EXPECT_EQ(frame->eventInterface, "__VexFrame");
  EXPECT_EQ(frame->events,
            (std::vector<std::string>{"Click", "DblClick", "Resize", "Expand", "Collapse", "CaptionOver",
                                      "IconClick", "MouseDown", "MouseMove", "MouseUp"}));
  const ClassInfo* sub = r.find("clsSubClass");
  ASSERT_NE(sub, nullptr);
  EXPECT_EQ(sub->kind, ClassKind::Class);
  EXPECT_EQ(sub->events, std::vector<std::string>{"NewMessage"});
  const ClassInfo* page = r.find("Caption");
  ASSERT_NE(page, nullptr);
  EXPECT_EQ(page->kind, ClassKind::PropertyPage);
  EXPECT_EQ(page->clsid, "F156DFBA-AD0F-468B-BB0D-AC78C434C91D");
  EXPECT_TRUE(page->eventInterface.empty());
  const ClassInfo* msg = r.find("msg");
  ASSERT_NE(msg, nullptr);
  EXPECT_EQ(msg->name, "msg");
  EXPECT_EQ(msg->defaultInterface, "_msg");
  EXPECT_EQ(msg->events, (std::vector<std::string>{"SendClick", "Closed"}));
}

TEST(ClassRegistry, FindIgnoresCaseAndBraces) {
  auto& r = ClassRegistry::instance();
  EXPECT_EQ(r.find("Msg"), r.find("msg"));
  EXPECT_EQ(r.find("vexhtml"), r.find("VexHTML"));
  EXPECT_EQ(r.find("NoSuchClass"), nullptr);
  const ClassInfo* html = r.find("VexHTML");
  EXPECT_EQ(r.findById("A5486937-C7AB-4A92-9E5E-B8E5CD41C4C6"), html);
  EXPECT_EQ(r.findById("{a5486937-c7ab-4a92-9e5e-b8e5cd41c4c6}"), html);
  EXPECT_EQ(r.findById("{A5486937-C7AB-4A92-9E5E-B8E5CD41C4C6"), nullptr);
  EXPECT_EQ(r.findById(""), nullptr);
}

TEST(ClassRegistry, CreateOfUnknownClassIsError429) {
  auto& r = ClassRegistry::instance();
  EXPECT_RUNTIME_ERROR(r.create("Nothing"), 429);
  EXPECT_EQ(errorDescription([&] { r.create("Nothing"); }), "Class 'Nothing' is not registered");
  EXPECT_RUNTIME_ERROR(r.createById("{00000000-0000-0000-0000-000000000000}"), 429);
  EXPECT_EQ(errorDescription([&] { r.createById("{00000000-0000-0000-0000-000000000000}"); }),
            "Class '{00000000-0000-0000-0000-000000000000}' is not registered");
}

TEST(ClassRegistry, CreateOfClassWithoutFactoryIsError429) {
  auto& r = ClassRegistry::instance();
  FactoryReset reset("cFormMinMax");
  r.registerFactory("cFormMinMax", {});
  EXPECT_RUNTIME_ERROR(r.create("cformminmax"), 429);
  EXPECT_EQ(errorDescription([&] { r.create("cformminmax"); }), "Class 'cFormMinMax' is not available in this build");
  EXPECT_EQ(errorDescription([&] { r.createById("A24DE9AD-16DF-4BA5-B4A2-6DB1E39AF32E"); }),
            "Class 'cFormMinMax' is not available in this build");
}

TEST(ClassRegistry, CreatesThroughTheRegisteredFactory) {
  auto& r = ClassRegistry::instance();
  FactoryReset reset("cFormMinMax");
  r.registerFactory("cFormMinMax", [] { return std::make_shared<Probe>(); });
  ObjectRef a = r.create("cFormMinMax");
  ASSERT_TRUE(a);
  EXPECT_EQ(a->typeName(), "cFormMinMax");
  ObjectRef b = r.createById("{A24DE9AD-16DF-4BA5-B4A2-6DB1E39AF32E}");
  ASSERT_TRUE(b);
  EXPECT_NE(a, b);
}

TEST(ClassRegistry, AFactoryGivingNothingIsError429) {
  auto& r = ClassRegistry::instance();
  FactoryReset reset("cFormMinMax");
  r.registerFactory("cFormMinMax", [] { return ObjectRef(); });
  EXPECT_RUNTIME_ERROR(r.create("cFormMinMax"), 429);
}

TEST(ClassRegistry, RegisteringAnUnknownNameIsALogicError) {
  EXPECT_THROW(ClassRegistry::instance().registerFactory("NoSuchClass", [] { return ObjectRef(); }),
               std::logic_error);
}

TEST(ClassRegistry, CountsLiveObjects) {
  auto& r = ClassRegistry::instance();
  FactoryReset reset("cFormMinMax");
  r.registerFactory("cFormMinMax", [] { return std::make_shared<Probe>(); });
  const int64_t before = ClassRegistry::liveObjects();
  {
    ObjectRef a = r.create("cFormMinMax");
    EXPECT_EQ(ClassRegistry::liveObjects(), before + 1);
    EXPECT_FALSE(ClassRegistry::canUnloadNow());
  }
  EXPECT_EQ(ClassRegistry::liveObjects(), before);
}

// Objects of the language's runtime (wrappers, property bags, the host's objects) are no objects
// of the component's classes.
TEST(ClassRegistry, PlainObjectsAreNotCounted) {
  class Plain : public Object {
   public:
    std::string typeName() const override { return "Plain"; }
  };
  const int64_t before = ClassRegistry::liveObjects();
  auto plain = std::make_shared<Plain>();
  EXPECT_EQ(ClassRegistry::liveObjects(), before);
}
