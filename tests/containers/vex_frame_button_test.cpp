// SPDX-License-Identifier: MIT
#include <corvane/containers/vex_frame_button.h>
#include <corvane/host/extender.h>
#include <corvane/host/picture_box.h>
#include <corvane/host/property_bag.h>
#include <gtest/gtest.h>

#include <memory>

#include "support/desktop_fixture.h"

namespace corvane {
namespace {

// A host's command button as the frame button sees it: GreyDisabledPicture reads true.
class TestButton : public HostedControl {
 public:
  std::string typeName() const override { return "CommandButton"; }
  bool enabled = true;

 protected:
  const Dispatch* dispatch() const override {
    static const Dispatch d = [] {
      Dispatch t;
      DispatchBuilder<TestButton>(t)
          .get("GreyDisabledPicture", [](TestButton&) { return true; })
          .get("hWnd", [](TestButton& b) { return b.surface().hWnd(); })
          .get("Enabled", [](TestButton& b) { return b.enabled; });
      t.addSetter("Enabled", [](Object& o, Dispatch::Args&, const Variant& v) {
        static_cast<TestButton&>(o).enabled = v.toBool();
      });
      return t;
    }();
    return &d;
  }
};

class FrameButtonTest : public test::DesktopTest {
 protected:
  void SetUp() override {
    DesktopTest::SetUp();
    form = Form::create("Form1", 6000, 4500, true);
    form->Show();
    fb = std::dynamic_pointer_cast<VexFrameButton>(
        form->add("VexFrameButton", "FrameButton1", nullptr, 300, 300));
  }
  void TearDown() override {
    fb.reset();
    form.reset();
    DesktopTest::TearDown();
  }
  std::shared_ptr<TestButton> addButton(const std::string& name, float left = 100) {
    auto b = std::make_shared<TestButton>();
    form->add(b, "CommandButton", name, fb.get(), left, 45, 600, 210);
    return b;
  }
  FormRef form;
  std::shared_ptr<VexFrameButton> fb;
};

TEST_F(FrameButtonTest, DesignFormAndBorderColour) {
  EXPECT_EQ(fb->surface().Width(), 2190);
  EXPECT_EQ(fb->surface().Height(), 300);
  EXPECT_EQ(fb->BorderColor(), 0xE8E7E6u);
  fb->setBorderColor(0x0000FF);
  EXPECT_EQ(fb->surface().BackColor(), 0x0000FFu);
  EXPECT_TRUE(fb->ContainedControls().empty()) << "fra and shp are no contained controls";
}

TEST_F(FrameButtonTest, ButtonIsPinnedToTheRightInFrontOfASquareFrame) {
  auto b = addButton("cmdGo");
  fb->Show();
  EXPECT_EQ(fb->buttonIndex(), 0);
  EXPECT_EQ(b->extenderObject().Left(), 2190 - 600 - 45) << "a right margin equal to its top margin";
  Extender& fra = *fb->fra().extenderRef();
  EXPECT_EQ(fra.Left(), 2190 - 300);
  EXPECT_EQ(fra.Top(), 0);
  EXPECT_EQ(fra.Width(), 300);
  EXPECT_EQ(fra.Height(), 300);
  Extender& shp = *fb->shp().extenderRef();
  EXPECT_EQ(shp.Left(), -15);
  EXPECT_EQ(shp.Width(), 315);
  EXPECT_EQ(shp.Height(), 300);
  // The button lies on top of fra.
  auto children = platform().user().childWindows(fb->hWnd());
  ASSERT_GE(children.size(), 2u);
  EXPECT_EQ(children.back(), b->surface().hWnd());
}

TEST_F(FrameButtonTest, WithoutAButtonItKeepsLooking) {
  auto other = form->add("PictureBox", "picNoButton", fb.get(), 0, 0, 300, 200);
  fb->Show();
  EXPECT_EQ(fb->buttonIndex(), -1);
  EXPECT_EQ(other->extenderObject().Left(), 0) << "nothing is laid out";
  addButton("cmdLate");
  fb->onResize();
  EXPECT_EQ(fb->buttonIndex(), 0);
}

TEST_F(FrameButtonTest, WithoutAButtonTheSquareStillGoesToTheRightEnd) {
  // The button's own statement fails without a button; the square's placement still runs.
  form->add("PictureBox", "picNoButton", fb.get(), 0, 0, 300, 200);
  fb->onResize();
  ASSERT_EQ(fb->buttonIndex(), -1);
  Extender& fra = *fb->fra().extenderRef();
  EXPECT_GT(fb->surface().Width(), fra.Width());
  EXPECT_EQ(fra.Left(), fb->surface().Width() - fra.Width());
}

TEST_F(FrameButtonTest, WithTwoButtonsOnlyOneIsLaidOutButBothAreEnabledOrNot) {
  auto first = addButton("cmdA", 90);
  auto second = addButton("cmdB", 200);
  fb->Show();
  // The host's collection numbers the control added last first.
  EXPECT_EQ(second->extenderObject().Left(), 1545);
  EXPECT_EQ(first->extenderObject().Left(), 90);
  fb->setEnabled(false);
  EXPECT_FALSE(first->enabled);
  EXPECT_FALSE(second->enabled);
  EXPECT_FALSE(fb->Enabled());
}

TEST_F(FrameButtonTest, EnabledIsPersisted) {
  PropertyBag bag;
  fb->WriteProperties(bag);
  EXPECT_TRUE(bag.entries().empty());
  fb->setEnabled(false);
  fb->WriteProperties(bag);
  EXPECT_EQ(bag.writeOrder().back(), "Enabled");
  auto copy = std::dynamic_pointer_cast<VexFrameButton>(
      form->add("VexFrameButton", "FrameButton2", nullptr, 0, 0, -1, -1, &bag));
  EXPECT_FALSE(copy->Enabled());
}

}  // namespace
}  // namespace corvane
