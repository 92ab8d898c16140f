// SPDX-License-Identifier: MIT
#include "desktop/gdi_handle_table.h"

#include <utility>

namespace corvane {

GdiHandleTable::Slot* GdiHandleTable::take(size_t& index) {
  if (!m_free.empty()) {
    index = m_free.back();  // the slot freed last: its memory is the warmest
    m_free.pop_back();
  } else {
    if (m_slots.size() >= static_cast<size_t>(m_maxLive)) return nullptr;
    index = m_slots.size();
    m_slots.emplace_back();
  }
  Slot& s = m_slots[index];
  s.used = true;
  if (!s.object) s.object = std::make_unique<GdiObject>(GdiObject::Kind::Pen);
  return &s;
}

int32_t GdiHandleTable::add(GdiObject object) {
  size_t index = 0;
  Slot* s = take(index);
  if (!s) return 0;
  *s->object = std::move(object);
  s->holdsObject = true;
  return handleOf(index);
}

int32_t GdiHandleTable::addPlain(GdiObject::Kind kind, int32_t penStyle, int32_t penWidth, COLORREF colour) {
  size_t index = 0;
  Slot* s = take(index);
  if (!s) return 0;
  GdiObject& o = *s->object;
  // A freed slot holds a plain pen: removing anything else leaves one (see remove).
  o.kind = kind;
  o.penStyle = penStyle;
  o.penWidth = penWidth;
  o.colour = colour;
  s->holdsObject = true;
  return handleOf(index);
}

bool GdiHandleTable::cyclePlain(uint32_t count) {
  if (count == 0) return true;
  size_t index = 0;
  Slot* s = take(index);
  if (!s) return false;
  s->used = false;
  s->holdsObject = false;
  s->generation = static_cast<uint32_t>((uint64_t{s->generation} + count) % kGenerations);
  m_free.push_back(static_cast<uint32_t>(index));
  return true;
}

int32_t GdiHandleTable::reserve() {
  size_t index = 0;
  Slot* s = take(index);
  if (!s) return 0;
  s->holdsObject = false;
  return handleOf(index);
}

void GdiHandleTable::remove(int32_t handle) {
  Slot* s = slot(handle);
  if (!s) return;
  const GdiObject::Kind kind = s->object->kind;
  const bool plain = (kind == GdiObject::Kind::Pen || kind == GdiObject::Kind::Brush) && !s->object->stock;
  if (!s->holdsObject || !plain) *s->object = GdiObject(GdiObject::Kind::Pen);  // frees fonts, pixels, regions
  s->used = false;
  s->holdsObject = false;
  s->generation = (s->generation + 1) % kGenerations;
  m_free.push_back(static_cast<uint32_t>((handle & kSlotMask) - kFirst));
}

}  // namespace corvane
