// SPDX-License-Identifier: MIT
#include <corvane/containers/frame_box_settings.h>
#include <corvane/containers/frame_settings.h>
#include <corvane/containers/vex_frame.h>
#include <corvane/containers/vex_frame_box.h>
#include <corvane/runtime/class_registry.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "runtime/expect_error.h"
#include "support/desktop_fixture.h"

namespace corvane {
namespace {

class FramePagesTest : public test::DesktopTest {
 protected:
  void SetUp() override {
    DesktopTest::SetUp();
    form = Form::create("Form1", 9000, 9000, false);  // a form in the designer
    form->Show();
    frameA = std::dynamic_pointer_cast<VexFrame>(form->add("VexFrame", "FrameA", nullptr, 0, 0));
    frameB = std::dynamic_pointer_cast<VexFrame>(form->add("VexFrame", "FrameB", nullptr, 3000, 0));
    boxA = std::dynamic_pointer_cast<VexFrameBox>(
        form->add("VexFrameBox", "BoxA", nullptr, 0, 2000, 3600, 3000));
    boxB = std::dynamic_pointer_cast<VexFrameBox>(
        form->add("VexFrameBox", "BoxB", nullptr, 4000, 2000, 3600, 3000));
  }
  void TearDown() override {
    frameA.reset();
    frameB.reset();
    boxA.reset();
    boxB.reset();
    form.reset();
    DesktopTest::TearDown();
  }
  FormRef form;
  std::shared_ptr<VexFrame> frameA, frameB;
  std::shared_ptr<VexFrameBox> boxA, boxB;
};

TEST_F(FramePagesTest, FrameSettingsCarriesItsGermanCaptions) {
  FrameSettings page;
  EXPECT_EQ(page.Caption(), "Einstellungen");
  EXPECT_EQ(page.designWidth(), 5850);
  EXPECT_EQ(page.designHeight(), 3465);
  EXPECT_EQ(page.field("chkExpandiert").caption, "Expandiert (Aufgeklappt bzw. Zugeklappt)");
  EXPECT_EQ(page.field("chkExpandierbar").caption, "Expandierbar (Auf- und Zuklappen erlauben?)");
  EXPECT_EQ(page.field("chkExpandiert").kind, PropertyPage::CheckBox);
}

TEST_F(FramePagesTest, FrameSettingsReadsAndWritesOnlyTheFirstSelected) {
  frameA->setExpandierbar(true);
  frameB->setExpandierbar(false);
  FrameSettings page;
  page.setSelectedControls({frameA->extenderRef(), frameB->extenderRef()});
  EXPECT_EQ(page.field("chkExpandierbar").value, 1);
  EXPECT_EQ(page.field("chkExpandiert").value, 1);
  EXPECT_FALSE(page.Changed());
  page.click("chkExpandiert");
  page.setValue("chkExpandierbar", 0);
  EXPECT_TRUE(page.Changed());
  page.Apply();
  EXPECT_FALSE(page.Changed());
  EXPECT_FALSE(frameA->Expandiert());
  EXPECT_FALSE(frameA->Expandierbar());
  EXPECT_TRUE(frameB->Expandiert()) << "the second selected control is left alone";
}

TEST_F(FramePagesTest, FrameBoxSettingsCarriesItsCaptionsAndGreyArialHints) {
  FrameBoxSettings page;
  EXPECT_EQ(page.Caption(), "Einstellungen");
  EXPECT_EQ(page.designWidth(), 5925);
  EXPECT_EQ(page.designHeight(), 3495);
  EXPECT_EQ(page.field("lblScrollValue").caption, "ScrollValue");
  EXPECT_EQ(page.field("lblFrameDistance").caption, "FrameDistance");
  EXPECT_EQ(page.field("lblScrollBarTop").caption, "ScrollBarTop");
  EXPECT_EQ(page.field("chkScrollVisible").caption, "ScrollVisible");
  EXPECT_EQ(page.field("chkAutoIndent").caption, "AutoIndent");
  EXPECT_EQ(page.field("chkScrollBarAlways").caption, "ScrollBarAlways");
  const char* hints[][2] = {
      {"lblHintScrollValue", "dient nur in der IDE zum hoch und runterscrollen."},
      {"lblHintFrameDistance", "Abstand zwischen den einzelnen Controls"},
      {"lblHintAutoIndent", "automatische Breitenanpassung der Controls bei Scrollbar"},
      {"lblHintScrollBarAlways", "die Scrollbar immer anzeigen?"},
      {"lblHintScrollBarTop", "An welcher Top-Position soll die Scrollbar anfangen?"},
  };
  for (auto& h : hints) {
    EXPECT_EQ(page.field(h[0]).caption, h[1]);
    EXPECT_EQ(page.field(h[0]).foreColor, 0x808080u);
    EXPECT_EQ(page.field(h[0]).fontName, "Arial");
  }
  const char* glyphs[] = {"t", "v", "u"};
  for (int16_t i = 0; i < 3; ++i) {
    EXPECT_EQ(page.field("cmdScroll", i).caption, glyphs[i]);
    EXPECT_EQ(page.field("cmdScroll", i).fontName, "Marlett");
  }
}

TEST_F(FramePagesTest, FrameBoxSettingsShowsNumbersAsText) {
  boxA->setAutoIndent(false);
  boxA->setFrameDistance(120);
  FrameBoxSettings page;
  page.setSelectedControls({boxA->extenderRef()});
  EXPECT_EQ(page.field("txtScrollValue").text, "0");
  EXPECT_EQ(page.field("txtFrameDistance").text, "120");
  EXPECT_EQ(page.field("txtScrollBarTop").text, "0");
  EXPECT_EQ(page.field("chkAutoIndent").value, 0);
  EXPECT_EQ(page.field("chkScrollVisible").value, 0);
}

TEST_F(FramePagesTest, ScrollButtonsStepTheTextByAThousand) {
  FrameBoxSettings page;
  page.setSelectedControls({boxA->extenderRef()});
  page.click("cmdScroll", 0);
  EXPECT_EQ(page.field("txtScrollValue").text, "1000");
  EXPECT_TRUE(page.Changed());
  page.click("cmdScroll", 0);
  EXPECT_EQ(page.field("txtScrollValue").text, "2000");
  page.click("cmdScroll", 2);
  EXPECT_EQ(page.field("txtScrollValue").text, "1000");
  page.click("cmdScroll", 1);
  EXPECT_EQ(page.field("txtScrollValue").text, "0");
  page.click("cmdScroll", 2);
  EXPECT_EQ(page.field("txtScrollValue").text, "-1000");
}

TEST_F(FramePagesTest, TextThatIsNoNumberFailsOnApplyAndKeepsTheProperty) {
  FrameBoxSettings page;
  page.setSelectedControls({boxA->extenderRef()});
  page.setText("txtFrameDistance", "weit");
  EXPECT_RUNTIME_ERROR(page.Apply(), 13);
  EXPECT_EQ(boxA->FrameDistance(), 255);
  EXPECT_TRUE(page.Changed()) << "the page keeps its change";
  page.setText("txtFrameDistance", "600");
  page.Apply();
  EXPECT_EQ(boxA->FrameDistance(), 600);
}

TEST_F(FramePagesTest, FrameBoxSettingsWritesOnlyTheFirstSelected) {
  boxB->setFrameDistance(90);
  FrameBoxSettings page;
  page.setSelectedControls({boxA->extenderRef(), boxB->extenderRef()});
  EXPECT_EQ(page.field("txtFrameDistance").text, "255");
  page.setText("txtFrameDistance", "300");
  page.setValue("chkScrollBarAlways", 1);
  page.Apply();
  EXPECT_EQ(boxA->FrameDistance(), 300);
  EXPECT_TRUE(boxA->ScrollBarAlways());
  EXPECT_EQ(boxB->FrameDistance(), 90);
  EXPECT_FALSE(boxB->ScrollBarAlways());
}

TEST_F(FramePagesTest, NothingSelectedIsError91AndBadFieldsAreErrors) {
  FrameSettings page;
  EXPECT_RUNTIME_ERROR(page.setSelectedControls({}), 91);
  EXPECT_RUNTIME_ERROR(page.setText("chkExpandiert", "x"), 438);
  EXPECT_RUNTIME_ERROR(page.setValue("chkExpandiert", 2), 380);
  EXPECT_RUNTIME_ERROR(page.click("chkNoSuch"), 9);
}

TEST_F(FramePagesTest, PagesAreCreatableByName) {
  EXPECT_EQ(ClassRegistry::instance().create("FrameSettings")->typeName(), "FrameSettings");
  EXPECT_EQ(ClassRegistry::instance().create("FrameBoxSettings")->typeName(), "FrameBoxSettings");
}

}  // namespace
}  // namespace corvane
