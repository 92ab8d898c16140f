// SPDX-License-Identifier: MIT
#include <corvane/frame/gradient.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <span>
#include <vector>
#if defined(__SSE2__)
#include <emmintrin.h>
#endif

#include <corvane/platform/api.h>
#include <corvane/runtime/array_object.h>
#include <corvane/runtime/checked.h>

namespace corvane {

namespace {

// An angle brought into 0 up to 360 the way the painter has always done it, in double precision:
// a - Int(Int(a / 360) * 360).
double reduceAngle(double a) { return a - Int(Int(a / 360.0) * 360.0); }

int32_t redOf(int32_t c) { return c & 0xFF; }
int32_t greenOf(int32_t c) { return (c & 0xFF00) / 256; }
int32_t blueOf(int32_t c) { return (c & 0xFF0000) / 65536; }

// A blended channel rounded as CLng rounds: to nearest, ties to even, in the current rounding
// mode. It lies between two channel values, so the range check CLng makes is left out.
int32_t roundChannel(double v) {
#if defined(__SSE2__)
  return _mm_cvtsd_si32(_mm_set_sd(v));
#else
  return static_cast<int32_t>(std::nearbyint(v));
#endif
}

// Adds line ends from index 2 on, each the one two before it moved one step along x or y, forward
// (+1) or back (-1), until the first entry after which the two latest entries lie past the far
// border: beyond it going forward, below it going back. That can be the start or the end of a
// line. Returns the number of entries.
template <bool AlongX, bool Forward>
size_t sweepLines(std::vector<POINTAPI>& lines, int32_t farBorder) {
  size_t count = 2, room = lines.size();
  POINTAPI* entries = lines.data();
  // The latest entries at even and at odd places: the starts and the ends of the lines.
  POINTAPI starts = entries[0], ends = entries[1];
  auto past = [farBorder](const POINTAPI& p) {
    const int32_t c = AlongX ? p.x : p.y;
    return Forward ? c > farBorder : c < farBorder;
  };
  bool latestPast = past(ends);
  // Moves one of them a step, adds it, and tells whether the sweep ends there.
  auto add = [&](POINTAPI& latest) {
    int32_t& c = AlongX ? latest.x : latest.y;
    c = add32(c, Forward ? 1 : -1);
    if (count == room) {
      lines.resize(2 * count);
      entries = lines.data();
      room = lines.size();
    }
    entries[count].x = latest.x;  // field by field: no packing of the pair for one store
    entries[count++].y = latest.y;
    const bool nextPast = past(latest);
    const bool done = nextPast && latestPast;
    latestPast = nextPast;
    return done;
  };
  while (!add(starts) && !add(ends)) {
  }
  return count;
}

}  // namespace

int32_t CGradient::resolveColor(int32_t v) {
  if (v < 0 && (v & 0x7FFFFFFF) < 25) return gdi().GetSysColor(v & 0x7FFFFFFF);
  return v;
}

void CGradient::setColor1(int32_t v) { m_Color1 = resolveColor(v); }
void CGradient::setColor2(int32_t v) { m_Color2 = resolveColor(v); }

void CGradient::setAngle(float v) { m_Angle = static_cast<float>(reduceAngle(v)); }

double CGradient::SafeDiv(double dividend, double divisor) { return divisor == 0 ? 0.0 : dividend / divisor; }

void CGradient::RotatePoint(const PointSng& center, PointSng& point, float degrees) {
  // The factor is the double the painter was written with, not the nearest value of pi / 180.
  const float radians = static_cast<float>(static_cast<double>(degrees) * 0.017453292519943278);
  const float dX = point.X - center.X;
  const float dY = point.Y - center.Y;
  const double s = std::sin(static_cast<double>(radians)), c = std::cos(static_cast<double>(radians));
  point.X = static_cast<float>(dY * s + dX * c + center.X);
  point.Y = static_cast<float>(-(dX * s - dY * c) + center.Y);
}

int32_t CGradient::BlendColors(int32_t lColor1, int32_t lColor2, int32_t lSteps,
                               VbArray<int32_t>& laRetColors) {
  const int32_t steps = lSteps < 2 ? 2 : lSteps;
  const int32_t r1 = redOf(lColor1), g1 = greenOf(lColor1), b1 = blueOf(lColor1);
  const double dR = SafeDiv(redOf(lColor2) - r1, steps);
  const double dG = SafeDiv(greenOf(lColor2) - g1, steps);
  const double dB = SafeDiv(blueOf(lColor2) - b1, steps);
  laRetColors.redim(0, steps - 1);
  int32_t* colours = laRetColors.begin();  // the array starts at 0
  colours[0] = lColor1;
  colours[steps - 1] = lColor2;
  for (int32_t i = 1; i <= steps - 2; ++i) {
    const int32_t r = roundChannel(i * dR + r1), g = roundChannel(i * dG + g1), b = roundChannel(i * dB + b1);
    colours[i] = g * 256 + r + b * 65536;
  }
  return steps;
}

int32_t CGradient::DrawGradient(HDC hDC, int32_t width, int32_t height) {
  try {
    // A line through the centre, longer than any diagonal of the surface.
    PointSng pt[3];
    pt[2].X = static_cast<float>(Int(width / 2.0));
    pt[2].Y = static_cast<float>(Int(height / 2.0));
    const double L = width > height ? width : height;
    const double r = (std::sqrt(L * L + L * L) + 2) / 2;
    pt[0] = {static_cast<float>(pt[2].X - r), pt[2].Y};
    pt[1] = {static_cast<float>(pt[2].X + r), pt[2].Y};

    const float sweepAngle = static_cast<float>(reduceAngle(static_cast<double>(m_Angle) + 90.0));
    RotatePoint(pt[2], pt[0], sweepAngle);
    RotatePoint(pt[2], pt[1], sweepAngle);

    // Move the line off the surface; the step brings it back across in whole pixels, along the
    // axis on which the line's extent is the smaller one.
    const float dX = std::fabs(pt[0].X - pt[1].X);
    const float dY = std::fabs(pt[0].Y - pt[1].Y);
    const float largerX = pt[0].X > pt[1].X ? pt[0].X : pt[1].X;
    const float smallerX = pt[0].X < pt[1].X ? pt[0].X : pt[1].X;
    const float largerY = pt[0].Y > pt[1].Y ? pt[0].Y : pt[1].Y;
    const float smallerY = pt[0].Y < pt[1].Y ? pt[0].Y : pt[1].Y;
    const bool horizontal = dY >= dX;
    float xOff = 0, yOff = 0;
    enum Side { Left, Right, Bottom, Top } side;
    if (m_Angle >= 0 && m_Angle <= 90)
      side = horizontal ? Left : Bottom;
    else if (m_Angle > 90 && m_Angle <= 180)
      side = horizontal ? Right : Bottom;
    else if (m_Angle > 180 && m_Angle <= 270)
      side = horizontal ? Right : Top;
    else
      side = horizontal ? Left : Top;
    switch (side) {
      case Left:
        xOff = -largerX;
        break;
      case Right:
        xOff = static_cast<float>(width) - smallerX;
        break;
      case Bottom:
        yOff = static_cast<float>(height) - smallerY;
        break;
      case Top:
        yOff = -largerY;
        break;
    }

    // The list of line ends, built first so that the number of colours is known. Room for a sweep
    // across the surface; any size (negative, or huge) only changes how often it grows.
    std::vector<POINTAPI> lines(static_cast<size_t>(
        std::clamp<int64_t>(2 * int64_t{width > height ? width : height} + 8, 8, 1 << 16)));
    lines[0] = {CLng(xOff + pt[0].X), CLng(yOff + pt[0].Y)};
    lines[1] = {CLng(xOff + pt[1].X), CLng(yOff + pt[1].Y)};
    size_t count = 0;
    switch (side) {
      case Left:
        count = sweepLines<true, true>(lines, width);
        break;
      case Right:
        count = sweepLines<true, false>(lines, 0);
        break;
      case Bottom:
        count = sweepLines<false, false>(lines, 0);
        break;
      case Top:
        count = sweepLines<false, true>(lines, height);
        break;
    }
    lines.resize(count);
    const int32_t i = static_cast<int32_t>(lines.size());
    const int32_t lineCount = CLng(i / 2.0);  // an odd count rounds to even

    VbArray<int32_t> colours;
    BlendColors(m_Color1, m_Color2, lineCount, colours);

    // One pen per line (MoveToEx, CreatePen, SelectObject, LineTo, SelectObject back, DeleteObject):
    // line j / 2 from entries j and j + 1 takes colour j / 2, which is always among the lineCount
    // colours; an odd last entry starts no line. The count returned is the last j plus 2.
    const int32_t drawn = i / 2;
    gdi().PenLines(hDC, lines, std::span<const COLORREF>(colours.begin(), static_cast<size_t>(drawn)));
    return 2 * drawn;
  } catch (const RuntimeError&) {
    return 0;
  }
}

bool CGradient::Draw(const ObjectRef& picObj) {
  try {
    if (!picObj) throw RuntimeError(err::ObjectNotSet);
    RECT rc;
    if (!user().GetClientRect(picObj->get("hWnd").toLong(), rc)) return false;
    if (rc.Right <= 1 || rc.Bottom <= 1) return false;
    const HDC hdc = picObj->get("hDC").toLong();
    return DrawGradient(hdc, rc.Right - rc.Left, rc.Bottom - rc.Top) >= 1;
  } catch (const RuntimeError&) {
    return false;
  }
}

const Dispatch* CGradient::dispatch() const {
  static const Dispatch d = [] {
    Dispatch t;
    DispatchBuilder<CGradient>(t)
        .method("Draw", [](CGradient& g, Dispatch::Args& a) { return g.Draw(a.at(0).toObject()); })
        // laRetColors is by reference: an array object the caller passed is filled in place;
        // anything else in that place is replaced by a new array object, which the caller's
        // argument list then holds.
        .method("BlendColors",
                [](CGradient& g, Dispatch::Args& a) {
                  if (a.size() < 3) throw RuntimeError(449, "Argument not optional");
                  VbArray<int32_t> colours;
                  const int32_t n = g.BlendColors(a[0].toLong(), a[1].toLong(), a[2].toLong(), colours);
                  if (a.size() < 4) a.resize(4);
                  auto target =
                      std::dynamic_pointer_cast<ArrayObject>(a[3].isObject() ? a[3].toObject() : nullptr);
                  if (!target) target = std::make_shared<ArrayObject>();
                  target->items().redim(colours.lbound(), colours.ubound());
                  for (int32_t i = colours.lbound(); i <= colours.ubound(); ++i)
                    target->items()(i) = colours(i);
                  a[3] = Variant(target);
                  return n;
                })
        .prop("Color1", &CGradient::Color1, &CGradient::setColor1)
        .prop("Color2", &CGradient::Color2, &CGradient::setColor2)
        .prop("Angle", &CGradient::Angle, &CGradient::setAngle);
    return t;
  }();
  return &d;
}

}  // namespace corvane
