// SPDX-License-Identifier: MIT
#include <corvane/frame/gradient.h>

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <string>
#include <vector>

#include <corvane/host/extender.h>
#include <corvane/host/picture_box.h>
#include <corvane/platform/api.h>
#include <corvane/runtime/array_object.h>
#include <corvane/runtime/class_registry.h>
#include <corvane/runtime/object.h>
#include "support/desktop_fixture.h"

namespace corvane {
namespace {

class GradientTest : public test::DesktopTest {
 protected:
  // A shown form of the given client size in pixels.
  FormRef makeForm(int32_t width, int32_t height, const std::string& name = "frmGradient") {
    FormRef f = Form::create(name, static_cast<float>(width) * 15, static_cast<float>(height) * 15);
    f->Show();
    return f;
  }
  static COLORREF pixel(const FormRef& f, int32_t x, int32_t y) {
    return gdi().GetPixel(f->surface().hdc(), x, y);
  }
  static std::vector<int32_t> ramp(int32_t c1, int32_t c2, int32_t steps) {
    CGradient g;
    VbArray<int32_t> colours;
    g.BlendColors(c1, c2, steps, colours);
    return std::vector<int32_t>(colours.begin(), colours.end());
  }
};

// ---- Properties -------------------------------------------------------------------------------

TEST_F(GradientTest, StartsWithItsInitialColoursAndAngle) {
  CGradient g;
  EXPECT_EQ(g.Color1(), 0xFFFFD0);
  EXPECT_EQ(g.Color2(), 0x400000);
  EXPECT_EQ(g.Angle(), 315.0f);
}

TEST_F(GradientTest, AngleIsKeptBetweenZeroAndThreeSixty) {
  CGradient g;
  g.setAngle(450);
  EXPECT_EQ(g.Angle(), 90.0f);
  g.setAngle(-90);
  EXPECT_EQ(g.Angle(), 270.0f);
  g.setAngle(-30);
  EXPECT_EQ(g.Angle(), 330.0f);
  g.setAngle(360);
  EXPECT_EQ(g.Angle(), 0.0f);
  g.setAngle(720.5f);
  EXPECT_EQ(g.Angle(), 0.5f);
  g.setAngle(-725);
  EXPECT_EQ(g.Angle(), 355.0f);
  g.setAngle(45);
  EXPECT_EQ(g.Angle(), 45.0f);
}

TEST_F(GradientTest, SystemColourIsResolvedAtOnceAndKeptThrough) {
  gdi().SetSysColor(syscolor::BTNFACE, 0x123456);
  CGradient g;
  g.setColor1(static_cast<int32_t>(0x8000000F));
  EXPECT_EQ(g.Color1(), 0x123456);
  g.setColor2(static_cast<int32_t>(0x80000010));
  EXPECT_EQ(g.Color2(), gdi().GetSysColor(syscolor::BTNSHADOW));
  // A later change of the system palette does not reach the object.
  gdi().SetSysColor(syscolor::BTNFACE, 0x654321);
  EXPECT_EQ(g.Color1(), 0x123456);
}

TEST_F(GradientTest, OtherNegativeColoursAreKeptAsTheyStand) {
  CGradient g;
  g.setColor1(static_cast<int32_t>(0x80000019));  // index 25: no system colour
  EXPECT_EQ(g.Color1(), static_cast<int32_t>(0x80000019));
  g.setColor2(static_cast<int32_t>(0xFF0000FF));
  EXPECT_EQ(g.Color2(), static_cast<int32_t>(0xFF0000FF));
  g.setColor1(0x01020304);  // positive values with a top byte are kept too
  EXPECT_EQ(g.Color1(), 0x01020304);
}

// ---- Colour ramp ------------------------------------------------------------------------------

TEST_F(GradientTest, BlendColorsWithZeroOrOneStepGivesTheTwoColours) {
  CGradient g;
  for (int32_t steps : {0, 1, -5}) {
    VbArray<int32_t> c;
    EXPECT_EQ(g.BlendColors(0x0000FF, 0xFF0000, steps, c), 2);
    EXPECT_EQ(c.lbound(), 0);
    EXPECT_EQ(c.ubound(), 1);
    EXPECT_EQ(c(0), 0x0000FF);
    EXPECT_EQ(c(1), 0xFF0000);
  }
}

TEST_F(GradientTest, BlendColorsWithEqualColoursRepeatsTheColour) {
  CGradient g;
  VbArray<int32_t> c;
  EXPECT_EQ(g.BlendColors(0x336699, 0x336699, 7, c), 7);
  EXPECT_EQ(c.ubound(), 6);
  for (int32_t v : c) EXPECT_EQ(v, 0x336699);
}

TEST_F(GradientTest, BlendColorsDividesByTheNumberOfSteps) {
  CGradient g;
  VbArray<int32_t> c;
  // Red 0 to 200 in 5 steps: delta 40, not 50; the last computed colour is 120, the end jumps.
  EXPECT_EQ(g.BlendColors(RGB(0, 0, 0), RGB(200, 0, 0), 5, c), 5);
  std::vector<int32_t> got(c.begin(), c.end());
  EXPECT_EQ(got, (std::vector<int32_t>{0, 40, 80, 120, 200}));
}

TEST_F(GradientTest, BlendColorsRoundsHalvesToEven) {
  CGradient g;
  VbArray<int32_t> c;
  // Deltas of 2.5: 2.5 gives 2, 5, 7.5 gives 8, 10.
  g.BlendColors(RGB(0, 0, 0), RGB(15, 15, 15), 6, c);
  EXPECT_EQ(c(1), RGB(2, 2, 2));
  EXPECT_EQ(c(2), RGB(5, 5, 5));
  EXPECT_EQ(c(3), RGB(8, 8, 8));
  EXPECT_EQ(c(4), RGB(10, 10, 10));
  // Falling channels: 10 - 2.5 = 7.5 gives 8, 10 - 7.5 = 2.5 gives 2.
  g.BlendColors(RGB(10, 0, 0), RGB(0, 0, 0), 4, c);
  EXPECT_EQ(c(1), RGB(8, 0, 0));
  EXPECT_EQ(c(2), RGB(5, 0, 0));
}

TEST_F(GradientTest, BlendColorsComposesTheChannelsAndKeepsTheEndsUnchanged) {
  CGradient g;
  VbArray<int32_t> c;
  const int32_t from = static_cast<int32_t>(0x80102030), to = 0x7F405060;
  g.BlendColors(from, to, 4, c);
  EXPECT_EQ(c(0), from) << "top byte included";
  EXPECT_EQ(c(3), to);
  // Channels: red 0x30 to 0x60, green 0x20 to 0x50, blue 0x10 to 0x40; deltas 12 each.
  EXPECT_EQ(c(1), RGB(0x30 + 12, 0x20 + 12, 0x10 + 12));
  EXPECT_EQ(c(2), RGB(0x30 + 24, 0x20 + 24, 0x10 + 24));
}

TEST_F(GradientTest, SafeDivGivesZeroForAZeroDivisor) {
  EXPECT_EQ(CGradient::SafeDiv(5, 0), 0.0);
  EXPECT_EQ(CGradient::SafeDiv(-5, 0), 0.0);
  EXPECT_EQ(CGradient::SafeDiv(1, 4), 0.25);
  EXPECT_EQ(CGradient::SafeDiv(255, 7), 255.0 / 7.0);
}

// ---- Rotation ---------------------------------------------------------------------------------

TEST_F(GradientTest, RotatePointUsesTheRadiansRoundedToSingle) {
  PointSng centre{0, 0};
  PointSng p{10, 0};
  CGradient::RotatePoint(centre, p, 90);
  // cos of the single nearest to pi / 2 is -4.371139e-8, not the 6e-17 of the double.
  EXPECT_FLOAT_EQ(p.X, -4.371139e-07f);
  EXPECT_FLOAT_EQ(p.Y, -10.0f);
}

TEST_F(GradientTest, RotatePointTurnsAroundTheCentre) {
  PointSng centre{5, 5};
  PointSng p{15, 5};
  CGradient::RotatePoint(centre, p, 180);
  EXPECT_NEAR(p.X, -5.0f, 1e-5);
  EXPECT_NEAR(p.Y, 5.0f, 1e-5);
  PointSng q{5, 15};
  CGradient::RotatePoint(centre, q, 90);
  EXPECT_NEAR(q.X, 15.0f, 1e-5);
  EXPECT_NEAR(q.Y, 5.0f, 1e-5);
  PointSng r{8, 9};
  CGradient::RotatePoint(centre, r, 0);
  EXPECT_EQ(r.X, 8.0f);
  EXPECT_EQ(r.Y, 9.0f);
}

// ---- Drawing: the calls -----------------------------------------------------------------------

TEST_F(GradientTest, DrawGradientOnANegativeSizeEndsWithoutAnError) {
  FormRef f = makeForm(20, 10);
  CGradient g;
  for (float angle : {0.0f, 90.0f, 200.0f}) {
    g.setAngle(angle);
    int32_t count = -1;
    EXPECT_NO_THROW(count = g.DrawGradient(f->surface().hdc(), -50, -40)) << angle;
    EXPECT_GE(count, 0) << angle;
  }
  EXPECT_EQ(desktop().liveDrawingObjects(), 0);
}

TEST_F(GradientTest, DrawGradientMakesOnePenPerLineInTheRequiredOrder) {
  FormRef f = makeForm(20, 10);
  HDC hdc = f->surface().hdc();
  CGradient g;
  g.setAngle(0);
  g.setColor1(RGB(255, 0, 0));
  g.setColor2(RGB(0, 0, 255));
  gdi().startRecording(hdc);
  const int32_t count = g.DrawGradient(hdc, 20, 10);
  std::vector<std::string> log = gdi().stopRecording(hdc);

  // At 0 degrees the lines are vertical, from x = 0 to two past the right edge (x = 21): 22
  // lines, each from below the surface up to above it.
  EXPECT_EQ(count, 44);
  ASSERT_EQ(log.size(), 22u * 6u);
  const std::vector<int32_t> colours = ramp(RGB(255, 0, 0), RGB(0, 0, 255), 22);
  for (int32_t k = 0; k < 22; ++k) {
    const std::string* op = &log[static_cast<size_t>(k) * 6];
    EXPECT_EQ(op[0], "MoveToEx(" + std::to_string(k) + ",20)") << "line " << k;
    EXPECT_EQ(op[1], "CreatePen(0,1," + std::to_string(colours[static_cast<size_t>(k)]) + ")")
        << "line " << k;
    ASSERT_EQ(op[2].rfind("SelectObject(", 0), 0u) << op[2];
    EXPECT_EQ(op[3], "LineTo(" + std::to_string(k) + ",-10)") << "line " << k;
    ASSERT_EQ(op[4].rfind("SelectObject(", 0), 0u) << op[4];
    // The pen selected is the one deleted, and the old pen goes back before that.
    const std::string pen = op[2].substr(13);
    EXPECT_EQ(op[5], "DeleteObject(" + pen) << "line " << k;
    EXPECT_NE(op[4], op[2]);
  }
  EXPECT_EQ(desktop().liveDrawingObjects(), 0);
}

TEST_F(GradientTest, DrawGradientSweepsVerticallyFromBelowAtNinetyDegrees) {
  FormRef f = makeForm(12, 8);
  HDC hdc = f->surface().hdc();
  CGradient g;
  g.setAngle(90);
  gdi().startRecording(hdc);
  const int32_t count = g.DrawGradient(hdc, 12, 8);
  std::vector<std::string> log = gdi().stopRecording(hdc);
  // Horizontal lines from y = 8 (just below the surface) up to y = -1: 10 lines.
  EXPECT_EQ(count, 20);
  ASSERT_EQ(log.size(), 60u);
  EXPECT_EQ(log[0].rfind("MoveToEx(", 0), 0u);
  for (int32_t k = 0; k < 10; ++k) {
    const std::string& move = log[static_cast<size_t>(k) * 6];
    const std::string& line = log[static_cast<size_t>(k) * 6 + 3];
    const std::string y = std::to_string(8 - k);
    EXPECT_EQ(move.substr(move.find(',')), "," + y + ")") << move;
    EXPECT_EQ(line.substr(line.find(',')), "," + y + ")") << line;
  }
}

// The colours of the pens made, in order.
std::vector<int32_t> penColours(const std::vector<std::string>& log) {
  std::vector<int32_t> out;
  for (const std::string& op : log)
    if (op.rfind("CreatePen(0,1,", 0) == 0) out.push_back(std::stoi(op.substr(14)));
  return out;
}

TEST_F(GradientTest, SweepEndingAfterALineStartCountsHalfLinesToEven) {
  // At 315 degrees the line's end lies further along the sweep than its start, so the sweep
  // ends right after the start of a line, which is dropped: an odd number of entries.
  CGradient g;
  g.setAngle(315);
  g.setColor1(RGB(0, 0, 0));
  g.setColor2(RGB(255, 255, 255));
  {
    // 245 entries: 122.5 lines round to 122 colours, and the last line drawn has Color2.
    FormRef f = makeForm(60, 40, "frmEven");
    HDC hdc = f->surface().hdc();
    gdi().startRecording(hdc);
    EXPECT_EQ(g.DrawGradient(hdc, 60, 40), 244);
    const std::vector<int32_t> pens = penColours(gdi().stopRecording(hdc));
    ASSERT_EQ(pens.size(), 122u);
    EXPECT_EQ(pens, ramp(RGB(0, 0, 0), RGB(255, 255, 255), 122));
    EXPECT_EQ(pens.back(), RGB(255, 255, 255));
  }
  {
    // 207 entries: 103.5 lines round to 104 colours; 103 lines are drawn and Color2 is not used.
    FormRef f = makeForm(41, 60, "frmOdd");
    HDC hdc = f->surface().hdc();
    gdi().startRecording(hdc);
    EXPECT_EQ(g.DrawGradient(hdc, 41, 60), 206);
    const std::vector<int32_t> pens = penColours(gdi().stopRecording(hdc));
    ASSERT_EQ(pens.size(), 103u);
    std::vector<int32_t> colours = ramp(RGB(0, 0, 0), RGB(255, 255, 255), 104);
    colours.pop_back();
    EXPECT_EQ(pens, colours);
    EXPECT_NE(pens.back(), RGB(255, 255, 255));
  }
}

// The line list, read back from the calls, is the one the steps describe: from the first two
// entries on, each entry is the one two before it moved one step, until the two latest lie past
// the far border. Every side the sweep can start from, surfaces wide and tall.
TEST_F(GradientTest, TheLinesAreEachEntryTwoBeforeMovedOneStepUntilBothLatestArePast) {
  struct Entry {
    int32_t x, y;
  };
  auto number = [](const std::string& op, size_t from) { return std::stoi(op.substr(from)); };
  for (const std::pair<int32_t, int32_t>& size : {std::pair{37, 23}, std::pair{23, 37}, std::pair{40, 40}}) {
    const int32_t width = size.first, height = size.second;
    FormRef f = makeForm(width, height, "frm" + std::to_string(width) + "x" + std::to_string(height));
    HDC hdc = f->surface().hdc();
    for (float angle : {0.0f, 20.0f, 45.0f, 70.0f, 90.0f, 100.0f, 135.0f, 160.0f, 180.0f, 200.0f, 225.0f,
                        250.0f, 270.0f, 290.0f, 315.0f, 340.0f, 359.5f}) {
      CGradient g;
      g.setAngle(angle);
      gdi().startRecording(hdc);
      const int32_t count = g.DrawGradient(hdc, width, height);
      const std::vector<std::string> log = gdi().stopRecording(hdc);
      std::vector<Entry> drawn;
      for (const std::string& op : log) {
        const size_t open = op.find('('), comma = op.find(',');
        if (op.rfind("MoveToEx(", 0) == 0 || op.rfind("LineTo(", 0) == 0)
          drawn.push_back({number(op, open + 1), number(op, comma + 1)});
      }
      ASSERT_GE(drawn.size(), 4u) << angle;
      // The step: the change between the first two lines, along one axis only.
      const int32_t stepX = drawn[2].x - drawn[0].x, stepY = drawn[2].y - drawn[0].y;
      ASSERT_EQ(std::abs(stepX) + std::abs(stepY), 1) << angle;
      auto past = [&](const Entry& e) {
        if (stepX >= 1) return e.x > width;
        if (stepX < 0) return e.x < 0;
        if (stepY >= 1) return e.y > height;
        return e.y < 0;
      };
      std::vector<Entry> expected = {drawn[0], drawn[1]};
      do {
        const Entry& before = expected[expected.size() - 2];
        expected.push_back({before.x + stepX, before.y + stepY});
      } while (!(past(expected[expected.size() - 1]) && past(expected[expected.size() - 2])));
      const size_t lines = expected.size() / 2;  // an odd last entry starts no line
      EXPECT_EQ(count, static_cast<int32_t>(2 * lines)) << width << "x" << height << " at " << angle;
      ASSERT_EQ(drawn.size(), 2 * lines) << width << "x" << height << " at " << angle;
      for (size_t j = 0; j < drawn.size(); ++j) {
        EXPECT_EQ(drawn[j].x, expected[j].x) << angle << " entry " << j;
        EXPECT_EQ(drawn[j].y, expected[j].y) << angle << " entry " << j;
      }
    }
  }
}

TEST_F(GradientTest, DrawGradientLeavesNoDrawingObjectsAlive) {
  FormRef f = makeForm(64, 48);
  const int32_t before = desktop().liveDrawingObjects();
  CGradient g;
  for (float a : {0.0f, 45.0f, 130.0f, 200.0f, 315.0f}) {
    g.setAngle(a);
    EXPECT_TRUE(g.Draw(f));
  }
  EXPECT_EQ(desktop().liveDrawingObjects(), before);
}

// ---- Drawing: the pixels ----------------------------------------------------------------------

TEST_F(GradientTest, HorizontalSweepStartsWithColor1AndStopsShortOfColor2) {
  FormRef f = makeForm(40, 20);
  CGradient g;
  g.setAngle(0);
  g.setColor1(RGB(0, 0, 0));
  g.setColor2(RGB(0, 0, 210));
  ASSERT_TRUE(g.Draw(f));
  // 42 lines for 40 columns: the left column has the first colour, the right column the 40th;
  // the last two colours fall beyond the right edge.
  const std::vector<int32_t> colours = ramp(RGB(0, 0, 0), RGB(0, 0, 210), 42);
  for (int32_t y : {0, 10, 19}) {
    EXPECT_EQ(pixel(f, 0, y), RGB(0, 0, 0));
    EXPECT_EQ(pixel(f, 1, y), colours[1]);
    EXPECT_EQ(pixel(f, 39, y), colours[39]);
  }
  EXPECT_EQ(colours[39], RGB(0, 0, 195));  // 39 * 5
  EXPECT_NE(pixel(f, 39, 5), RGB(0, 0, 210));
}

TEST_F(GradientTest, OpposingAngleRunsTheRampTheOtherWay) {
  FormRef f = makeForm(40, 20);
  CGradient g;
  g.setAngle(180);
  g.setColor1(RGB(0, 0, 0));
  g.setColor2(RGB(0, 0, 210));
  ASSERT_TRUE(g.Draw(f));
  // Every column is one colour, and the colours fall from right to left.
  for (int32_t x = 0; x < 40; ++x)
    for (int32_t y = 1; y < 20; ++y) ASSERT_EQ(pixel(f, x, y), pixel(f, x, 0)) << x << "," << y;
  for (int32_t x = 1; x < 40; ++x) EXPECT_LT(pixel(f, x, 0), pixel(f, x - 1, 0)) << x;
}

TEST_F(GradientTest, DiagonalAtFortyFiveDegreesHasNoStairSteps) {
  // With an odd longer side the line ends round to an exact diagonal: every pixel with the same
  // x - y has the same colour, and neighbouring diagonals differ.
  FormRef f = makeForm(61, 41);
  CGradient g;
  g.setAngle(45);
  g.setColor1(RGB(255, 255, 255));
  g.setColor2(RGB(0, 0, 0));
  ASSERT_TRUE(g.Draw(f));
  for (int32_t d = -40; d < 61; ++d) {
    COLORREF first = -1;
    for (int32_t y = 0; y < 41; ++y) {
      int32_t x = y + d;
      if (x < 0 || x >= 61) continue;
      COLORREF c = pixel(f, x, y);
      if (first == -1) first = c;
      ASSERT_EQ(c, first) << "diagonal " << d << " at " << x << "," << y;
    }
  }
  for (int32_t x = 1; x < 61; ++x) EXPECT_NE(pixel(f, x, 0), pixel(f, x - 1, 0)) << x;
}

TEST_F(GradientTest, DiagonalWithAnEvenLongerSideJogsOnOneRowOnly) {
  // 60 by 40 at 45 degrees: centre (30, 20), r = (sqrt(2 * 60^2) + 2) / 2 = 43.43; turned by 135
  // degrees the ends are (60.71, 50.71) and (-0.71, -10.71). The sweep runs horizontally from
  // the left (xOff = -60.71), so every line runs from (k, 51) to (k - 61, -11): 62 rows down and
  // 61 columns across. Such a line moves one column per row but once, where the rounded share
  // of the columns, round(i * 61 / 62), stays put: from step 31 (row 20) to step 32 (row 19).
  // All lines are the same line shifted sideways, so rows 19 and 20 are the one place where a
  // pixel and its lower right neighbour differ: the bands keep their diagonal shape, shifted
  // once by a pixel.
  FormRef f = makeForm(60, 40);
  CGradient g;
  g.setAngle(45);
  g.setColor1(RGB(255, 255, 255));
  g.setColor2(RGB(0, 0, 0));
  ASSERT_TRUE(g.Draw(f));
  std::vector<int32_t> jogRows;
  for (int32_t y = 0; y + 1 < 40; ++y) {
    bool jog = false;
    for (int32_t x = 0; x + 1 < 60; ++x) jog = jog || pixel(f, x, y) != pixel(f, x + 1, y + 1);
    if (jog) jogRows.push_back(y);
  }
  EXPECT_EQ(jogRows, std::vector<int32_t>{19});
}

TEST_F(GradientTest, OffSurfaceLinesUseUpPartOfTheRamp) {
  FormRef f = makeForm(60, 40);
  CGradient g;
  g.setAngle(45);
  g.setColor1(RGB(0, 0, 0));
  g.setColor2(RGB(250, 250, 250));
  ASSERT_TRUE(g.Draw(f));
  // The sweep starts at the bottom left corner, but the first lines lie below and left of the
  // surface: the corner does not show Color1.
  EXPECT_NE(pixel(f, 0, 39), RGB(0, 0, 0));
  EXPECT_LT(pixel(f, 0, 39), pixel(f, 59, 0));
}

TEST_F(GradientTest, AtZeroDegreesTheFirstLineIsTheLeftColumn) {
  // At 0 degrees the line stands upright through the centre, and the offset moves it onto the
  // left column: the first line drawn is on the surface and shows Color1 itself.
  FormRef f = makeForm(30, 30);
  CGradient g;
  g.setAngle(0);
  g.setColor1(RGB(10, 20, 30));
  g.setColor2(RGB(200, 200, 200));
  ASSERT_TRUE(g.Draw(f));
  EXPECT_EQ(pixel(f, 0, 0), RGB(10, 20, 30));
  EXPECT_EQ(pixel(f, 0, 29), RGB(10, 20, 30));
}

TEST_F(GradientTest, EveryPixelIsPaintedAtManyAngles) {
  FormRef f = makeForm(37, 23);
  f->surface().setBackColor(RGB(1, 2, 3));
  CGradient g;
  g.setColor1(RGB(255, 0, 0));
  g.setColor2(RGB(0, 255, 0));
  for (int32_t a = 0; a < 360; a += 15) {
    f->surface().Cls();
    g.setAngle(static_cast<float>(a));
    ASSERT_TRUE(g.Draw(f)) << a;
    for (int32_t y = 0; y < 23; ++y)
      for (int32_t x = 0; x < 37; ++x)
        ASSERT_NE(pixel(f, x, y), RGB(1, 2, 3)) << "gap at " << x << "," << y << ", angle " << a;
  }
}

// ---- Draw and its refusals --------------------------------------------------------------------

TEST_F(GradientTest, DrawPaintsAPictureBoxThroughItsMembersByName) {
  FormRef f = makeForm(200, 100);
  auto pic = f->add("PictureBox", "picGradient", nullptr, 150, 150, 1500, 900);
  CGradient g;
  g.setAngle(90);
  g.setColor1(RGB(255, 0, 0));
  g.setColor2(RGB(0, 0, 255));
  ASSERT_TRUE(g.Draw(pic));
  HDC hdc = pic->surface().hdc();
  // 100 by 60 pixels; rows of one colour, red at the bottom going to blue at the top.
  EXPECT_EQ(gdi().GetPixel(hdc, 0, 59), gdi().GetPixel(hdc, 99, 59));
  EXPECT_GT(gdi().GetPixel(hdc, 50, 59) & 0xFF, gdi().GetPixel(hdc, 50, 0) & 0xFF);
  EXPECT_LT(gdi().GetPixel(hdc, 50, 59) >> 16, gdi().GetPixel(hdc, 50, 0) >> 16);
  // Through the wrapper the host hands out, too.
  EXPECT_TRUE(g.Draw(pic->extenderRef()));
}

TEST_F(GradientTest, ZeroSizeSurfaceIsRefusedAndNothingIsPainted) {
  FormRef f = makeForm(0, 0);
  HDC hdc = f->surface().hdc();
  CGradient g;
  gdi().startRecording(hdc);
  EXPECT_FALSE(g.Draw(f));
  EXPECT_TRUE(gdi().stopRecording(hdc).empty());
  EXPECT_EQ(desktop().liveDrawingObjects(), 0);
}

TEST_F(GradientTest, OnePixelWideOrHighSurfaceIsRefusedAndNothingIsPainted) {
  FormRef f = makeForm(100, 100);
  auto narrow = f->add("PictureBox", "picNarrow", nullptr, 0, 0, 15, 600);
  auto flat = f->add("PictureBox", "picFlat", nullptr, 0, 900, 600, 15);
  CGradient g;
  for (const auto& pic : {narrow, flat}) {
    HDC hdc = pic->surface().hdc();
    const COLORREF before = gdi().GetPixel(hdc, 0, 0);
    gdi().startRecording(hdc);
    EXPECT_FALSE(g.Draw(pic));
    EXPECT_TRUE(gdi().stopRecording(hdc).empty());
    EXPECT_EQ(gdi().GetPixel(hdc, 0, 0), before);
  }
  // Two by two is the smallest surface painted.
  auto tiny = f->add("PictureBox", "picTiny", nullptr, 1500, 0, 30, 30);
  EXPECT_TRUE(g.Draw(tiny));
}

// An object with a window handle and a context, but a window that does not exist.
class NoWindow : public Object {
 public:
  std::string typeName() const override { return "NoWindow"; }

 protected:
  const Dispatch* dispatch() const override {
    static const Dispatch d = [] {
      Dispatch t;
      DispatchBuilder<NoWindow>(t)
          .get("hWnd", [](NoWindow&) { return int32_t{987654}; })
          .get("hDC", [](NoWindow&) { return int32_t{0}; });
      return t;
    }();
    return &d;
  }
};

TEST_F(GradientTest, DrawGivesFalseOnAnyError) {
  CGradient g;
  EXPECT_FALSE(g.Draw(nullptr));
  EXPECT_FALSE(g.Draw(std::make_shared<NoWindow>()));
  EXPECT_FALSE(g.Draw(std::make_shared<CGradient>())) << "an object without hWnd";
  // A NaN angle fails in the conversion of the line ends.
  FormRef f = makeForm(20, 20);
  g.setAngle(std::nanf(""));
  EXPECT_FALSE(g.Draw(f));
  EXPECT_EQ(desktop().liveDrawingObjects(), 0);
}

// ---- By name ----------------------------------------------------------------------------------

TEST_F(GradientTest, BlendColorsByNameFillsTheCallersArray) {
  ObjectRef g = ClassRegistry::instance().create("CGradient");
  auto colours = std::make_shared<ArrayObject>();
  // Red 0 to 200 in 5 steps: delta 40, the ends unchanged.
  Dispatch::Args args{int32_t{0}, int32_t{200}, int32_t{5}, Variant(colours)};
  EXPECT_EQ(g->invoke("BlendColors", CallType::Method, args).toLong(), 5);
  EXPECT_EQ(args[3].toObject(), colours) << "the caller's array itself is filled";
  ASSERT_EQ(colours->items().lbound(), 0);
  ASSERT_EQ(colours->items().ubound(), 4);
  std::vector<int32_t> got;
  for (const Variant& v : colours->items()) got.push_back(v.toLong());
  EXPECT_EQ(got, (std::vector<int32_t>{0, 40, 80, 120, 200}));
  EXPECT_EQ(colours->get("UBound").toLong(), 4);
  EXPECT_EQ(colours->get("Item", {int32_t{2}}).toLong(), 80);

  // An argument that holds no array yet receives a new one, by reference.
  Dispatch::Args fresh{int32_t{0}, int32_t{200}, int32_t{1}, Variant()};
  EXPECT_EQ(g->invoke("BlendColors", CallType::Method, fresh).toLong(), 2);
  auto made = std::dynamic_pointer_cast<ArrayObject>(fresh[3].toObject());
  ASSERT_TRUE(made);
  ASSERT_EQ(made->items().size(), 2u);
  EXPECT_EQ(made->items()(0).toLong(), 0);
  EXPECT_EQ(made->items()(1).toLong(), 200);
}

TEST_F(GradientTest, IsCreatableByNameAndCallableByName) {
  ObjectRef o = ClassRegistry::instance().create("CGradient");
  ASSERT_TRUE(o);
  EXPECT_EQ(o->typeName(), "CGradient");
  o->let("Angle", Variant(450.0f));
  EXPECT_EQ(o->get("Angle").toSingle(), 90.0f);
  o->let("Color1", Variant(int32_t{0x0000FF}));
  o->let("Color2", Variant(int32_t{0x00FF00}));
  EXPECT_EQ(o->get("Color1").toLong(), 0x0000FF);
  EXPECT_EQ(o->get("Color2").toLong(), 0x00FF00);
  EXPECT_EQ(o->call("BlendColors", {int32_t{0}, int32_t{255}, int32_t{1}}).toLong(), 2);
  FormRef f = makeForm(30, 20);
  EXPECT_TRUE(o->call("Draw", {f}).toBool());
  EXPECT_FALSE(o->call("Draw", {Variant()}).toBool());
}

}  // namespace
}  // namespace corvane
