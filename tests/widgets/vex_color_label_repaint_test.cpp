// SPDX-License-Identifier: MIT
#include <corvane/host/extender.h>
#include <gtest/gtest.h>

#include "support/label_fixture.h"

namespace corvane {
namespace {

using test::LabelTest;

class LabelRepaintTest : public LabelTest {
 protected:
  std::vector<COLORREF> labelPixels() {
    Canvas* c = desktop().windows().windowCanvas(label->hWnd());
    std::vector<COLORREF> out;
    for (int32_t y = 0; y < c->height(); ++y)
      for (int32_t x = 0; x < c->width(); ++x) out.push_back(c->pixel(x, y));
    return out;
  }
  std::vector<std::string> recordedRepaint() {
    GdiApi& g = desktop().gdi();
    HDC dc = label->surface().hdc();
    g.startRecording(dc);
    label->DrawLabel();
    std::vector<std::string> log = g.stopRecording(dc);
    // The background brush is made anew for each repaint: its handle number is not compared.
    for (std::string& line : log) {
      if (line.rfind("DeleteObject(", 0) == 0) line = "DeleteObject(brush)";
      if (line.rfind("FillRect(", 0) == 0) line = line.substr(0, line.rfind(',')) + ",brush)";
    }
    return log;
  }
};

TEST_F(LabelRepaintTest, RepaintReusesTheParsedPiecesWithTheSameCallsAndPixels) {
  label->setCaption("<b>Fett</b> und <c&HFF>rot</c><br>zweite Zeile");
  const std::string parts = partsText();
  const std::vector<COLORREF> pixels = labelPixels();
  const std::vector<std::string> first = recordedRepaint();
  const uint64_t parses = label->captionParses();
  const std::vector<std::string> again = recordedRepaint();
  EXPECT_EQ(label->captionParses(), parses) << "an unchanged caption is not parsed again";
  EXPECT_EQ(again, first);
  EXPECT_EQ(partsText(), parts);
  EXPECT_EQ(labelPixels(), pixels);
}

TEST_F(LabelRepaintTest, WrappedRepaintReusesTheParseAndWrapsAsBefore) {
  label->extenderObject().Move(0, 0, 1200, 900);
  label->setWordWrap(true);
  label->setCaption("Der <b>schnelle</b> braune Fuchs springt ueber den faulen Hund");
  const std::string wrapped = partsText();
  ASSERT_NE(wrapped.find('/'), std::string::npos) << "the caption needs more than one line";
  const std::vector<std::string> first = recordedRepaint();
  const uint64_t parses = label->captionParses();
  EXPECT_EQ(recordedRepaint(), first) << "the words are measured as before";
  EXPECT_EQ(label->captionParses(), parses);
  EXPECT_EQ(partsText(), wrapped);
  // A different width wraps the kept pieces anew.
  label->extenderObject().Move(0, 0, 6000, 900);
  label->DrawLabel();
  EXPECT_EQ(label->captionParses(), parses);
  EXPECT_EQ(partsText(), "Der |schnelle| braune Fuchs springt ueber den faulen Hund");
}

TEST_F(LabelRepaintTest, ChangedCaptionColourOrFontStyleParsesAgain) {
  label->setCaption("a <b>b</b>");
  uint64_t parses = label->captionParses();
  label->DrawLabel();
  EXPECT_EQ(label->captionParses(), parses);

  label->setForeColor(0x00FF00);
  EXPECT_GT(label->captionParses(), parses);
  EXPECT_EQ(label->Parts()(1).Color, 0x00FF00) << "the default colour of the pieces follows";

  parses = label->captionParses();
  label->Font()->setItalic(true);  // the font object changed behind the label's back
  label->DrawLabel();
  EXPECT_GT(label->captionParses(), parses);
  EXPECT_EQ(label->Parts()(1).Italic, -1);

  parses = label->captionParses();
  label->setCaption("c");
  EXPECT_GT(label->captionParses(), parses);
  EXPECT_EQ(partsText(), "c");
}

TEST_F(LabelRepaintTest, PiecesChangedByTheStepsAreNotReusedAsTheParse) {
  label->extenderObject().Move(0, 0, 900, 900);
  label->setCaption("eins zwei drei vier fuenf sechs");
  const std::string unwrapped = partsText();
  label->WrapParts();  // the wrapping step on its own, as a test may call it
  ASSERT_NE(partsText(), unwrapped);
  label->DrawLabel();
  EXPECT_EQ(partsText(), unwrapped) << "the repaint prints the parse, not the wrapped pieces";
}

}  // namespace
}  // namespace corvane
