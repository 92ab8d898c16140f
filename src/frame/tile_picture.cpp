// SPDX-License-Identifier: MIT
#include <corvane/frame/tile_picture.h>

#include <algorithm>
#include <cmath>

#include <corvane/host/extender.h>
#include <corvane/host/form.h>
#include <corvane/host/hosted_control.h>
#include <corvane/runtime/checked.h>
#include <corvane/runtime/guard.h>
#include <corvane/runtime/val.h>

namespace corvane {

namespace {

// The target, or error 91 when there is none.
corvane::Object& targetOf(const ObjectRef& obj) {
  if (!obj) throw RuntimeError(err::ObjectNotSet);
  return *obj;
}

// A size in the target's scale as the painter has always read it: through its text, so it is
// the figure with seven significant digits, as a double rounded to single.
float viaText(const Variant& v) { return CSng(Val(v.toString())); }

// Forms that are no multiple-document parent, picture boxes and control surfaces can be painted
// on; a control's wrapper stands for the control.
bool paintable(corvane::Object* obj) {
  if (auto* ext = dynamic_cast<Extender*>(obj)) obj = &ext->control();
  if (auto* form = dynamic_cast<Form*>(obj)) return !form->isMdiParent();
  return dynamic_cast<HostedControl*>(obj) != nullptr;
}

// The walk "from, from + step, ... while the position is <= end" runs once and then ends when a
// step leaves the range. A backward step that stays in the range (a negative tile larger than
// the reversed surface) or a step too small to move a coordinate of the range would never end:
// error 5.
void checkWalkEnds(float from, float step, float end) {
  if (step > 0) {
    const float widest = std::max(std::fabs(from), std::fabs(end));
    if (widest + step == widest) throw RuntimeError(err::InvalidProcedureCall);
  } else if (from + step <= end) {
    throw RuntimeError(err::InvalidProcedureCall);
  }
}

}  // namespace

void clsTilePicture::setObject(ObjectRef obj) {
  if (obj && !paintable(obj.get())) throw RuntimeError(err::InvalidPropertyValue);
  m_Object = std::move(obj);
}

float clsTilePicture::scaleValue(const char* member) { return targetOf(m_Object).get(member).toSingle(); }

void clsTilePicture::Init(ObjectRef obj, std::optional<PictureRef> pic) {
  setObject(std::move(obj));
  if (pic)
    m_Picture = std::move(*pic);
  else
    guarded([&] { m_Picture = targetOf(m_Object).get("Picture").as<PictureRef>(); });
  if (!m_Picture) throw RuntimeError(err::ObjectNotSet);
  corvane::Object& target = targetOf(m_Object);
  m_tileWidth = viaText(target.call("ScaleX", {m_Picture->Width(), int16_t{8}}));
  m_tileHeight = viaText(target.call("ScaleY", {m_Picture->Height(), int16_t{8}}));
}

void clsTilePicture::Resize() {
  guarded([&] { m_growth = 0; });
  guarded([&] {
    if (scaleValue("ScaleWidth") > m_lastWidth) m_growth |= 1;
  });
  guarded([&] {
    if (scaleValue("ScaleHeight") > m_lastHeight) m_growth |= 2;
  });
}

void clsTilePicture::Paint() {
  switch (m_growth) {
    case 1:
      TilePaint(m_lastWidth, scaleValue("ScaleTop"), 0, -1);
      break;  // the strip right of the old width
    case 2:
      TilePaint(scaleValue("ScaleLeft"), m_lastHeight, -1, 0);
      break;  // the strip below the old height
    case 3:
      TilePaint(m_lastWidth, m_lastHeight, 0, 0);
      break;  // the band right of and below the old size
    default:
      TilePaint(scaleValue("ScaleLeft"), scaleValue("ScaleTop"), 0, 0);
      break;  // everything
  }
  m_lastWidth = scaleValue("ScaleWidth");
  m_lastHeight = scaleValue("ScaleHeight");
  m_growth = 0;
}

void clsTilePicture::TilePaint(float startX, float startY, float dX, float dY) {
  corvane::Object& target = targetOf(m_Object);
  // A tile without extent would never end the loops (a Paint after Init with an empty picture):
  // refused with error 5 instead. A negative extent (a reversed scale) runs the loops as they
  // stand.
  if (m_tileWidth == 0 || m_tileHeight == 0) throw RuntimeError(err::InvalidProcedureCall);
  const float left = scaleValue("ScaleLeft"), top = scaleValue("ScaleTop");

  // The ends of the ranges. A negative delta moves the start to the end, so that only the other
  // axis's test can pick a tile.
  float endX, endY;
  if (dX == 0) {
    endX = scaleValue("ScaleWidth") + left;
  } else if (dX < 0) {
    endX = m_tileWidth + scaleValue("ScaleWidth") + left;
    startX = endX;
  } else {
    endX = dX + startX;
  }
  if (dY == 0) {
    endY = scaleValue("ScaleHeight") + top;
  } else if (dY < 0) {
    endY = m_tileHeight + scaleValue("ScaleHeight") + top;
    startY = endY;
  } else {
    endY = dY + startY;
  }

  // Tiles start at the origin in every case, so that a strip lines up with what is there. Both
  // walks are checked before anything is painted: one that would never end is error 5.
  checkWalkEnds(left, m_tileWidth, endX);
  checkWalkEnds(top, m_tileHeight, endY);
  float y = top;
  do {
    float x = left;
    do {
      if (x + m_tileWidth >= startX || y + m_tileHeight >= startY)
        target.call("PaintPicture", {m_Picture, x, y, m_tileWidth, m_tileHeight});
      x += m_tileWidth;
    } while (x <= endX);
    y += m_tileHeight;
  } while (y <= endY);
}

const Dispatch* clsTilePicture::dispatch() const {
  static const Dispatch d = [] {
    Dispatch t;
    DispatchBuilder<clsTilePicture>(t)
        .get("Object", [](clsTilePicture& p) { return p.Object(); })
        .get("Picture", [](clsTilePicture& p) { return p.Picture(); })
        .method("Init",
                [](clsTilePicture& p, Dispatch::Args& a) {
                  std::optional<PictureRef> pic;
                  if (a.size() > 1 && !a[1].isEmpty()) pic = a[1].as<PictureRef>();
                  p.Init(a.at(0).toObject(), pic);
                })
        .method("Paint", [](clsTilePicture& p, Dispatch::Args&) { p.Paint(); })
        .method("Resize", [](clsTilePicture& p, Dispatch::Args&) { p.Resize(); });
    t.addSetter("Object", [](corvane::Object& o, Dispatch::Args&, const Variant& v) {
      static_cast<clsTilePicture&>(o).setObject(v.toObject());
    });
    t.addSetter("Picture", [](corvane::Object& o, Dispatch::Args&, const Variant& v) {
      static_cast<clsTilePicture&>(o).setPicture(v.as<PictureRef>());
    });
    return t;
  }();
  return &d;
}

}  // namespace corvane
