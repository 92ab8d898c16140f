// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <corvane/host/extender.h>
#include <corvane/host/form.h>
#include <corvane/host/picture_box.h>
#include <corvane/host/property_bag.h>
#include <corvane/host/screen.h>
#include <corvane/runtime/class_registry.h>
#include "support/desktop_fixture.h"

namespace corvane {
namespace {

// A control that records the order of the hooks the host calls.
class RecordingControl : public HostedControl {
 public:
  std::string typeName() const override { return "RecordingControl"; }
  void Initialize() override { calls.push_back("Initialize"); }
  void InitProperties() override { calls.push_back("InitProperties"); }
  void ReadProperties(PropertyBag&) override { calls.push_back("ReadProperties"); }
  void WriteProperties(PropertyBag&) override { calls.push_back("WriteProperties"); }
  void onResize() override { calls.push_back("Resize"); }
  void Show() override { calls.push_back("Show"); }
  void Terminate() override { calls.push_back("Terminate"); }
  std::vector<std::string> calls;
};

class HostTest : public test::DesktopTest {
 protected:
  void SetUp() override {
    DesktopTest::SetUp();
    form = Form::create("Form1", 6000, 4500);
    form->Show();
  }
  FormRef form;
};

TEST_F(HostTest, NewControlGetsInitPropertiesThenResizeThenShow) {
  auto c = std::make_shared<RecordingControl>();
  form->add(c, "RecordingControl", "Rec1");
  EXPECT_EQ(c->calls, (std::vector<std::string>{"Initialize", "InitProperties", "Resize", "Show"}));
  form->Unload();
  EXPECT_EQ(c->calls.back(), "Terminate");
}

TEST_F(HostTest, StoredControlGetsReadPropertiesInstead) {
  auto c = std::make_shared<RecordingControl>();
  PropertyBag bag;
  form->add(c, "RecordingControl", "Rec1", nullptr, 0, 0, -1, -1, &bag);
  EXPECT_EQ(c->calls, (std::vector<std::string>{"Initialize", "ReadProperties", "Resize", "Show"}));
}

TEST_F(HostTest, TwipsPerPixelAreReadFromTheScreenAtEachUse) {
  EXPECT_FLOAT_EQ(Screen::instance().TwipsPerPixelX(), 15);
  desktop().setTwipsPerPixel(12, 12);
  EXPECT_FLOAT_EQ(Screen::instance().TwipsPerPixelX(), 12);
  EXPECT_FLOAT_EQ(Screen::instance().TwipsPerPixelY(), 12);
}

// The screen's resolution is kept between uses, but never across desktops: one made where the last
// one was (the same address) still has its own.
TEST_F(HostTest, TwipsPerPixelFollowAReplacedDesktop) {
  EXPECT_FLOAT_EQ(Screen::instance().TwipsPerPixelX(), 15);
  for (int32_t twips : {10, 12, 10}) {
    Desktop::Options o;
    o.twipsPerPixelX = twips;
    o.twipsPerPixelY = twips * 2;
    auto other = std::make_unique<Desktop>(o);
    setPlatform(other.get());
    EXPECT_FLOAT_EQ(Screen::instance().TwipsPerPixelX(), static_cast<float>(twips));
    EXPECT_FLOAT_EQ(Screen::instance().TwipsPerPixelY(), static_cast<float>(twips * 2));
    setPlatform(&desktop());
  }
  EXPECT_FLOAT_EQ(Screen::instance().TwipsPerPixelX(), 15);
}

TEST_F(HostTest, ExtenderPlacesTheControlInTheContainersScale) {
  auto c = form->add("PictureBox", "Pic1", nullptr, 300, 150, 1500, 750);
  RECT r;
  desktop().windows().GetWindowRect(c->surface().hWnd(), r);
  EXPECT_EQ(r, (RECT{20, 10, 120, 60}));
  Extender& e = c->extenderObject();
  EXPECT_FLOAT_EQ(e.Left(), 300);
  EXPECT_FLOAT_EQ(e.Width(), 1500);
  e.Move(0, 0, 3000, 1500);
  desktop().windows().GetWindowRect(c->surface().hWnd(), r);
  EXPECT_EQ(r, (RECT{0, 0, 200, 100}));
}

TEST_F(HostTest, ControlsInAPixelScaledContainerArePlacedInPixels) {
  auto box = form->add("PictureBox", "Box", nullptr, 0, 0, 3000, 3000);
  box->surface().setScaleMode(Surface::Pixels);
  auto inner = form->add("PictureBox", "Inner", box.get(), 10, 20, 30, 40);
  RECT r;
  desktop().windows().GetWindowRect(inner->surface().hWnd(), r);
  EXPECT_EQ(r, (RECT{10, 20, 40, 60}));
  EXPECT_FLOAT_EQ(inner->extenderObject().Width(), 30);
}

TEST_F(HostTest, ContainedControlsListsTheChildrenInOrder) {
  auto box = form->add("PictureBox", "Box", nullptr, 0, 0, 3000, 3000);
  form->add("PictureBox", "A", box.get());
  form->add("PictureBox", "B", box.get());
  form->add("PictureBox", "C");
  auto inside = box->ContainedControls();
  ASSERT_EQ(inside.size(), 2u);
  EXPECT_EQ(inside[0]->Name(), "A");
  EXPECT_EQ(inside[1]->Name(), "B");
}

TEST_F(HostTest, MovingAControlIntoAnotherContainerReparentsItsWindow) {
  auto box = form->add("PictureBox", "Box", nullptr, 1500, 1500, 3000, 3000);
  auto c = form->add("PictureBox", "C", nullptr, 0, 0, 600, 600);
  c->extenderObject().setContainer(box->extenderRef());
  EXPECT_EQ(desktop().windows().GetParent(c->surface().hWnd()), box->surface().hWnd());
  EXPECT_EQ(box->ContainedControls().size(), 1u);
  EXPECT_THROW(box->extenderObject().setContainer(c->extenderRef()), RuntimeError) << "no control inside its own child";
}

TEST_F(HostTest, ExtenderContainerIsTheFormOrTheContainingControl) {
  auto box = form->add("PictureBox", "Box");
  auto inner = form->add("PictureBox", "Inner", box.get());
  EXPECT_EQ(box->extenderObject().Container(), form);
  EXPECT_EQ(inner->extenderObject().Container(), box->extenderRef());
  EXPECT_EQ(inner->extenderObject().Container()->get("Name").toString(), "Box");
}

TEST_F(HostTest, MissingMemberOfAContainerIsError438) {
  try {
    form->get("NoSuchMember");
    FAIL();
  } catch (const RuntimeError& e) {
    EXPECT_EQ(e.number(), 438);
  }
}

TEST_F(HostTest, AmbientReportsModeFontAndName) {
  auto c = form->add("PictureBox", "Pic7");
  EXPECT_TRUE(c->ambient().UserMode());
  form->setUserMode(false);
  EXPECT_FALSE(c->ambient().UserMode()) << "read afresh, never cached";
  EXPECT_EQ(c->ambient().Font(), form->Font());
  EXPECT_EQ(c->ambient().DisplayName(), "Pic7");
}

TEST_F(HostTest, PropertyBagSkipsDefaultsAndReadsDefaultsForMissingKeys) {
  PropertyBag bag;
  bag.WriteProperty("A", int32_t(5), int32_t(5));
  bag.WriteProperty("B", int32_t(6), int32_t(5));
  EXPECT_FALSE(bag.contains("A"));
  EXPECT_TRUE(bag.contains("B"));
  EXPECT_EQ(bag.ReadProperty("A", int32_t(7)).toLong(), 7);
  EXPECT_EQ(bag.ReadProperty("B", int32_t(7)).toLong(), 6);
  EXPECT_EQ(bag.writeOrder(), (std::vector<std::string>{"A", "B"}));
}

TEST_F(HostTest, FormsAreFoundByNameUntilUnloaded) {
  EXPECT_EQ(Forms::find("form1"), form);
  form->Unload();
  EXPECT_EQ(Forms::find("Form1"), nullptr);
}

TEST_F(HostTest, DuplicateControlNamesAreRefused) {
  form->add("PictureBox", "Same");
  EXPECT_THROW(form->add("PictureBox", "same"), RuntimeError);
}

TEST_F(HostTest, UnknownClassNameIsAClearError) {
  try {
    form->add("NoSuchControl", "X");
    FAIL();
  } catch (const RuntimeError& e) {
    EXPECT_EQ(e.number(), 429);
  }
}

TEST_F(HostTest, EveryClassOfTheLibraryCanBeCreated) {
  // A class listed without a factory would fail with error 429 when a form asks for it.
  for (const ClassInfo& c : ClassRegistry::instance().all()) EXPECT_TRUE(c.factory) << c.name;
}

class SurfaceTest : public HostTest {
 protected:
  void SetUp() override {
    HostTest::SetUp();
    pic = form->add("PictureBox", "Pic", nullptr, 0, 0, 3000, 1500);  // 200 by 100 pixels
  }
  Surface& s() { return pic->surface(); }
  HostedControlRef pic;
};

TEST_F(SurfaceTest, TwipScaleFollowsTheSize) {
  EXPECT_FLOAT_EQ(s().ScaleWidth(), 3000);
  EXPECT_FLOAT_EQ(s().ScaleHeight(), 1500);
  EXPECT_EQ(s().toPixelX(150), 10);
  EXPECT_EQ(s().toPixelX(22.5f), 2) << "1.5 pixels round to the even 2";
  EXPECT_EQ(s().toPixelX(37.5f), 2) << "2.5 pixels round to the even 2";
}

TEST_F(SurfaceTest, UserScaleMapsTheGivenRangeOntoTheClientArea) {
  s().Scale(0, 0, 100, 50);
  EXPECT_EQ(s().ScaleMode(), Surface::User);
  EXPECT_EQ(s().toPixelX(50), 100);
  EXPECT_EQ(s().toPixelY(25), 50);
  s().setScaleLeft(10);
  EXPECT_EQ(s().toPixelX(10), 0);
}

TEST_F(SurfaceTest, HiMetricConvertsToPixelsAndTwips) {
  EXPECT_NEAR(s().ScaleX(2540, 8, 3), 96, 1e-3);
  EXPECT_NEAR(s().ScaleX(2540, 8), 1440, 1e-2);
  EXPECT_NEAR(s().ScaleY(15, 1, 3), 1, 1e-6);
}

TEST_F(SurfaceTest, LineIncludesItsEndPoint) {
  s().setScaleMode(Surface::Pixels);
  s().setBackColor(0xFFFFFF);
  s().Line(10, 10, 20, 10, 0x0000FF);
  Canvas& c = *desktop().windows().windowCanvas(s().hWnd());
  EXPECT_EQ(c.pixel(10, 10), 0x0000FF);
  EXPECT_EQ(c.pixel(20, 10), 0x0000FF);
  EXPECT_EQ(c.pixel(21, 10), 0xFFFFFF);
  EXPECT_EQ(c.pixel(9, 10), 0xFFFFFF);
}

TEST_F(SurfaceTest, BoxOutlinesAndFilledBoxesIncludeBothCorners) {
  s().setScaleMode(Surface::Pixels);
  s().setBackColor(0xFFFFFF);
  s().Line(10, 10, 20, 15, 0x00FF00, true);
  Canvas& c = *desktop().windows().windowCanvas(s().hWnd());
  EXPECT_EQ(c.pixel(20, 15), 0x00FF00);
  EXPECT_EQ(c.pixel(10, 15), 0x00FF00);
  EXPECT_EQ(c.pixel(15, 12), 0xFFFFFF);
  s().Line(30, 30, 32, 32, 0xFF0000, true, true);
  EXPECT_EQ(c.pixel(32, 32), 0xFF0000);
  EXPECT_EQ(c.pixel(31, 31), 0xFF0000);
  EXPECT_EQ(c.pixel(33, 33), 0xFFFFFF);
}

TEST_F(SurfaceTest, ClsClearsToTheBackColourAndResetsThePrintPosition) {
  s().setBackColor(0x123456);
  s().setCurrentX(500);
  s().Cls();
  EXPECT_FLOAT_EQ(s().CurrentX(), 0);
  EXPECT_EQ(desktop().windows().windowCanvas(s().hWnd())->pixel(5, 5), 0x123456);
}

TEST_F(SurfaceTest, PrintMovesThePositionBehindTheTextOrToTheNextLine) {
  float w = s().TextWidth("abc");
  float h = s().TextHeight("abc");
  EXPECT_GT(w, 0);
  s().Print("abc", false);
  EXPECT_FLOAT_EQ(s().CurrentX(), w);
  s().Print("abc");
  EXPECT_FLOAT_EQ(s().CurrentX(), 0);
  EXPECT_FLOAT_EQ(s().CurrentY(), h);
}

// A text of several lines is as wide as its widest line, wherever the break lies: near the start
// or the end of a short text, within its first or last bytes, or in the middle of a long one.
TEST_F(SurfaceTest, TextWidthOfSeveralLinesIsTheWidestLine) {
  auto ws = [](size_t n) { return std::string(n, 'W'); };
  for (size_t length = 1; length <= 40; ++length) {
    EXPECT_FLOAT_EQ(s().TextWidth(ws(length)), static_cast<float>(length) * s().TextWidth("W")) << length;
    for (size_t at = 0; at < length; ++at)
      for (const char lineBreak : {'\n', '\r'}) {
        std::string text = ws(length);
        text[at] = lineBreak;
        const float widest = s().TextWidth(ws(std::max(at, length - 1 - at)));
        EXPECT_FLOAT_EQ(s().TextWidth(text), widest) << length << " " << at << " " << int{lineBreak};
      }
  }
  EXPECT_FLOAT_EQ(s().TextWidth("WW\r\nW"), s().TextWidth("WW"));
  EXPECT_FLOAT_EQ(s().TextWidth("W\r\nWWW\nWW"), s().TextWidth("WWW"));
}

TEST_F(SurfaceTest, TextHeightCountsLinesIncludingATrailingBreak) {
  float one = s().TextHeight("");
  EXPECT_GT(one, 0);
  EXPECT_FLOAT_EQ(s().TextHeight("ABCD\r\n"), 2 * one);
  EXPECT_FLOAT_EQ(s().TextHeight("ABCD\r\nABCD\r\n"), 3 * one);
}

TEST_F(SurfaceTest, InvalidColourIsRefusedWithError380) {
  try {
    s().setForeColor(-5);
    FAIL();
  } catch (const RuntimeError& e) {
    EXPECT_EQ(e.number(), 380);
  }
  s().setForeColor(static_cast<OLE_COLOR>(0x80000012));
  EXPECT_EQ(s().ForeColor(), static_cast<OLE_COLOR>(0x80000012));
}

TEST_F(SurfaceTest, MouseInputBecomesSurfaceEventsInTheScale) {
  std::vector<std::string> seen;
  s().MouseDown.connect([&](int16_t& b, int16_t&, float& x, float& y) {
    seen.push_back("down " + std::to_string(b) + " " + std::to_string(int(x)) + " " + std::to_string(int(y)));
  });
  s().MouseUp.connect([&](int16_t&, int16_t&, float&, float&) { seen.push_back("up"); });
  s().Click.connect([&] { seen.push_back("click"); });
  s().DblClick.connect([&] { seen.push_back("dblclick"); });
  desktop().doubleClick(10, 20);
  EXPECT_EQ(seen, (std::vector<std::string>{"down 1 150 300", "up", "click", "dblclick", "up"}));
}

}  // namespace
}  // namespace corvane

namespace corvane {
namespace {

TEST_F(SurfaceTest, GrowingAWindowShowsTheBackColourInTheNewArea) {
  s().setBackColor(0x00FF00);
  pic->extenderObject().Move(0, 0, 4500, 2250);  // 300 by 150 pixels
  Canvas& c = *desktop().windows().windowCanvas(s().hWnd());
  EXPECT_EQ(c.pixel(250, 20), 0x00FF00);
  EXPECT_EQ(c.pixel(20, 120), 0x00FF00);
  EXPECT_EQ(c.pixel(299, 149), 0x00FF00);
}

}  // namespace
}  // namespace corvane
