// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <random>
#include <string>

#include <corvane/host/extender.h>
#include <corvane/host/form_file.h>
#include <corvane/runtime/strings.h>
#include "desktop/gdi.h"
#include "support/label_fixture.h"

namespace corvane {
namespace {

using test::LabelTest;

// The wrapping rule worked literally, in place, one measure of the whole text after the other:
// the reference that the label's own wrapping must agree with, part for part.
void referenceSplit(Surface& s, const std::string& text, int32_t avail, std::string& head, std::string& tail,
                    std::string& flag) {
  const int32_t len = Len(text);
  auto nextSpace = [&](int32_t p) {
    int32_t at = InStr(p, text, " ");
    return at == 0 ? len + 1 : at;
  };
  int32_t p1 = nextSpace(1);
  int32_t p2 = nextSpace(p1 + 1);
  for (;;) {
    if (p1 == len + 1) {
      int32_t space = InStr(text, " ");
      if (space > 0) {
        head = Left(text, space - 1);
        tail = LTrim(Mid(text, space + 1));
      } else {
        head.clear();
        tail.clear();
      }
      flag = "novyradek";
      return;
    }
    head = Left(text, p1 - 1);
    tail = Left(text, p2 - 1);
    if (s.TextWidth(head) <= static_cast<float>(avail) && s.TextWidth(tail) > static_cast<float>(avail)) {
      head = RTrim(head);
      tail = LTrim(Mid(text, p1 + 1));
      flag.clear();
      return;
    }
    p1 = p2;
    p2 = nextSpace(p1 + 1);
  }
}

void referenceInsert(VbArray<LabelPart>& parts, int32_t i) {
  parts.redimPreserve(parts.ubound() + 1);
  for (int32_t j = parts.ubound(); j >= i + 2; --j) parts(j) = parts(j - 1);
  parts(i + 1) = parts(i);
}

void referenceWrap(Surface& s, VbArray<LabelPart>& parts) {
  const float width = s.ScaleWidth();
  float x = 0;
  int32_t i = 1;
  while (i <= parts.ubound()) {
    s.setFontBold(parts(i).Bold != 0);
    s.setFontItalic(parts(i).Italic != 0);
    if (parts(i).NewLine) x = 0;
    const float lineBefore = x;
    x += s.TextWidth(parts(i).Text);
    if (x <= width) {
      ++i;
      continue;
    }
    std::string head, tail, flag;
    referenceSplit(s, parts(i).Text, CLng(width - lineBefore), head, tail, flag);
    const bool atLineStart = parts(i).NewLine != 0;
    if (!Trim(head).empty()) {
      if (flag == "novyradek" && !atLineStart) {
        parts(i).NewLine = -1;
        x = lineBefore;
        continue;
      }
      referenceInsert(parts, i);
      parts(i).Text = head;
      parts(i + 1).Text = tail;
      parts(i + 1).NewLine = -1;
      ++i;
      continue;
    }
    if (!atLineStart) {
      parts(i).NewLine = -1;
      x = lineBefore;
      continue;
    }
    if (i == parts.ubound()) break;
    parts(i + 1).NewLine = -1;
    ++i;
  }
}

std::string describe(const VbArray<LabelPart>& parts) {
  std::string out;
  for (const LabelPart& p : parts) {
    out += p.NewLine ? "/" : "|";
    out += p.Bold ? "B" : "";
    out += p.Italic ? "I" : "";
    out += "[" + p.Text + "]";
  }
  return out;
}

// A caption of random words, blanks, tags and line breaks.
std::string randomCaption(std::mt19937& rng) {
  static const char* const pieces[] = {"a", "ab", "Wort", "WWWW", "ii", "\xC3\xA4\xC3\xB6\xC3\xBC", "Donaudampfschifffahrt",
                                       " ", " ", " ", "  ", "<b>", "</b>", "<i>", "</i>", "<br>", "<c&HFF>", "</c>",
                                       "x\r\ny", "<u>", "lang-lang-lang-lang-lang-lang-lang-lang-lang"};
  std::uniform_int_distribution<size_t> pick(0, std::size(pieces) - 1);
  std::uniform_int_distribution<int> count(1, 120);
  std::string caption;
  for (int n = count(rng); n > 0; --n) caption += pieces[pick(rng)];
  return caption;
}

class LabelWrapTest : public LabelTest {
 protected:
  void setLabelWidth(float twips) { label->extenderObject().setWidth(twips); }
  std::string wordsCaption(int words) {
    std::string caption;
    for (int i = 0; i < words; ++i) caption += (i ? " " : "") + std::string("wort") + std::to_string(i % 10);
    return caption;
  }
  uint64_t measured() { return desktop().drawing().measuredTextBytes(); }
};

TEST_F(LabelWrapTest, WrappingAgreesWithTheRuleWorkedStepByStep) {
  std::mt19937 rng(20240611);
  const int32_t widths[] = {1, 3, 12, 30, 55, 90, 140, 260};
  Surface& s = label->surface();
  for (int round = 0; round < 300; ++round) {
    const std::string caption = randomCaption(rng);
    setLabelWidth(static_cast<float>(widths[round % std::size(widths)]) * tpp());
    label->setWordWrap(false);
    label->setCaption(caption);
    VbArray<LabelPart> expected = label->Parts();
    const bool bold = s.FontBold(), italic = s.FontItalic();
    referenceWrap(s, expected);
    s.setFontBold(bold);
    s.setFontItalic(italic);
    label->setWordWrap(true);
    ASSERT_EQ(describe(label->Parts()), describe(expected)) << "caption: " << caption << ", width "
                                                            << s.pixelWidth();
  }
}

TEST_F(LabelWrapTest, SplitTextFindsTheBlankOfTheRule) {
  label->setCaption("eins zwei  drei vier");
  Surface& s = label->surface();
  for (int32_t avail = 0; avail <= CLng(s.TextWidth(label->Caption())) + 30; avail += 15) {
    std::string head, tail, flag, refHead, refTail, refFlag;
    label->SplitText(1, avail, head, tail, flag);
    referenceSplit(s, label->Parts()(1).Text, avail, refHead, refTail, refFlag);
    EXPECT_EQ(head + "|" + tail + "|" + flag, refHead + "|" + refTail + "|" + refFlag) << "avail " << avail;
  }
}

TEST_F(LabelWrapTest, WrappingOnePixelGrowsLinearlyWithTheWords) {
  // Each word goes to a line of its own. Doubling the words must double the work of measuring,
  // not multiply it by eight as splitting the whole rest again at every word did.
  setLabelWidth(tpp());
  label->setWordWrap(true);
  const std::string small = wordsCaption(800), large = wordsCaption(1600);
  uint64_t before = measured();
  label->setCaption(small);
  const uint64_t smallCost = measured() - before;
  ASSERT_EQ(label->Parts().ubound(), 800);
  before = measured();
  label->setCaption(large);
  const uint64_t largeCost = measured() - before;
  ASSERT_EQ(label->Parts().ubound(), 1600);
  EXPECT_LT(largeCost, smallCost * 5 / 2) << smallCost << " bytes measured for 800 words, " << largeCost
                                          << " for 1600";
  EXPECT_LT(largeCost, 200 * large.size()) << "a bounded number of measures per character";
}

TEST_F(LabelWrapTest, WrappingAOneMegabyteCaptionMeasuresEachLineOnce) {
  label->extenderObject().setWidth(4000);
  label->setWordWrap(true);
  std::string caption;
  while (caption.size() < (1u << 20)) caption += "Der <b>schnelle</b> braune <i>Fuchs</i> springt ueber den Hund. ";
  const uint64_t before = measured();
  label->setCaption(caption);
  const uint64_t cost = measured() - before;
  EXPECT_GT(label->Parts().ubound(), 20000);
  EXPECT_LT(cost, 100 * caption.size());
  size_t stored = 0;
  for (const LabelPart& part : label->Parts()) stored += part.Text.capacity();
  EXPECT_LT(stored, 2 * caption.size() + 16 * label->Parts().size());
}

// ---- sizes the window cannot take ----

class LabelSizeLimitTest : public LabelWrapTest {
 protected:
  void SetUp() override {
    LabelWrapTest::SetUp();
    label->Font()->setSize(24);
  }
  // The window and its image agree on the size.
  void expectImageOfTheWindowsSize() {
    Surface& s = label->surface();
    const Canvas* image = desktop().windows().windowCanvas(s.hWnd());
    ASSERT_TRUE(image);
    EXPECT_EQ(image->width(), s.pixelWidth());
    EXPECT_EQ(image->height(), s.pixelHeight());
  }
};

TEST_F(LabelSizeLimitTest, AutosizePastTheLongestWindowSideStopsThere) {
  label->setAutosize(true);
  label->setCaption(std::string(1100, 'W'));
  Surface& s = label->surface();
  EXPECT_GT(s.TextWidth(label->Caption()) / tpp(), 32767) << "wider than any image can be";
  EXPECT_EQ(s.pixelWidth(), kMaxWindowSide);
  expectImageOfTheWindowsSize();
  label->setCaption("weiter <b>benutzbar</b>");
  EXPECT_EQ(label->Parts().ubound(), 2);
}

TEST_F(LabelSizeLimitTest, WordWrapPastTheLongestWindowSideStopsThere) {
  setLabelWidth(tpp());
  label->setWordWrap(true);
  label->setCaption(wordsCaption(1000));
  Surface& s = label->surface();
  EXPECT_EQ(label->Parts().ubound(), 1000);
  std::string measure;
  for (int i = 1; i < 1000; ++i) measure += "ABCD\r\n";
  EXPECT_GT(s.TextHeight(measure) / tpp(), 32767) << "taller than any image can be";
  EXPECT_EQ(s.pixelHeight(), kMaxWindowSide);
  expectImageOfTheWindowsSize();
}

TEST_F(LabelSizeLimitTest, FormFileWithAnOversizedLabelLoads) {
  label->setAutosize(true);
  label->setCaption("PLATZHALTER");
  std::string text = FormFile::save(*form);
  const size_t at = text.find("PLATZHALTER");
  ASSERT_NE(at, std::string::npos);
  text.replace(at, 11, std::string(1100, 'W'));
  form->Unload();
  label.reset();
  FormRef again = FormFile::load(text);
  auto loaded = std::dynamic_pointer_cast<VexColorLabel>(again->control("Label1"));
  ASSERT_TRUE(loaded);
  EXPECT_EQ(loaded->Caption(), std::string(1100, 'W'));
  EXPECT_EQ(loaded->surface().pixelWidth(), kMaxWindowSide);
}

TEST_F(LabelSizeLimitTest, WindowSizesAreCutToTheLongestSide) {
  WindowManager& wm = desktop().windows();
  HWND h = wm.CreateWindowExA(0, "Test", "", 0, 0, 0, 40000, 50, 0, 0);
  RECT r;
  wm.GetClientRect(h, r);
  EXPECT_EQ(r.Right, kMaxWindowSide);
  EXPECT_EQ(wm.windowCanvas(h)->width(), kMaxWindowSide);
  wm.MoveWindow(h, 0, 0, 10, 70000, true);
  wm.GetClientRect(h, r);
  EXPECT_EQ(r.Right, 10);
  EXPECT_EQ(r.Bottom, kMaxWindowSide);
  EXPECT_EQ(wm.windowCanvas(h)->height(), kMaxWindowSide);
  wm.DestroyWindow(h);
}

}  // namespace
}  // namespace corvane
