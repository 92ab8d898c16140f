// SPDX-License-Identifier: MIT
#include <corvane/runtime/object.h>

#include <gtest/gtest.h>

#include "runtime/expect_error.h"

using namespace corvane;

namespace {

enum BorderStyle { bsNone = 0, bsSingle = 1 };

class Box : public Object {
 public:
  BorderStyle Border() const { return m_Border; }
  void setBorder(BorderStyle v) { m_Border = v; }
  std::string typeName() const override { return "Box"; }

  int32_t BackColor() const { return m_BackColor; }
  void setBackColor(int32_t v) { m_BackColor = v; }
  int16_t Width() const { return m_Width; }
  void setWidth(int16_t v) { m_Width = v; }
  std::string Caption() const { return m_Caption; }
  void setCaption(const std::string& v) { m_Caption = v; }
  bool Enabled() const { return m_Enabled; }
  int refreshes = 0;

 protected:
  const Dispatch* dispatch() const override {
    static const Dispatch table = [] {
      Dispatch d;
      DispatchBuilder<Box>(d)
          .prop("BackColor", &Box::BackColor, &Box::setBackColor)
          .prop("Width", &Box::Width, &Box::setWidth)
          .prop("Caption", &Box::Caption, &Box::setCaption)
          .get("Enabled", &Box::Enabled)
          .prop("BorderStyle", &Box::Border, &Box::setBorder)
          .let("Tag", [](Box& b, const Variant& v) { b.m_Caption = "tag:" + v.toString(); })
          .method("CtrlRefresh", [](Box& b, Dispatch::Args&) { ++b.refreshes; })
          .method("Sum", [](Box&, Dispatch::Args& a) { return a.at(0).toLong() + a.at(1).toLong(); });
      return d;
    }();
    return &table;
  }

 private:
  int32_t m_BackColor = 0;
  int16_t m_Width = 0;
  std::string m_Caption;
  bool m_Enabled = true;
  BorderStyle m_Border = bsNone;
};

class Bare : public Object {
 public:
  std::string typeName() const override { return "Bare"; }
};

}  // namespace

TEST(Object, PropertyGetAndLetByName) {
  auto b = std::make_shared<Box>();
  b->let("BackColor", 0xFF);
  EXPECT_EQ(b->BackColor(), 0xFF);
  EXPECT_EQ(b->get("BackColor").toLong(), 0xFF);
  EXPECT_EQ(b->get("BackColor").type(), Variant::Type::Long);
  b->let("Caption", "Hallo");
  EXPECT_EQ(b->get("Caption").toString(), "Hallo");
  EXPECT_EQ(b->get("Enabled").type(), Variant::Type::Boolean);
}

TEST(Object, MemberNamesIgnoreCase) {
  auto b = std::make_shared<Box>();
  b->let("backcolor", 5);
  EXPECT_EQ(b->get("BACKCOLOR").toLong(), 5);
  b->call("ctrlrefresh");
  EXPECT_EQ(b->refreshes, 1);
  EXPECT_TRUE(b->hasMember("CAPTION"));
  EXPECT_FALSE(b->hasMember("Nothing"));
}

TEST(Object, LetConvertsTheValueByTheLanguagesRules) {
  auto b = std::make_shared<Box>();
  b->let("BackColor", "&HFF");
  EXPECT_EQ(b->BackColor(), 255);
  b->let("Width", 2.5);
  EXPECT_EQ(b->Width(), 2);
  b->let("Caption", 12);
  EXPECT_EQ(b->Caption(), "12");
  EXPECT_RUNTIME_ERROR(b->let("Width", 40000), 6);
  EXPECT_RUNTIME_ERROR(b->let("BackColor", "blue"), 13);
  EXPECT_EQ(b->BackColor(), 255);
}

TEST(Object, LetThroughACallableSetter) {
  auto b = std::make_shared<Box>();
  b->let("Tag", 7);
  EXPECT_EQ(b->Caption(), "tag:7");
}

TEST(Object, MissingMemberIsError438WithTheClassAsSource) {
  auto b = std::make_shared<Box>();
  EXPECT_RUNTIME_ERROR(b->get("Nothing"), 438);
  EXPECT_RUNTIME_ERROR(b->let("Nothing", 1), 438);
  EXPECT_RUNTIME_ERROR(b->call("Nothing"), 438);
  try {
    b->get("Nothing");
    FAIL() << "no error";
  } catch (const RuntimeError& e) {
    EXPECT_EQ(e.source(), "Box");
    EXPECT_EQ(e.description(), "Object doesn't support this property or method");
  }
}

TEST(Object, ReadOnlyPropertyCannotBeLet) {
  auto b = std::make_shared<Box>();
  EXPECT_RUNTIME_ERROR(b->let("Enabled", false), 438);
  EXPECT_TRUE(b->Enabled());
}

TEST(Object, WriteOnlyPropertyCannotBeRead) {
  auto b = std::make_shared<Box>();
  EXPECT_RUNTIME_ERROR(b->get("Tag"), 438);
}

TEST(Object, MethodsWithArgumentsAndResults) {
  auto b = std::make_shared<Box>();
  EXPECT_EQ(b->call("Sum", {2, 3}).toLong(), 5);
  EXPECT_EQ(b->get("Sum", {4, 5}).toLong(), 9);  // a function may be read like a property
  EXPECT_TRUE(b->call("CtrlRefresh").isEmpty());
  EXPECT_EQ(b->call("Caption").toString(), "");  // and a property called like a method
}

TEST(Object, ObjectWithoutTableHasNoMembers) {
  auto o = std::make_shared<Bare>();
  EXPECT_FALSE(o->hasMember("Anything"));
  EXPECT_RUNTIME_ERROR(o->get("Anything"), 438);
}

TEST(Object, LateBindingThroughAVariant) {
  Variant container(std::make_shared<Box>());
  container.toObject()->let("BackColor", 0x8000000F);
  EXPECT_EQ(container.toObject()->get("BackColor").toLong(), static_cast<int32_t>(0x8000000F));
}

TEST(Object, CountsLiveObjects) {
  const int64_t before = Object::liveCount();
  {
    auto a = std::make_shared<Box>();
    auto b = std::make_shared<Bare>();
    EXPECT_EQ(Object::liveCount(), before + 2);
  }
  EXPECT_EQ(Object::liveCount(), before);
}

TEST(Object, EnumerationsTravelAsLong) {
  auto b = std::make_shared<Box>();
  b->let("BorderStyle", 1);
  EXPECT_EQ(b->Border(), bsSingle);
  Variant v = b->get("BorderStyle");
  EXPECT_EQ(v.type(), Variant::Type::Long);
  EXPECT_EQ(v.toLong(), 1);
}
