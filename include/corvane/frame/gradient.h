// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <string>

#include <corvane/export.h>
#include <corvane/platform/types.h>
#include <corvane/runtime/component_object.h>
#include <corvane/runtime/object.h>
#include <corvane/runtime/vb_array.h>

namespace corvane {

struct CORVANE_API PointSng {
  float X = 0, Y = 0;
};

struct CORVANE_API PointLng {
  int32_t X = 0, Y = 0;
};

// A two-colour linear gradient at any angle. It sweeps a one-pixel pen line, longer than any
// diagonal of the surface, across the client area one pixel per step, one colour per line: so a
// gradient at 45 degrees has no stair-steps, and each line costs one pen.
class CORVANE_API CGradient : public Object, public ComponentObject {
 public:
  std::string typeName() const override { return "CGradient"; }

  // Paints the gradient over the client area of any object offering hWnd and hDC by name. False
  // for a surface smaller than 2 by 2 pixels and on any error; nothing is reported.
  bool Draw(const ObjectRef& picObj);

  // Fills laRetColors (bounds 0 to steps - 1) with the ramp from lColor1 to lColor2 and returns
  // the number of colours; steps below 2 count as 2. The channel deltas are divided by steps,
  // not steps - 1, so the last computed colour stops short and the final entry jumps to lColor2.
  int32_t BlendColors(int32_t lColor1, int32_t lColor2, int32_t lSteps, VbArray<int32_t>& laRetColors);

  // A system colour index (top bit set, index below 25) is resolved at once to its current RGB
  // value; any other value is kept as it stands.
  int32_t Color1() const { return m_Color1; }
  void setColor1(int32_t v);
  int32_t Color2() const { return m_Color2; }
  void setColor2(int32_t v);

  // Degrees, kept in the range 0 up to 360.
  float Angle() const { return m_Angle; }
  void setAngle(float v);

  // The painter's own routines, reachable for tests.
  // Builds the list of lines, then draws them, one pen per line; returns the number of line
  // ends drawn (twice the number of lines), 0 on error.
  int32_t DrawGradient(HDC hDC, int32_t width, int32_t height);
  static void RotatePoint(const PointSng& center, PointSng& point, float degrees);
  static double SafeDiv(double dividend, double divisor);

 protected:
  const Dispatch* dispatch() const override;

 private:
  static int32_t resolveColor(int32_t v);

  int32_t m_Color1 = 0xFFFFD0;
  int32_t m_Color2 = 0x400000;
  float m_Angle = 315;
};

}  // namespace corvane
