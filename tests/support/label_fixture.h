// SPDX-License-Identifier: MIT
#pragma once
#include <memory>
#include <string>

#include <corvane/host/screen.h>
#include <corvane/runtime/checked.h>
#include "support/desktop_fixture.h"
#include <corvane/widgets/vex_color_label.h>

namespace corvane::test {

// A shown form with one markup label at the top left, in a known font.
class LabelTest : public DesktopTest {
 protected:
  void SetUp() override {
    DesktopTest::SetUp();
    form = Form::create("Form1", 6000, 3000);
    form->surface().Font()->setName("Arial");
    form->surface().Font()->setSize(10);
    form->Show();
    label = std::dynamic_pointer_cast<VexColorLabel>(form->add("VexColorLabel", "Label1", nullptr, 0, 0, 3000, 300));
    ASSERT_TRUE(label);
  }
  void TearDown() override {
    label.reset();
    form.reset();
    DesktopTest::TearDown();
  }
  // The parts as text, joined with "|", a line break marked by "/" before the piece.
  std::string partsText() const {
    std::string out;
    const auto& parts = label->Parts();
    for (int32_t i = 1; i <= parts.ubound(); ++i) {
      if (i > 1) out += "|";
      if (i > 1 && parts(i).NewLine) out += "/";
      out += parts(i).Text;
    }
    return out;
  }
  float lineHeight() { return label->surface().TextHeight("A"); }
  float tpp() { return Screen::instance().TwipsPerPixelX(); }

  FormRef form;
  std::shared_ptr<VexColorLabel> label;
};

}  // namespace corvane::test
