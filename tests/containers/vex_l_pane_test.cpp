// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <corvane/host/form_file.h>
#include <corvane/host/property_bag.h>
#include "pane_fixture.h"
#include <corvane/runtime/class_registry.h>

namespace corvane {
namespace {

using test::ContainerTest;

// A pane of 3000 by 1500 twips (200 by 100 pixels) at pixel (20, 20) of the form.
class LPaneTest : public ContainerTest {
 protected:
  void SetUp() override {
    ContainerTest::SetUp();
    lpane = std::dynamic_pointer_cast<VexLPane>(form->add("VexLPane", "LPane1", nullptr, 300, 300, 3000, 1500));
    ASSERT_TRUE(lpane);
  }
  void TearDown() override {
    lpane.reset();
    ContainerTest::TearDown();
  }
  HostedControlRef addPicture(const std::string& name, HostedControl* container, float left, float top, float width,
                              float height) {
    return form->add("PictureBox", name, container, left, top, width, height);
  }
  // A control's window rectangle relative to its parent, in pixels.
  static RECT placeOf(const HostedControl& c) {
    RECT r;
    user().GetWindowRect(c.surface().hWnd(), r);
    POINTAPI p{r.Left, r.Top};
    user().ScreenToClient(user().GetParent(c.surface().hWnd()), p);
    return RECT{p.x, p.y, p.x + r.Right - r.Left, p.y + r.Bottom - r.Top};
  }

  std::shared_ptr<VexLPane> lpane;
};

TEST_F(LPaneTest, DesignFormIsTwips) {
  DesignForm d = lpane->designForm();
  EXPECT_EQ(d.scaleMode, Surface::Twips);
  EXPECT_FLOAT_EQ(d.width, 4800);
  EXPECT_FLOAT_EQ(d.height, 3600);
  auto dropped = form->add("VexLPane", "LPane2", nullptr, 0, 0);
  EXPECT_EQ(dropped->surface().pixelWidth(), 320);
  EXPECT_EQ(dropped->surface().pixelHeight(), 240);
}

TEST_F(LPaneTest, AttachControlMovesShowsAndFillsThePane) {
  auto pic = addPicture("Pic1", nullptr, 4000, 2000, 600, 450);
  pic->extenderObject().setVisible(false);
  lpane->AttachControl(pic->extenderRef());
  EXPECT_EQ(pic->controlSite().container, lpane.get());
  EXPECT_EQ(user().GetParent(pic->surface().hWnd()), lpane->hWnd());
  EXPECT_TRUE(pic->extenderObject().Visible());
  RECT r = placeOf(*pic);
  EXPECT_EQ(r.Left, 0);
  EXPECT_EQ(r.Top, 0);
  EXPECT_EQ(r.Right, 200);
  EXPECT_EQ(r.Bottom, 100);
  EXPECT_EQ(lpane->ChildControls(), 1);
  EXPECT_EQ(lpane->GetChildControl(), pic->extenderRef());
}

TEST_F(LPaneTest, AttachingASecondChildResizesOnlyControlZero) {
  auto first = addPicture("Pic1", lpane.get(), 300, 300, 600, 450);
  auto second = addPicture("Pic2", nullptr, 4000, 2000, 600, 450);
  lpane->AttachControl(second->extenderRef());
  // The container's list keeps the order of adding: the child that was there stays control 0.
  ASSERT_EQ(lpane->ChildControls(), 2);
  EXPECT_EQ(lpane->GetChildControl(), first->extenderRef());
  RECT a = placeOf(*first), b = placeOf(*second);
  EXPECT_EQ(a.Left, 0);
  EXPECT_EQ(a.Right, 200) << "control 0 fills the pane";
  EXPECT_EQ(b.Right - b.Left, 40) << "the attached one keeps its size";
  EXPECT_EQ(b.Bottom - b.Top, 30);
}

TEST_F(LPaneTest, AttachedControlThatCameFirstBecomesControlZero) {
  auto older = addPicture("Pic1", nullptr, 4000, 2000, 600, 450);  // added to the form first
  auto child = addPicture("Pic2", lpane.get(), 300, 300, 600, 450);
  lpane->AttachControl(older->extenderRef());
  ASSERT_EQ(lpane->ChildControls(), 2);
  EXPECT_EQ(lpane->GetChildControl(), older->extenderRef());
  EXPECT_EQ(placeOf(*older).Right, 200) << "now control 0, so it is the one resized";
  EXPECT_EQ(placeOf(*child).Right - placeOf(*child).Left, 40);
}

TEST_F(LPaneTest, AttachControlWithNothingOrAnUnfitObjectIsIgnored) {
  EXPECT_NO_THROW(lpane->AttachControl(nullptr));
  PropertyBag notAControl;
  EXPECT_NO_THROW(lpane->AttachControl(std::shared_ptr<Object>(&notAControl, [](Object*) {})));
  EXPECT_EQ(lpane->ChildControls(), 0);
}

TEST_F(LPaneTest, DetachControlGivesControlZeroToThePanesContainer) {
  auto pic = addPicture("Pic1", nullptr, 4000, 2000, 600, 450);
  lpane->AttachControl(pic->extenderRef());
  lpane->DetachControl();
  EXPECT_EQ(pic->controlSite().container, nullptr) << "back on the form";
  EXPECT_EQ(user().GetParent(pic->surface().hWnd()), form->hWnd());
  EXPECT_EQ(lpane->ChildControls(), 0);
}

TEST_F(LPaneTest, DetachControlInsideAnotherContainer) {
  auto outer = std::dynamic_pointer_cast<VexLPane>(form->add("VexLPane", "Outer", nullptr, 300, 3000, 4500, 1500));
  auto inner = std::dynamic_pointer_cast<VexLPane>(form->add("VexLPane", "Inner", outer.get(), 0, 0, 3000, 900));
  auto pic = addPicture("Pic1", inner.get(), 0, 0, 600, 450);
  inner->DetachControl();
  EXPECT_EQ(pic->controlSite().container, outer.get()) << "the pane's own container, not the form";
}

TEST_F(LPaneTest, DetachControlOnAnEmptyPaneChangesNothing) {
  auto pic = addPicture("Pic1", nullptr, 4000, 2000, 600, 450);
  RECT before = placeOf(*pic);
  EXPECT_NO_THROW(lpane->DetachControl());
  EXPECT_EQ(lpane->ChildControls(), 0);
  EXPECT_EQ(pic->controlSite().container, nullptr);
  RECT after = placeOf(*pic);
  EXPECT_EQ(after.Left, before.Left);
  EXPECT_EQ(after.Right, before.Right);
  EXPECT_EQ(form->controls().size(), 2u);
}

TEST_F(LPaneTest, FullResizeChildOnAnEmptyPaneIsIgnored) { EXPECT_NO_THROW(lpane->FullResizeChild()); }

TEST_F(LPaneTest, ResizeOnlyRaisesTheEventAndTheHostResizesTheChild) {
  auto pic = addPicture("Pic1", nullptr, 4000, 2000, 600, 450);
  lpane->AttachControl(pic->extenderRef());
  int resizes = 0;
  lpane->Resize.connect([&] { ++resizes; });
  lpane->extenderObject().setWidth(4500);  // 300 pixels
  EXPECT_EQ(resizes, 1);
  EXPECT_EQ(placeOf(*pic).Right, 200) << "the child keeps its size until the host asks";
  lpane->FullResizeChild();
  EXPECT_EQ(placeOf(*pic).Right, 300);
  EXPECT_EQ(placeOf(*pic).Bottom, 100);
}

TEST_F(LPaneTest, HostResizingFromTheEventKeepsTheChildFitted) {
  auto pic = addPicture("Pic1", nullptr, 4000, 2000, 600, 450);
  lpane->AttachControl(pic->extenderRef());
  lpane->Resize.connect([&] { lpane->FullResizeChild(); });
  lpane->extenderObject().setHeight(2250);
  EXPECT_EQ(placeOf(*pic).Bottom, 150);
}

TEST_F(LPaneTest, AnErrorInTheHostsResizeHandlerStaysInThePane) {
  int resizes = 0;
  lpane->Resize.connect([&] {
    ++resizes;
    throw RuntimeError(err::DivisionByZero);
  });
  EXPECT_NO_THROW(lpane->extenderObject().setWidth(4500));
  EXPECT_NO_THROW(lpane->onResize());
  EXPECT_EQ(resizes, 2);
  EXPECT_EQ(lpane->surface().pixelWidth(), 300);
}

TEST_F(LPaneTest, EnabledIsPersistedWithDefaultTrue) {
  PropertyBag fresh;
  lpane->WriteProperties(fresh);
  EXPECT_FALSE(fresh.contains("Enabled")) << "true is the default";
  lpane->setEnabled(false);
  PropertyBag bag;
  lpane->WriteProperties(bag);
  ASSERT_TRUE(bag.contains("Enabled"));
  EXPECT_FALSE(bag.ReadProperty("Enabled").toBool());
  auto copy = std::dynamic_pointer_cast<VexLPane>(form->add("VexLPane", "LPane2", nullptr, 0, 3000, 1500, 900, &bag));
  EXPECT_FALSE(copy->Enabled());
  EXPECT_FALSE(copy->surface().Enabled()) << "at run time the surface follows";
  PropertyBag empty;
  EXPECT_TRUE(form->add("VexLPane", "LPane3", nullptr, 0, 4500, 1500, 900, &empty)->get("Enabled").toBool());
}

TEST_F(LPaneTest, GetChildControlOfAnEmptyPaneIsAnError) {
  try {
    lpane->GetChildControl();
    FAIL() << "expected error 9";
  } catch (const RuntimeError& e) {
    EXPECT_EQ(e.number(), 9);
  }
}

TEST_F(LPaneTest, MouseEventsRelayByReference) {
  float seenX = -1;
  lpane->MouseDown.connect([&](int16_t&, int16_t&, float& x, float&) {
    seenX = x;
    x = 0;
  });
  int ups = 0, moves = 0;
  lpane->MouseUp.connect([&](int16_t&, int16_t&, float&, float&) { ++ups; });
  lpane->MouseMove.connect([&](int16_t&, int16_t&, float&, float&) { ++moves; });
  desktop().click(kOffset + 4, kOffset + 4);
  EXPECT_FLOAT_EQ(seenX, 60);
  EXPECT_EQ(ups, 1);
  EXPECT_GE(moves, 1);
  int16_t b = 1, s = 0;
  float x = 9, y = 9;
  lpane->surface().MouseDown(b, s, x, y);
  EXPECT_FLOAT_EQ(x, 0);
}

TEST_F(LPaneTest, BackColorIsAlwaysStored) {
  PropertyBag bag;
  lpane->WriteProperties(bag);
  ASSERT_EQ(bag.entries().size(), 1u);
  EXPECT_EQ(bag.entries()[0].first, "BackColor");
  EXPECT_EQ(bag.entries()[0].second.toLong(), static_cast<OLE_COLOR>(0x8000000F)) << "even the design colour";
  lpane->setBackColor(0x303030);
  PropertyBag again;
  lpane->WriteProperties(again);
  EXPECT_EQ(again.ReadProperty("BackColor").toLong(), 0x303030);
}

TEST_F(LPaneTest, EmptyBagGivesBlack) {
  PropertyBag empty;
  auto p = std::dynamic_pointer_cast<VexLPane>(form->add("VexLPane", "LPane2", nullptr, 300, 3000, 1500, 900, &empty));
  EXPECT_EQ(p->BackColor(), 0) << "an absent key reads as empty, which is colour 0";
  EXPECT_EQ(screenPixel(kOffset + 5, 200 + 5), 0);
}

TEST_F(LPaneTest, NewPaneKeepsItsDesignColourWithoutInitProperties) {
  EXPECT_EQ(lpane->BackColor(), static_cast<OLE_COLOR>(0x8000000F));
}

TEST_F(LPaneTest, RoundTripWithAChildThroughAFormFile) {
  lpane->setBackColor(0x445566);
  auto pic = addPicture("Pic1", nullptr, 4000, 2000, 600, 450);
  lpane->AttachControl(pic->extenderRef());
  form->surface().setBackColor(static_cast<OLE_COLOR>(0x8000000F));  // the form's own colour is not under test
  std::string text = FormFile::save(*form);
  form->Unload();
  FormRef again = FormFile::load(text);
  auto p = std::dynamic_pointer_cast<VexLPane>(again->control("LPane1"));
  ASSERT_TRUE(p);
  EXPECT_EQ(p->BackColor(), 0x445566);
  ASSERT_EQ(p->ChildControls(), 1);
  EXPECT_EQ(placeOf(*again->control("Pic1")).Right, 200);
}

TEST_F(LPaneTest, MembersByNameAndFactory) {
  auto pic = addPicture("Pic1", nullptr, 4000, 2000, 600, 450);
  lpane->call("AttachControl", {Variant(ObjectRef(pic->extenderRef()))});
  EXPECT_EQ(lpane->get("ChildControls").toLong(), 1);
  EXPECT_EQ(lpane->get("GetChildControl").toObject(), pic->extenderRef());
  lpane->call("DetachControl");
  EXPECT_EQ(lpane->get("ChildControls").toLong(), 0);
  EXPECT_NO_THROW(lpane->call("FullResizeChild"));
  auto byId = ClassRegistry::instance().createById("A7B56462-D02E-409B-BD54-5F866B6C9CF7");
  ASSERT_TRUE(byId);
  EXPECT_EQ(byId->typeName(), "VexLPane");
}

}  // namespace
}  // namespace corvane
