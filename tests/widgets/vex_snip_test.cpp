// SPDX-License-Identifier: MIT
#include <corvane/host/extender.h>
#include <corvane/host/property_bag.h>
#include <corvane/widgets/vex_snip.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/desktop_fixture.h"

namespace corvane {
namespace {

class SnipTest : public test::DesktopTest {
 protected:
  void SetUp() override {
    DesktopTest::SetUp();
    form = Form::create("Form1", 4000, 2250, false);
    form->Show();
    snip = add("Snip1");
    ASSERT_TRUE(snip);
  }
  void TearDown() override {
    snip.reset();
    form.reset();
    DesktopTest::TearDown();
  }
  std::shared_ptr<VexSnip> add(const std::string& name, PropertyBag* bag = nullptr) {
    return std::dynamic_pointer_cast<VexSnip>(form->add("VexSnip", name, nullptr, 300, 300, 1500, 450, bag));
  }

  FormRef form;
  std::shared_ptr<VexSnip> snip;
};

TEST_F(SnipTest, NewItemIsTitledDatenWithoutText) {
  EXPECT_EQ(snip->Titel(), "Daten");
  EXPECT_EQ(snip->Text(), "");
  EXPECT_EQ(snip->lblTitel().Font->Name(), "Tahoma");
}

TEST_F(SnipTest, TextIsAlwaysWrittenAndTheTitleDatenNever) {
  PropertyBag bag;
  snip->WriteProperties(bag);
  EXPECT_EQ(bag.writeOrder(), (std::vector<std::string>{"Text", "Titel"}));
  ASSERT_EQ(bag.entries().size(), 1u);
  EXPECT_EQ(bag.entries()[0].first, "Text");
  EXPECT_EQ(bag.entries()[0].second.toString(), "");
}

TEST_F(SnipTest, TitleDatenIsLostOnAReload) {
  PropertyBag bag;
  snip->WriteProperties(bag);
  auto loaded = add("Snip2", &bag);
  EXPECT_EQ(bag.readOrder(), (std::vector<std::string>{"Text", "Titel"}));
  EXPECT_EQ(loaded->Titel(), "");
  // And an empty title is stored, so it stays empty from then on.
  PropertyBag again;
  loaded->WriteProperties(again);
  EXPECT_TRUE(again.contains("Titel"));
  EXPECT_EQ(add("Snip3", &again)->Titel(), "");
}

TEST_F(SnipTest, OtherTitleAndTextSurviveAReload) {
  snip->setTitel("Adressen");
  snip->setText("Name;Straße;Ort");
  PropertyBag bag;
  snip->WriteProperties(bag);
  auto loaded = add("Snip2", &bag);
  EXPECT_EQ(loaded->Titel(), "Adressen");
  EXPECT_EQ(loaded->Text(), "Name;Straße;Ort");
}

TEST_F(SnipTest, BothSettersReport) {
  snip->controlSite().changedKeys.clear();
  snip->setText("x");
  snip->setTitel("y");
  EXPECT_EQ(snip->controlSite().changedKeys, (std::vector<std::string>{"Text", "Titel"}));
}

TEST_F(SnipTest, LabelKeepsItsPlaceAndTakesTheRestOfTheWidthAndTheFullHeight) {
  const int32_t left = snip->lblTitel().Left, top = snip->lblTitel().Top;
  snip->extenderObject().Move(0, 0, 3000, 600);
  EXPECT_EQ(snip->lblTitel().Left, left);
  EXPECT_EQ(snip->lblTitel().Top, top);
  EXPECT_EQ(snip->lblTitel().Width, 200 - left);
  EXPECT_EQ(snip->lblTitel().Height, 40);
}

TEST_F(SnipTest, TitleIsDrawn) {
  auto* canvas = desktop().windows().windowCanvas(snip->hWnd());
  auto inked = [&] {
    int n = 0;
    for (int32_t y = 0; y < 30; ++y)
      for (int32_t x = 0; x < 100; ++x) {
        COLORREF c = canvas->pixel(x, y);
        n += (c & 0xFF) < 100 && ((c >> 8) & 0xFF) < 100 && ((c >> 16) & 0xFF) < 100;
      }
    return n;
  };
  EXPECT_GT(inked(), 10);
  snip->setTitel("");
  EXPECT_EQ(inked(), 0);
}

TEST_F(SnipTest, MembersByName) {
  snip->let("Titel", Variant("Kunden"));
  EXPECT_EQ(snip->get("Titel").toString(), "Kunden");
  snip->let("Text", Variant("abc"));
  EXPECT_EQ(snip->Text(), "abc");
}

}  // namespace
}  // namespace corvane
