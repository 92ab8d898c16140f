// SPDX-License-Identifier: MIT
#include <corvane/host/property_bag.h>
#include <corvane/platform/api.h>
#include <corvane/widgets/vex_info_panel.h>
#include <gtest/gtest.h>

#include "support/desktop_fixture.h"

namespace corvane {
namespace {

using Keys = std::vector<std::string>;
constexpr float kTwips = 15;

// An info panel of 200 by 80 pixels at the top left of a white run-time form.
class InfoPanelTest : public test::DesktopTest {
 protected:
  void SetUp() override {
    DesktopTest::SetUp();
    form = Form::create("Form1", 400 * kTwips, 300 * kTwips, true);
    form->surface().setBackColor(0xFFFFFF);
    form->Show();
    panel = add("Panel1");
  }
  void TearDown() override {
    panel.reset();
    form.reset();
    DesktopTest::TearDown();
  }
  std::shared_ptr<VexInfoPanel> add(const std::string& name, PropertyBag* bag = nullptr) {
    return std::dynamic_pointer_cast<VexInfoPanel>(
        form->add("VexInfoPanel", name, nullptr, 0, 0, 200 * kTwips, 80 * kTwips, bag));
  }
  static std::string lines(int n) {
    std::string t;
    for (int i = 1; i <= n; ++i) t += (i > 1 ? "<BR>" : "") + std::string("Zeile ") + std::to_string(i);
    return t;
  }
  bool showsTextBox() const { return panel->txtTip.Visible() && !panel->lblTip.Visible(); }
  bool showsLabel() const { return panel->lblTip.Visible() && !panel->txtTip.Visible(); }

  FormRef form;
  std::shared_ptr<VexInfoPanel> panel;
};

TEST_F(InfoPanelTest, SwitchesToTheTextBoxExactlyWhenTheTextStopsFitting) {
  panel->setCaption("");
  panel->setText("Zeile 1");
  const int32_t lineHeight = panel->lblTip.Height();
  ASSERT_GT(lineHeight, 0);
  const int32_t room = 80 - (6 + 6);  // ScaleHeight less PicPosTop and the text's top
  for (int n = 1; n <= 12; ++n) {
    panel->setText(lines(n));
    EXPECT_EQ(panel->lblTip.Height(), n * lineHeight) << n;
    EXPECT_EQ(showsTextBox(), n * lineHeight > room) << n << " lines";
    EXPECT_EQ(showsLabel(), n * lineHeight <= room) << n << " lines";
  }
  panel->setText(lines(2));
  EXPECT_TRUE(showsLabel()) << "a shorter text brings the label back";
}

TEST_F(InfoPanelTest, OverflowingTextCanBeScrolled) {
  panel->setCaption("Titel");
  panel->setText(lines(20));
  ASSERT_TRUE(showsTextBox());
  ScrollBar& bar = panel->txtTip.scrollBar();
  EXPECT_EQ(panel->txtTip.lineCount(), 20);
  EXPECT_GT(bar.Max(), 0);
  EXPECT_EQ(panel->txtTip.topLine(), 0);
  bar.setValue(bar.Max());
  EXPECT_EQ(panel->txtTip.topLine(), bar.Max());
}

TEST_F(InfoPanelTest, EmptyCaptionLiftsTheTextFrom26To6) {
  panel->setCaption("Titel");
  EXPECT_EQ(panel->textTop(), 26);
  EXPECT_EQ(panel->lblTip.Top(), 26);
  EXPECT_EQ(panel->txtTip.Top(), 26);
  panel->setCaption("");
  EXPECT_EQ(panel->textTop(), 6);
  EXPECT_EQ(panel->lblTip.Top(), 6);
  EXPECT_EQ(panel->txtTip.Top(), 6);
}

TEST_F(InfoPanelTest, BothBrSpellingsBreakTheLine) {
  panel->setText("eins<BR>zwei<br>drei<Br>vier");
  EXPECT_EQ(panel->lblTip.Caption(), "eins\rzwei\rdrei\rvier");
  EXPECT_EQ(panel->txtTip.Text(), "eins\r\nzwei\r\ndrei\r\nvier");
  EXPECT_EQ(panel->Text(), "eins<BR>zwei<br>drei<Br>vier") << "stored unchanged";
}

TEST_F(InfoPanelTest, WidthBelowTwoHidesAllText) {
  panel->setText("kurz");
  ASSERT_TRUE(showsLabel());
  panel->setRightMargin(200 - 16 - 1);  // W = 200 - (8 + 8) - margin = 1
  EXPECT_EQ(panel->lblHead.Width(), 0);
  EXPECT_FALSE(panel->lblTip.Visible());
  EXPECT_FALSE(panel->txtTip.Visible());
  panel->setRightMargin(200 - 16 - 2);  // W = 2
  EXPECT_EQ(panel->lblHead.Width(), 2);
  EXPECT_TRUE(panel->lblTip.Visible() || panel->txtTip.Visible());
}

TEST_F(InfoPanelTest, WithoutAPictureTheHeadlineStartsAtPicPosLeft) {
  panel->setCaption("Titel");
  EXPECT_EQ(panel->lblHead.Left(), 8);
  EXPECT_EQ(panel->lblHead.Width(), 200 - 16);
  EXPECT_EQ(panel->lblHead.Top(), 6);
}

TEST_F(InfoPanelTest, BoldChangeInTheFontObjectDoesNotReachTheHeadline) {
  FontRef f = StdFont::create();
  f->setName("Arial");
  f->setSize(10);
  f->setBold(false);
  f->setItalic(true);
  panel->setFont(f);
  EXPECT_EQ(panel->lblHead.Font()->Name(), "Arial");
  EXPECT_EQ(panel->lblHead.Font()->Size(), 10);
  EXPECT_TRUE(panel->lblHead.Font()->Italic());
  EXPECT_TRUE(panel->lblHead.Font()->Bold()) << "the headline keeps its designed bold";
  f->setBold(true);
  EXPECT_EQ(panel->lblTip.Font(), f) << "the text shares the font object";
  f->setBold(false);
  EXPECT_TRUE(panel->lblHead.Font()->Bold());
  EXPECT_EQ(panel->txtTip.Font(), f);
}

TEST_F(InfoPanelTest, FontNothingIsError380) {
  try {
    panel->setFont(nullptr);
    FAIL() << "no error";
  } catch (const RuntimeError& e) {
    EXPECT_EQ(e.number(), 380);
    EXPECT_EQ(e.description(), "Cannot set Font to Nothing");
  }
}

const Keys kKeyOrder = {"BorderColor",  "Picture",   "Font",        "Text",     "Caption",    "BackColor",
                        "CaptionColor", "TextColor", "RightMargin", "WordWrap", "PicPosLeft", "PicPosTop"};

TEST_F(InfoPanelTest, KeysAreWrittenAndReadInTheirOrder) {
  PropertyBag bag;
  panel->WriteProperties(bag);
  EXPECT_EQ(bag.writeOrder(), kKeyOrder);
  PropertyBag empty;
  add("Panel2", &empty);
  EXPECT_EQ(empty.readOrder(), kKeyOrder);
}

TEST_F(InfoPanelTest, BagAfterInitPropertiesHoldsOnlyTheEmptyCaption) {
  PropertyBag bag;
  panel->WriteProperties(bag);
  ASSERT_EQ(bag.entries().size(), 1u);
  EXPECT_EQ(bag.entries()[0].first, "Caption");
  EXPECT_EQ(bag.entries()[0].second.toString(), "");
}

TEST_F(InfoPanelTest, NewPanelAndEmptyBagAgreeButForTheCaption) {
  PropertyBag empty;
  auto loaded = add("Panel2", &empty);
  EXPECT_EQ(panel->Text(), "Panel1");
  EXPECT_EQ(loaded->Text(), "Panel2");
  EXPECT_EQ(panel->Caption(), "");
  EXPECT_EQ(loaded->Caption(), "Panel2");
  EXPECT_EQ(loaded->textTop(), 26);
  for (auto* p : {panel.get(), loaded.get()}) {
    EXPECT_EQ(p->BorderColor(), 0x808080);
    EXPECT_EQ(p->BackColor(), 0xE2FFFF);
    EXPECT_EQ(p->CaptionColor(), static_cast<OLE_COLOR>(0x80000017));
    EXPECT_EQ(p->TextColor(), static_cast<OLE_COLOR>(0x80000017));
    EXPECT_EQ(p->RightMargin(), 0);
    EXPECT_FALSE(p->WordWrap());
    EXPECT_EQ(p->PicPosLeft(), 8);
    EXPECT_EQ(p->PicPosTop(), 6);
    EXPECT_EQ(p->Font(), form->Font());
  }
}

TEST_F(InfoPanelTest, StoredValuesComeBack) {
  panel->setCaption("Titel");
  panel->setText("Hallo<BR>Welt");
  panel->setRightMargin(3);
  panel->setWordWrap(true);
  panel->setTextColor(0x400000);
  PropertyBag bag;
  panel->WriteProperties(bag);
  auto loaded = add("Panel2", &bag);
  EXPECT_EQ(loaded->Caption(), "Titel");
  EXPECT_EQ(loaded->Text(), "Hallo<BR>Welt");
  EXPECT_EQ(loaded->RightMargin(), 3);
  EXPECT_TRUE(loaded->WordWrap());
  EXPECT_TRUE(loaded->lblHead.WordWrap());
  EXPECT_EQ(loaded->TextColor(), 0x400000);
  EXPECT_EQ(loaded->txtTip.ForeColor(), 0x400000);
}

TEST_F(InfoPanelTest, ReleaseOnTheTextBoxRaisesClick) {
  int clicks = 0;
  panel->Click.connect([&] { ++clicks; });
  panel->setText(lines(20));
  ASSERT_TRUE(showsTextBox());
  desktop().click(40, 20);
  EXPECT_EQ(clicks, 1);
}

TEST_F(InfoPanelTest, LooksAreARoundedBorderOnTheBackColour) {
  panel->setCaption("");
  panel->setText("");
  EXPECT_EQ(screenPixel(100, 0), 0x808080);
  EXPECT_EQ(screenPixel(100, 79), 0x808080);
  EXPECT_EQ(screenPixel(0, 40), 0x808080);
  EXPECT_EQ(screenPixel(199, 40), 0x808080);
  EXPECT_EQ(screenPixel(190, 70), 0xE2FFFF);
  EXPECT_NE(screenPixel(0, 0), 0x808080) << "the corner is rounded";
}

TEST_F(InfoPanelTest, TextBoxShowsASunkenFrameAndItsScrollBar) {
  panel->setText(lines(20));
  ASSERT_TRUE(showsTextBox());
  RECT r;
  user().GetWindowRect(panel->txtTip.scrollBar().surface().hWnd(), r);
  RECT box;
  user().GetWindowRect(panel->txtTip.surface().hWnd(), box);
  EXPECT_EQ(r.Right, box.Right - 2) << "the bar stands inside the frame at the right";
  EXPECT_EQ(r.Right - r.Left, 17);
  // The sunken frame: shadow at the top left, light at the bottom right.
  COLORREF topLeft = screenPixel(box.Left, box.Top + 10);
  COLORREF bottomRight = screenPixel(box.Right - 1, box.Bottom - 1);
  EXPECT_EQ(topLeft, gdi().GetSysColor(16)) << "the shadow colour";
  EXPECT_EQ(bottomRight, gdi().GetSysColor(20)) << "the highlight colour";
}

TEST_F(InfoPanelTest, ChangeInsideTheFontObjectIsAppliedAgainThroughTheFontSetter) {
  FontRef f = StdFont::create();
  f->setName("Arial");
  f->setSize(10);
  panel->setFont(f);
  panel->controlSite().changedKeys.clear();
  f->setSize(14);
  EXPECT_EQ(panel->lblHead.Font()->Size(), 14) << "the headline takes the new size";
  f->setItalic(true);
  EXPECT_TRUE(panel->lblHead.Font()->Italic());
  f->setName("Courier New");
  EXPECT_EQ(panel->lblHead.Font()->Name(), "Courier New");
  EXPECT_EQ(panel->controlSite().changedKeys, Keys({"Font", "Font", "Font"}));
  // A replaced font object is no longer listened to.
  panel->setFont(StdFont::create());
  panel->controlSite().changedKeys.clear();
  f->setSize(20);
  EXPECT_TRUE(panel->controlSite().changedKeys.empty());
  EXPECT_NE(panel->lblHead.Font()->Size(), 20);
}

TEST_F(InfoPanelTest, FontObjectOutlivingThePanelCanStillChange) {
  FontRef f = StdFont::create();
  panel->setFont(f);
  form.reset();
  panel.reset();
  f->setSize(12);  // nobody listens any more: no call into the ended panel
  EXPECT_EQ(f->Size(), 12);
}

TEST_F(InfoPanelTest, RefreshGivesTheSurfaceImageToTheMaskPicture) {
  panel->setCaption("");
  panel->setText("");
  panel->Refresh();
  const PictureRef& mask = panel->surface().MaskPicture();
  ASSERT_TRUE(mask && mask->Handle() != 0);
  EXPECT_EQ(mask->pixelSize().cx, 200);
  EXPECT_EQ(mask->pixelSize().cy, 80);
  // The picture holds the drawing: the border and the back colour inside.
  HDC mem = gdi().CreateCompatibleDC(0);
  HGDIOBJ old = gdi().SelectObject(mem, mask->Handle());
  EXPECT_EQ(gdi().GetPixel(mem, 100, 0) & 0xFFFFFF, 0x808080u);
  EXPECT_EQ(gdi().GetPixel(mem, 100, 40) & 0xFFFFFF, 0xE2FFFFu);
  gdi().SelectObject(mem, old);
  gdi().DeleteDC(mem);
}

TEST_F(InfoPanelTest, TransparentPanelLosesTheCornersInTheMaskColour) {
  panel->setCaption("");
  panel->setText("");
  // The form shows red where the panel's shape is cut away.
  form->surface().setBackColor(0x0000FF);
  panel->setBackColor(0xFFFFFF);
  panel->surface().setMaskColor(0xFFFFFF);
  panel->surface().setBackStyle(0);
  panel->Refresh();
  EXPECT_EQ(screenPixel(0, 0), 0x0000FF) << "outside the rounded corner the form shows";
  EXPECT_EQ(screenPixel(100, 0), 0x808080) << "the border stays";
}

}  // namespace
}  // namespace corvane
