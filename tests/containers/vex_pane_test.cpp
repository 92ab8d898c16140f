// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <corvane/host/form_file.h>
#include <corvane/host/property_bag.h>
#include <corvane/host/std_picture.h>
#include "pane_fixture.h"
#include "runtime/expect_error.h"
#include <corvane/runtime/class_registry.h>

namespace corvane {
namespace {

using test::ContainerTest;

class PaneTest : public ContainerTest {
 protected:
  void SetUp() override {
    ContainerTest::SetUp();
    pane = addPane("Pane1", 300, 300, 3000, 1500);
    ASSERT_TRUE(pane);
  }
  void TearDown() override {
    pane.reset();
    ContainerTest::TearDown();
  }
  size_t linesOfOneCall(const std::function<void()>& f) { return linesDrawn(pane->hdc(), f).size(); }

  std::shared_ptr<VexPane> pane;
};

const std::vector<std::string> kPaneKeys = {"BackColor",    "BackColor2",  "Gradient",    "GradientAngle", "BorderStyle",
                                            "CrossColor1",  "CrossColor2", "MousePointer", "MouseIcon",    "ScaleHeight",
                                            "ScaleLeft",    "ScaleTop",    "ScaleWidth",   "Enabled"};

// ---- design form and defaults ----

TEST_F(PaneTest, DesignFormIsTwipsGreyAndFiveThousandWide) {
  DesignForm d = pane->designForm();
  EXPECT_EQ(d.scaleMode, Surface::Twips);
  EXPECT_EQ(d.backColor, 0xC0C0C0);
  EXPECT_FLOAT_EQ(d.width, 5370);
  EXPECT_FLOAT_EQ(d.height, 3405);
  auto dropped = form->add("VexPane", "Pane2", nullptr, 0, 0);
  EXPECT_EQ(dropped->surface().pixelWidth(), 358);
  EXPECT_EQ(dropped->surface().pixelHeight(), 227);
}

TEST_F(PaneTest, NewPaneHasTheStatedDefaults) {
  // Every default of the pane's table, the scale included; only BackColor comes from the
  // container.
  EXPECT_FLOAT_EQ(pane->ScaleHeight(), 6300);
  EXPECT_FLOAT_EQ(pane->ScaleLeft(), 0);
  EXPECT_FLOAT_EQ(pane->ScaleTop(), 0);
  EXPECT_FLOAT_EQ(pane->ScaleWidth(), 8025);
  EXPECT_TRUE(pane->Enabled());
  EXPECT_EQ(pane->BackColor2(), 255);
  EXPECT_FALSE(pane->Gradient());
  EXPECT_FLOAT_EQ(pane->GradientAngle(), 130);
  EXPECT_EQ(pane->BorderStyle(), VexPane::btNone);
  EXPECT_EQ(pane->CrossColor1(), 0x808080);
  EXPECT_EQ(pane->CrossColor2(), 0xFFFFFF);
  EXPECT_EQ(pane->MousePointer(), 0);
  ASSERT_TRUE(pane->MouseIcon());
  EXPECT_EQ(pane->MouseIcon()->Handle(), 0);
}

TEST_F(PaneTest, NewPaneTakesItsContainersBackColor) {
  EXPECT_EQ(pane->BackColor(), 0x303030);
  form->surface().setBackColor(0x112233);
  EXPECT_EQ(pane->BackColor(), 0x303030) << "later changes of the container are not tracked";
  auto second = addPane("Pane2", 0, 0, 1500, 1500);
  EXPECT_EQ(second->BackColor(), 0x112233);
}

TEST_F(PaneTest, PaneInsideAPaneTakesTheOuterPanesBackColor) {
  pane->setBackColor(0x445566);
  auto inner = std::dynamic_pointer_cast<VexPane>(form->add("VexPane", "Inner", pane.get(), 0, 0, 900, 600));
  EXPECT_EQ(inner->BackColor(), 0x445566);
}

// A container without BackColor: InitProperties shrugs it off.
class PlainHost : public HostedControl {
 public:
  std::string typeName() const override { return "PlainHost"; }
};

TEST_F(PaneTest, ContainerWithoutBackColorLeavesThePaneUsable) {
  auto host = std::make_shared<PlainHost>();
  form->add(host, "PlainHost", "Host1", nullptr, 0, 3000, 3000, 1500);
  auto inner = std::dynamic_pointer_cast<VexPane>(form->add("VexPane", "Inner", host.get(), 0, 0, 1500, 900));
  ASSERT_TRUE(inner);
  EXPECT_EQ(inner->BackColor(), 0xC0C0C0) << "the design colour stays";
  EXPECT_NO_THROW(inner->setBorderStyle(VexPane::btRaised));
  EXPECT_FLOAT_EQ(inner->ScaleLeft(), 8);
}

// ---- setters ----

TEST_F(PaneTest, EverySetterReportsItsKeyEvenForAnUnchangedValue) {
  pane->controlSite().changedKeys.clear();
  form->setDirty(false);
  pane->setBackColor(pane->BackColor());
  pane->setBackColor2(255);
  pane->setGradient(false);
  pane->setGradientAngle(130);
  pane->setBorderStyle(VexPane::btNone);
  pane->setCrossColor1(0x808080);
  pane->setCrossColor2(0xFFFFFF);
  pane->setMousePointer(0);
  pane->setMouseIcon(LoadPicture());
  pane->setScaleHeight(100);
  pane->setScaleLeft(0);
  pane->setScaleTop(0);
  pane->setScaleWidth(100);
  EXPECT_EQ(pane->controlSite().changedKeys,
            (std::vector<std::string>{"BackColor", "BackColor2", "Gradient", "GradientAngle", "BorderStyle",
                                      "CrossColor1", "CrossColor2", "MousePointer", "MouseIcon", "ScaleHeight",
                                      "ScaleLeft", "ScaleTop", "ScaleWidth"}));
  EXPECT_TRUE(form->dirty());
}

TEST_F(PaneTest, DrawingSettersRepaintOnceEach) {
  pane->setBorderStyle(VexPane::btFlat);
  EXPECT_EQ(linesOfOneCall([&] { pane->setBackColor(0x101010); }), 4u);
  EXPECT_EQ(linesOfOneCall([&] { pane->setBackColor2(0x202020); }), 4u);
  EXPECT_EQ(linesOfOneCall([&] { pane->setGradientAngle(10); }), 4u);
  EXPECT_EQ(linesOfOneCall([&] { pane->setCrossColor1(0x303030); }), 4u);
  EXPECT_EQ(linesOfOneCall([&] { pane->setCrossColor2(0x404040); }), 4u);
  EXPECT_EQ(linesOfOneCall([&] { pane->setBorderStyle(VexPane::btFrame); }), 8u);
}

TEST_F(PaneTest, MouseAndScaleSettersDoNotRepaint) {
  pane->setBorderStyle(VexPane::btFlat);
  EXPECT_EQ(linesOfOneCall([&] { pane->setMousePointer(99); }), 0u);
  EXPECT_EQ(linesOfOneCall([&] { pane->setScaleWidth(500); }), 0u);
  EXPECT_FLOAT_EQ(pane->ScaleWidth(), 500);
  EXPECT_EQ(pane->MousePointer(), 99);
  EXPECT_EQ(pane->surface().MousePointer(), 99) << "forwarded to the surface";
}

TEST_F(PaneTest, ChangeColorsSetsBothWithOneRepaint) {
  pane->setBorderStyle(VexPane::btFlat);
  pane->controlSite().changedKeys.clear();
  Variant result;
  size_t lines = linesOfOneCall([&] { result = pane->ChangeColors(0x0000FF, 0x00FF00); });
  EXPECT_EQ(lines, 4u) << "one DrawPane";
  EXPECT_EQ(pane->BackColor(), 0x0000FF);
  EXPECT_EQ(pane->BackColor2(), 0x00FF00);
  EXPECT_EQ(pane->controlSite().changedKeys, (std::vector<std::string>{"BackColor", "BackColor2"}));
  EXPECT_TRUE(result.isEmpty());
  size_t separate = linesOfOneCall([&] {
    pane->setBackColor(0x0000FF);
    pane->setBackColor2(0x00FF00);
  });
  EXPECT_EQ(separate, 8u) << "two setters paint twice";
}

TEST_F(PaneTest, ChangeColorsByNameReturnsEmpty) {
  Variant r = pane->call("ChangeColors", {Variant(0x123456), Variant(0x654321)});
  EXPECT_TRUE(r.isEmpty());
  EXPECT_EQ(pane->BackColor(), 0x123456);
  EXPECT_EQ(pane->BackColor2(), 0x654321);
}

TEST_F(PaneTest, MembersAreReachableByName) {
  pane->let("BorderStyle", Variant(static_cast<int16_t>(4)));
  EXPECT_EQ(pane->BorderStyle(), VexPane::btRaised);
  EXPECT_EQ(pane->get("borderstyle").toInteger(), 4);
  pane->let("GradientAngle", Variant(45.5f));
  EXPECT_FLOAT_EQ(pane->get("GradientAngle").toSingle(), 45.5f);
  pane->let("Gradient", Variant(true));
  EXPECT_TRUE(pane->get("Gradient").toBool());
  pane->let("CrossColor1", Variant(0x11));
  pane->let("CrossColor2", Variant(0x22));
  pane->let("BackColor2", Variant(0x33));
  EXPECT_EQ(pane->get("CrossColor1").toLong(), 0x11);
  EXPECT_EQ(pane->get("CrossColor2").toLong(), 0x22);
  EXPECT_EQ(pane->get("BackColor2").toLong(), 0x33);
  EXPECT_FLOAT_EQ(pane->get("ScaleWidth").toSingle(), 2988);
  EXPECT_EQ(pane->get("hWnd").toLong(), pane->hWnd());
  EXPECT_EQ(pane->get("hDC").toLong(), pane->hdc());
  EXPECT_EQ(pane->extenderObject().get("CrossColor1").toLong(), 0x11) << "through the extender too";
}

TEST_F(PaneTest, CreatedByNameAndByClassIdentifier) {
  EXPECT_EQ(ClassRegistry::instance().create("VexPane")->typeName(), "VexPane");
  auto byId = ClassRegistry::instance().createById("5F1D171F-1695-4DE3-8845-19B6EBC13682");
  ASSERT_TRUE(byId);
  EXPECT_EQ(byId->typeName(), "VexPane");
}

// ---- events ----

TEST_F(PaneTest, KeyEventsRelayTheirArgumentsByReference) {
  std::vector<std::string> seen;
  pane->KeyDown.connect([&](int16_t& k, int16_t& s) {
    seen.push_back("KeyDown");
    k = 0;
    s = 7;
  });
  pane->KeyPress.connect([&](int16_t& a) {
    seen.push_back("KeyPress");
    a = 'X';
  });
  pane->KeyUp.connect([&](int16_t& k, int16_t&) {
    seen.push_back("KeyUp");
    k = 1;
  });
  int16_t code = 65, shift = 0, ascii = 'a';
  pane->surface().KeyDown(code, shift);
  EXPECT_EQ(code, 0);
  EXPECT_EQ(shift, 7);
  pane->surface().KeyPress(ascii);
  EXPECT_EQ(ascii, 'X');
  code = 65;
  pane->surface().KeyUp(code, shift);
  EXPECT_EQ(code, 1);
  EXPECT_EQ(seen, (std::vector<std::string>{"KeyDown", "KeyPress", "KeyUp"}));
}

TEST_F(PaneTest, MouseEventsRelayTheirArgumentsByReference) {
  float gotX = -1, gotY = -1;
  int16_t gotButton = 0;
  pane->MouseDown.connect([&](int16_t& b, int16_t&, float& x, float& y) {
    gotButton = b;
    gotX = x;
    gotY = y;
    x = 1;
  });
  int moves = 0, ups = 0;
  pane->MouseMove.connect([&](int16_t&, int16_t&, float&, float&) { ++moves; });
  pane->MouseUp.connect([&](int16_t&, int16_t&, float&, float&) { ++ups; });
  desktop().click(kOffset + 10, kOffset + 5);
  EXPECT_EQ(gotButton, 1);
  // In the pane's scale: 8025 by 6300 over 200 by 100 pixels.
  EXPECT_FLOAT_EQ(gotX, 10 * 8025.0f / 200);
  EXPECT_FLOAT_EQ(gotY, 5 * 6300.0f / 100);
  EXPECT_GE(moves, 1);
  EXPECT_EQ(ups, 1);
  int16_t b = 1, s = 0;
  float x = 5, y = 5;
  pane->surface().MouseDown(b, s, x, y);
  EXPECT_FLOAT_EQ(x, 1) << "the host's change reaches the caller";
}

TEST_F(PaneTest, ResizeEventFollowsASizeChange) {
  int resizes = 0;
  pane->Resize.connect([&] { ++resizes; });
  pane->extenderObject().setHeight(900);
  EXPECT_EQ(resizes, 1);
}

// ---- persistence ----

TEST_F(PaneTest, KeysAreWrittenAndReadInOrder) {
  PropertyBag bag;
  pane->WriteProperties(bag);
  EXPECT_EQ(bag.writeOrder(), kPaneKeys);
  addPane("Pane2", 0, 0, 1500, 900, &bag);
  EXPECT_EQ(bag.readOrder(), kPaneKeys);
}

TEST_F(PaneTest, BagAfterInitPropertiesHoldsNoDefault) {
  form->surface().setBackColor(static_cast<OLE_COLOR>(0x8000000F));
  auto fresh = addPane("Pane2", 0, 0, 1500, 900);
  PropertyBag bag;
  fresh->WriteProperties(bag);
  // InitProperties gives every key its stored default (the container's colour is the default
  // colour here), and a pane without a border leaves its scale alone when it draws.
  std::vector<std::string> keys;
  for (auto& [k, v] : bag.entries()) keys.push_back(k);
  EXPECT_EQ(keys, std::vector<std::string>{});
}

TEST_F(PaneTest, NewPaneAndOneFromAnEmptyBagAgree) {
  form->surface().setBackColor(static_cast<OLE_COLOR>(0x8000000F));
  auto fresh = addPane("Pane2", 0, 0, 1500, 900);
  PropertyBag empty;
  auto loaded = addPane("Pane3", 0, 0, 1500, 900, &empty);
  EXPECT_EQ(loaded->BackColor(), fresh->BackColor());
  EXPECT_EQ(loaded->BackColor2(), fresh->BackColor2());
  EXPECT_EQ(loaded->Gradient(), fresh->Gradient());
  EXPECT_FLOAT_EQ(loaded->GradientAngle(), fresh->GradientAngle());
  EXPECT_EQ(loaded->BorderStyle(), fresh->BorderStyle());
  EXPECT_EQ(loaded->CrossColor1(), fresh->CrossColor1());
  EXPECT_EQ(loaded->CrossColor2(), fresh->CrossColor2());
  EXPECT_EQ(loaded->MousePointer(), fresh->MousePointer());
  EXPECT_EQ(loaded->MouseIcon()->Handle(), fresh->MouseIcon()->Handle());
  EXPECT_EQ(loaded->Enabled(), fresh->Enabled());
  EXPECT_FLOAT_EQ(loaded->ScaleWidth(), fresh->ScaleWidth());
  EXPECT_FLOAT_EQ(loaded->ScaleHeight(), fresh->ScaleHeight());
  EXPECT_FLOAT_EQ(loaded->ScaleLeft(), fresh->ScaleLeft());
  EXPECT_FLOAT_EQ(loaded->ScaleTop(), fresh->ScaleTop());
  EXPECT_FLOAT_EQ(fresh->ScaleWidth(), 8025);
  EXPECT_FLOAT_EQ(fresh->ScaleHeight(), 6300);
}

TEST_F(PaneTest, EnabledIsPersistedWithDefaultTrue) {
  PropertyBag fresh;
  pane->WriteProperties(fresh);
  EXPECT_FALSE(fresh.contains("Enabled")) << "true is the default";
  pane->setEnabled(false);
  PropertyBag bag;
  pane->WriteProperties(bag);
  ASSERT_TRUE(bag.contains("Enabled"));
  EXPECT_FALSE(bag.ReadProperty("Enabled").toBool());
  auto copy = addPane("Pane2", 0, 0, 1500, 900, &bag);
  EXPECT_FALSE(copy->Enabled());
  EXPECT_FALSE(copy->surface().Enabled()) << "at run time the surface follows";
  PropertyBag empty;
  EXPECT_TRUE(addPane("Pane3", 0, 0, 1500, 900, &empty)->Enabled());
}

TEST_F(PaneTest, ControlsByNameIsACollectionWithCountAndItem) {
  auto a = form->add("PictureBox", "Pic1", pane.get(), 0, 0, 300, 300);
  auto b = form->add("PictureBox", "Pic2", pane.get(), 300, 0, 300, 300);
  form->add("PictureBox", "Outside", nullptr, 0, 3000, 300, 300);
  ObjectRef controls = pane->get("Controls").toObject();
  ASSERT_TRUE(controls);
  EXPECT_EQ(controls->get("Count").toLong(), 2);
  EXPECT_EQ(controls->get("Item", {int32_t{0}}).toObject(), a->extenderRef());
  EXPECT_EQ(controls->call("Item", {int32_t{1}}).toObject(), b->extenderRef());
  EXPECT_EQ(controls->get("Item", {"pic2"}).toObject(), b->extenderRef()) << "by name, in any case";
  EXPECT_RUNTIME_ERROR(controls->get("Item", {int32_t{2}}), 9);
  EXPECT_RUNTIME_ERROR(controls->get("Item", {"Outside"}), 9);
  EXPECT_EQ(pane->extenderObject().get("Controls").toObject()->get("Count").toLong(), 2)
      << "through the wrapper";
}

TEST_F(PaneTest, ReadPropertiesEndsWithOneDraw) {
  PropertyBag bag;
  bag.set("BorderStyle", static_cast<int16_t>(VexPane::btFrame));
  auto p = std::make_shared<VexPane>();
  form->add(p, "VexPane", "Pane2", nullptr, 0, 0, 1500, 900);
  EXPECT_EQ(linesDrawn(p->hdc(), [&] { p->ReadProperties(bag); }).size(), 8u);
  EXPECT_EQ(p->BorderStyle(), VexPane::btFrame);
}

TEST_F(PaneTest, WrongTypedKeysAreSkipped) {
  PropertyBag bag;
  bag.set("BackColor2", "kein Wert");
  bag.set("GradientAngle", "auch nicht");
  bag.set("BorderStyle", static_cast<int16_t>(VexPane::btRaised));
  std::shared_ptr<VexPane> p;
  ASSERT_NO_THROW(p = addPane("Pane2", 0, 0, 1500, 900, &bag));
  EXPECT_EQ(p->BackColor2(), 255);
  EXPECT_FLOAT_EQ(p->GradientAngle(), 130);
  EXPECT_EQ(p->BorderStyle(), VexPane::btRaised) << "the keys after the failing ones are read";
}

TEST_F(PaneTest, RoundTripThroughABag) {
  pane->setBackColor(0x123456);
  pane->setBackColor2(0x654321);
  pane->setGradient(true);
  pane->setGradientAngle(45);
  pane->setBorderStyle(VexPane::btRaised);
  pane->setCrossColor1(0x0000FF);
  pane->setCrossColor2(0x00FF00);
  pane->setMousePointer(99);
  PropertyBag bag;
  pane->WriteProperties(bag);
  auto copy = addPane("Pane2", 300, 2400, 3000, 1500, &bag);
  EXPECT_EQ(copy->BackColor(), 0x123456);
  EXPECT_EQ(copy->BackColor2(), 0x654321);
  EXPECT_TRUE(copy->Gradient());
  EXPECT_FLOAT_EQ(copy->GradientAngle(), 45);
  EXPECT_EQ(copy->BorderStyle(), VexPane::btRaised);
  EXPECT_EQ(copy->CrossColor1(), 0x0000FF);
  EXPECT_EQ(copy->CrossColor2(), 0x00FF00);
  EXPECT_EQ(copy->MousePointer(), 99);
  EXPECT_FLOAT_EQ(copy->ScaleLeft(), 8);
  EXPECT_FLOAT_EQ(copy->ScaleWidth(), 2988);
  const Canvas& screen = desktop().screen();
  for (int32_t y = 0; y < 100; ++y)
    for (int32_t x = 0; x < 200; ++x)
      ASSERT_EQ(screen.pixel(kOffset + x, kOffset + y), screen.pixel(kOffset + x, 160 + y)) << x << "," << y;
}

TEST_F(PaneTest, RoundTripThroughAFormFile) {
  pane->setBorderStyle(VexPane::btCrossFull);
  pane->setGradient(true);
  pane->setGradientAngle(130.5f);
  pane->setCrossColor2(0x0080FF);
  form->surface().setBackColor(static_cast<OLE_COLOR>(0x8000000F));  // the form's own colour is not under test
  std::string text = FormFile::save(*form);
  form->Unload();
  FormRef again = FormFile::load(text);
  auto p = std::dynamic_pointer_cast<VexPane>(again->control("Pane1"));
  ASSERT_TRUE(p);
  EXPECT_EQ(p->BorderStyle(), VexPane::btCrossFull);
  EXPECT_TRUE(p->Gradient());
  EXPECT_FLOAT_EQ(p->GradientAngle(), 130.5f);
  EXPECT_EQ(p->CrossColor2(), 0x0080FF);
  EXPECT_FLOAT_EQ(p->ScaleWidth(), 3000);
  EXPECT_EQ(FormFile::save(*again), text);
}

}  // namespace
}  // namespace corvane
