// SPDX-License-Identifier: MIT
// The two balloon classes: the invisible control and the plain object, their IsVisible, calls by
// name with the message passed by reference, and the control's fixed design size and empty bag.
#include <corvane/host/extender.h>
#include <corvane/host/property_bag.h>
#include <corvane/notify/vex_balloon.h>
#include <corvane/runtime/class_registry.h>
#include <corvane/runtime/runtime_error.h>

#include "support/balloon_fixture.h"

namespace corvane::test {
namespace {

class VexBalloonTest : public BalloonTest {
 protected:
  std::shared_ptr<VexBalloon> addBalloon(Form& f, const std::string& name = "Balloon1",
                                         PropertyBag* bag = nullptr) {
    return std::dynamic_pointer_cast<VexBalloon>(f.add("VexBalloon", name, nullptr, 300, 300, -1, -1, bag));
  }
};

TEST_F(VexBalloonTest, AtDesignTimeTheControlKeepsItsSize) {
  FormRef design = Form::create("Design", 6000, 4500, false);
  auto b = addBalloon(*design);
  ASSERT_TRUE(b);
  Extender& e = b->extenderObject();
  EXPECT_FLOAT_EQ(e.Width(), 885);
  EXPECT_FLOAT_EQ(e.Height(), 555);
  e.Move(e.Left(), e.Top(), 2400, 1200);
  EXPECT_FLOAT_EQ(e.Width(), 885);
  EXPECT_FLOAT_EQ(e.Height(), 555);
}

TEST_F(VexBalloonTest, AtRunTimeTheControlIsInvisible) {
  FormRef host = Form::create("Host", 6000, 4500, true);
  host->Show();
  auto b = addBalloon(*host);
  EXPECT_FALSE(user().IsWindowVisible(b->hWnd()));
}

TEST_F(VexBalloonTest, ItPersistsNothing) {
  FormRef host = Form::create("Host", 6000, 4500, true);
  auto b = addBalloon(*host);
  PropertyBag bag;
  b->WriteProperties(bag);
  EXPECT_TRUE(bag.entries().empty());
  // A stored bag with keys of its own is read without a trace.
  PropertyBag stored;
  stored.set("IsVisible", true);
  stored.set("m_IsVisible", true);
  auto c = addBalloon(*host, "Balloon2", &stored);
  EXPECT_FALSE(c->IsVisible());
  EXPECT_TRUE(stored.readOrder().empty());
}

TEST_F(VexBalloonTest, IsVisibleFollowsTheBalloon) {
  FormRef host = Form::create("Host", 6000, 4500, true);
  auto b = addBalloon(*host);
  EXPECT_FALSE(b->IsVisible());
  desktop().mouseMove(300, 400);
  std::string m = "Hallo";
  b->popUpBalloon(owner->hWnd(), m, "Titel", vbInformation);
  EXPECT_TRUE(b->IsVisible());
  EXPECT_EQ(m, "Hallo     ");
  RECT r{};
  user().GetWindowRect(balloon().form()->hWnd(), r);
  desktop().click(r.Left + 40, r.Top + 60);
  EXPECT_FALSE(b->IsVisible());
}

TEST_F(VexBalloonTest, TheDefaultsOfPopUpBalloon) {
  FormRef host = Form::create("Host", 6000, 4500, true);
  auto b = addBalloon(*host);
  desktop().mouseMove(300, 400);
  std::string m = "Hallo";
  b->popUpBalloon(owner->hWnd(), m);
  BalloonWindow& w = balloon();
  EXPECT_EQ(w.lblTitle->Caption(), "");
  EXPECT_FALSE(w.picIcon->extenderObject().Visible());
  EXPECT_TRUE(w.hovClose->extenderObject().Visible());
  EXPECT_EQ(w.Timer1Interval(), 0);
  EXPECT_DOUBLE_EQ(w.lblMsg->Font()->Size(), 8);
  EXPECT_EQ(w.lblMsg->Font()->Name(), "MS Sans Serif");
  EXPECT_EQ(w.lblTitle->ForeColor(), 0u);
  EXPECT_EQ(tip(), "bottom left");  // at the mouse, above it
  EXPECT_TRUE(w.tmrEnabled());      // not modal
}

TEST_F(VexBalloonTest, TerminateUnloadsTheBalloon) {
  FormRef host = Form::create("Host", 6000, 4500, true);
  auto b = addBalloon(*host);
  std::string m = "Hallo";
  b->popUpBalloon(owner->hWnd(), m);
  ASSERT_TRUE(balloon().isLoaded());
  host->Unload();
  EXPECT_FALSE(balloon().isLoaded());
}

TEST_F(VexBalloonTest, ACallByNameGivesTheMessageBackWithItsBlanks) {
  FormRef host = Form::create("Host", 6000, 4500, true);
  auto b = addBalloon(*host);
  Dispatch::Args args{Variant(owner->hWnd()), Variant(std::string("Hallo")), Variant(std::string("Titel")),
                      Variant(int32_t(vbExclamation))};
  b->invoke("popUpBalloon", CallType::Method, args);
  EXPECT_EQ(args[1].toString(), "Hallo     ");
  EXPECT_TRUE(b->get("IsVisible").toBool());
  EXPECT_EQ(balloon().lblTitle->Caption(), "Titel");
  EXPECT_TRUE(balloon().picIcon->extenderObject().Visible());
  b->call("UnloadBalloon");
  EXPECT_FALSE(b->get("IsVisible").toBool());
}

TEST_F(VexBalloonTest, ACallByNameThatFailsStillChangesTheMessage) {
  ObjectRef o = ClassRegistry::instance().create("cMiniBalloon");
  Dispatch::Args args{
      Variant(owner->hWnd()), Variant(std::string("Hallo")), Variant(), Variant(), Variant(), Variant(),
      Variant(int16_t(40))};
  try {
    o->invoke("popUpBalloon", CallType::Method, args);
    FAIL();
  } catch (const RuntimeError& e) {
    EXPECT_EQ(e.number(), 6);
  }
  EXPECT_EQ(args[1].toString(), "Hallo     ");
}

TEST_F(VexBalloonTest, TheMiniBalloonIsCreatableByNameAndShowsTheSameBalloon) {
  ObjectRef o = ClassRegistry::instance().create("cMiniBalloon");
  ASSERT_TRUE(o);
  EXPECT_EQ(o->typeName(), "cMiniBalloon");
  Dispatch::Args args{Variant(owner->hWnd()), Variant(std::string("Mini"))};
  o->invoke("popUpBalloon", CallType::Method, args);
  EXPECT_TRUE(o->get("IsVisible").toBool());
  EXPECT_EQ(balloon().lblMsg->Caption(), "Mini");
  o->call("UnloadBalloon");
  EXPECT_FALSE(o->get("IsVisible").toBool());
}

TEST_F(VexBalloonTest, TheControlAndTheObjectShareTheOneBalloon) {
  FormRef host = Form::create("Host", 6000, 4500, true);
  auto b = addBalloon(*host);
  std::string m1 = "Vom Steuerelement", m2 = "Vom Objekt";
  b->popUpBalloon(owner->hWnd(), m1);
  mini->popUpBalloon(owner->hWnd(), m2);
  EXPECT_FALSE(b->IsVisible());
  EXPECT_TRUE(mini->IsVisible());
}

TEST_F(VexBalloonTest, ADroppedCreatorIsNotCalledWhenTheBalloonCloses) {
  {
    auto gone = std::make_shared<cMiniBalloon>();
    std::string m = "Hallo";
    gone->popUpBalloon(owner->hWnd(), m);
  }
  ASSERT_TRUE(balloon().isLoaded());
  balloon().unload();
  EXPECT_FALSE(balloon().isLoaded());
}

}  // namespace
}  // namespace corvane::test
