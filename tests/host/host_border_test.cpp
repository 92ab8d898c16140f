// SPDX-License-Identifier: MIT
// The host's Appearance and BorderStyle: the window styles they give the control's window, the
// resize hook with the inner size, the back colour that follows the look, and bad values.
#include <gtest/gtest.h>

#include <corvane/host/form.h>
#include <corvane/host/hosted_control.h>
#include <corvane/platform/api.h>
#include <corvane/runtime/runtime_error.h>

#include <memory>
#include <string>
#include <vector>

#include "support/desktop_fixture.h"

namespace corvane {
namespace {

// A control that records the inner width at each resize hook.
class SizedControl : public HostedControl {
 public:
  explicit SizedControl(int16_t designBorder = 0) : m_designBorder(designBorder) {}
  std::string typeName() const override { return "SizedControl"; }
  DesignForm designForm() const override {
    DesignForm d;
    d.borderStyle = m_designBorder;
    return d;
  }
  void onResize() override { widths.push_back(surface().pixelWidth()); }
  std::vector<int32_t> widths;

 private:
  int16_t m_designBorder;
};

class HostBorderTest : public test::DesktopTest {
 protected:
  void SetUp() override {
    DesktopTest::SetUp();
    form = Form::create("Form1", 6000, 4500);
    form->Show();
    control = std::make_shared<SizedControl>();
    form->add(control, "SizedControl", "Sized1", nullptr, 0, 0, 100 * 15.0f, 50 * 15.0f);
    control->widths.clear();
  }
  int32_t style() { return user().GetWindowLongA(control->surface().hWnd(), GWL_STYLE); }
  int32_t exStyle() { return user().GetWindowLongA(control->surface().hWnd(), GWL_EXSTYLE); }

  FormRef form;
  std::shared_ptr<SizedControl> control;
};

TEST_F(HostBorderTest, ANewHostIs3DWithoutABorder) {
  EXPECT_EQ(control->Appearance(), 1);
  EXPECT_EQ(control->BorderStyle(), 0);
  EXPECT_EQ(style() & WS_BORDER, 0);
  EXPECT_EQ(exStyle() & WS_EX_CLIENTEDGE, 0);
  EXPECT_EQ(control->surface().pixelWidth(), 100);
}

TEST_F(HostBorderTest, TheStylesFollowBorderStyleAndAppearance) {
  control->setBorderStyle(1);
  EXPECT_NE(exStyle() & WS_EX_CLIENTEDGE, 0) << "fixed and 3-D: the sunken edge";
  EXPECT_EQ(style() & WS_BORDER, 0);
  EXPECT_EQ(control->surface().pixelWidth(), 96);
  control->setAppearance(0);
  EXPECT_EQ(exStyle() & WS_EX_CLIENTEDGE, 0) << "fixed and flat: the single line";
  EXPECT_NE(style() & WS_BORDER, 0);
  EXPECT_EQ(control->surface().pixelWidth(), 98);
  control->setBorderStyle(0);
  EXPECT_EQ(exStyle() & WS_EX_CLIENTEDGE, 0);
  EXPECT_EQ(style() & WS_BORDER, 0);
  EXPECT_EQ(control->surface().pixelWidth(), 100);
  EXPECT_TRUE(user().IsWindowVisible(control->surface().hWnd())) << "the other style bits stay";
}

TEST_F(HostBorderTest, EachChangeGivesOneResizeHookWithTheInnerSize) {
  control->setBorderStyle(1);
  control->setAppearance(0);  // two styles change, one resize
  control->setAppearance(0);  // nothing changes, no resize
  control->setBorderStyle(0);
  EXPECT_EQ(control->widths, (std::vector<int32_t>{96, 98, 100}));
}

TEST_F(HostBorderTest, AppearanceSwitchesOnlyTheSystemBackColourOfTheOldLook) {
  const OLE_COLOR face = static_cast<OLE_COLOR>(0x8000000F), window = static_cast<OLE_COLOR>(0x80000005);
  ASSERT_EQ(control->surface().BackColor(), face);
  control->setAppearance(0);
  EXPECT_EQ(control->surface().BackColor(), window);
  control->setAppearance(1);
  EXPECT_EQ(control->surface().BackColor(), face);
  control->surface().setBackColor(0x00C0FF);
  control->setAppearance(0);
  EXPECT_EQ(control->surface().BackColor(), 0x00C0FF) << "a colour of the user's stays";
}

TEST_F(HostBorderTest, ValuesOtherThanZeroAndOneAreError380) {
  for (int16_t bad : {int16_t(-1), int16_t(2), int16_t(32767)}) {
    try {
      control->setBorderStyle(bad);
      ADD_FAILURE() << "BorderStyle " << bad;
    } catch (const RuntimeError& e) {
      EXPECT_EQ(e.number(), 380);
    }
    try {
      control->setAppearance(bad);
      ADD_FAILURE() << "Appearance " << bad;
    } catch (const RuntimeError& e) {
      EXPECT_EQ(e.number(), 380);
    }
  }
  EXPECT_EQ(control->BorderStyle(), 0);
  EXPECT_EQ(control->Appearance(), 1);
}

TEST_F(HostBorderTest, ADesignedBorderIsThereBeforeTheFirstHook) {
  auto framed = std::make_shared<SizedControl>(1);
  form->add(framed, "SizedControl", "Sized2", nullptr, 0, 0, 100 * 15.0f, 50 * 15.0f);
  EXPECT_EQ(framed->BorderStyle(), 1);
  EXPECT_EQ(framed->widths, (std::vector<int32_t>{96})) << "the first layout already has the inner size";
}

TEST(HostBorderUnsitedTest, AnUnsitedHostKeepsTheValues) {
  SizedControl c;
  c.setBorderStyle(1);
  c.setAppearance(0);
  EXPECT_EQ(c.BorderStyle(), 1);
  EXPECT_EQ(c.Appearance(), 0);
}

}  // namespace
}  // namespace corvane
