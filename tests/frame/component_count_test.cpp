// SPDX-License-Identifier: MIT
#include <corvane/containers/vex_pane.h>
#include <corvane/frame/gradient.h>
#include <corvane/host/form.h>
#include <corvane/host/screen.h>
#include <corvane/runtime/class_registry.h>
#include <gtest/gtest.h>

#include <memory>

#include "support/desktop_fixture.h"

namespace corvane {
namespace {

using LiveComponentObjects = test::DesktopTest;

TEST_F(LiveComponentObjects, FormsAloneDoNotKeepTheComponentLoaded) {
  ASSERT_TRUE(ClassRegistry::canUnloadNow()) << "no test may leave an object of the component alive";
  FormRef form = Form::create("frmCount");
  form->Show();
  Screen::instance().TwipsPerPixelX();  // the host's global objects exist as well
  EXPECT_EQ(ClassRegistry::liveObjects(), 0);
  EXPECT_TRUE(ClassRegistry::canUnloadNow());
}

TEST_F(LiveComponentObjects, ReleasingTheLastControlAllowsUnloading) {
  FormRef form = Form::create("frmCount");
  const int64_t before = ClassRegistry::liveObjects();
  HostedControlRef pane = form->add("VexPane", "Pane1", nullptr, 0, 0, 1500, 900);
  EXPECT_EQ(ClassRegistry::liveObjects(), before + 1);
  EXPECT_FALSE(ClassRegistry::canUnloadNow());
  ObjectRef gradient = ClassRegistry::instance().create("CGradient");
  EXPECT_EQ(ClassRegistry::liveObjects(), before + 2);
  gradient.reset();
  EXPECT_EQ(ClassRegistry::liveObjects(), before + 1);
  form->Unload();
  pane.reset();
  EXPECT_EQ(ClassRegistry::liveObjects(), before);
  EXPECT_TRUE(ClassRegistry::canUnloadNow()) << "the form object is still held here, and does not count";
}

}  // namespace
}  // namespace corvane
