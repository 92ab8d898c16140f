// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <optional>
#include <string>

#include <corvane/export.h>
#include <corvane/host/std_picture.h>
#include <corvane/runtime/component_object.h>
#include <corvane/runtime/object.h>

namespace corvane {

// Repeats one picture over a surface and, after a resize, paints only the band the resize
// uncovered. It works entirely through its target by name: Picture, ScaleX, ScaleY, ScaleLeft,
// ScaleTop, ScaleWidth, ScaleHeight and PaintPicture.
class CORVANE_API clsTilePicture : public Object, public ComponentObject {
 public:
  std::string typeName() const override { return "clsTilePicture"; }

  // The target: a form that is no multiple-document parent, a picture box or a control surface
  // (a control's wrapper counts as the control). Anything else is error 380 and changes
  // nothing; an empty reference is accepted.
  const ObjectRef& Object() const { return m_Object; }
  void setObject(ObjectRef obj);

  const PictureRef& Picture() const { return m_Picture; }
  void setPicture(PictureRef pic) { m_Picture = std::move(pic); }

  // Sets the target and the picture (without one, the target's own picture) and measures a tile
  // in the target's scale. A tile of size 0 (an empty picture) would never end the loops: Paint
  // refuses it with error 5, as it does any walk that would not end.
  void Init(ObjectRef obj, std::optional<PictureRef> pic = std::nullopt);
  // Paints what the last Resize uncovered, or everything when nothing grew.
  void Paint();
  // Notes which of the two extents grew since the last Paint. Errors are ignored.
  void Resize();

  // Paints the tiles from the target's origin up to the ends; see Paint for the arguments.
  void TilePaint(float startX, float startY, float dX, float dY);

  int32_t growthFlags() const { return m_growth; }
  float tileWidth() const { return m_tileWidth; }
  float tileHeight() const { return m_tileHeight; }

 protected:
  const Dispatch* dispatch() const override;

 private:
  float scaleValue(const char* member);

  ObjectRef m_Object;
  PictureRef m_Picture;
  int32_t m_growth = 0;  // bit 0: the width grew, bit 1: the height grew
  float m_lastWidth = 0, m_lastHeight = 0;
  float m_tileWidth = 0, m_tileHeight = 0;
};

}  // namespace corvane
