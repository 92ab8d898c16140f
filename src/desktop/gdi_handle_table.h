// SPDX-License-Identifier: MIT
#pragma once
#include <algorithm>
#include <cstdint>
#include <memory>
#include <vector>

#include "desktop/gdi_object.h"

namespace corvane {

// The handles of the drawing side: objects, pictures, open keys and device contexts share one
// space of numbers. A handle names a slot and the slot's generation, so a slot freed and used again
// gives a new, larger number and the old handle stays invalid. Painters make and delete a pen per
// line, so finding, adding and removing cost a few instructions and no allocation once the slots
// exist.
class GdiHandleTable {
 public:
  // At most this many handles live at once; beyond it adding gives 0, as a full handle quota does.
  static constexpr int32_t kMaxLive = (1 << 20) - 0x100;
  explicit GdiHandleTable(int32_t maxLive = kMaxLive) : m_maxLive(std::clamp(maxLive, 0, kMaxLive)) {}

  // A new handle for the object, 0 when the table is full.
  int32_t add(GdiObject object);
  // A pen or a brush: a slot that held one before only gets its fields set.
  int32_t addPlain(GdiObject::Kind kind, int32_t penStyle, int32_t penWidth, COLORREF colour);
  // What adding count plain pens and removing each before the next would do (a painter's pen per
  // line): one slot's generation moves on by count. False, with nothing changed, when the table is
  // full, so that the first add would give 0.
  bool cyclePlain(uint32_t count);
  // A handle that names no object (a device context's), 0 when the table is full.
  int32_t reserve();
  // The object of a live handle; null for 0, unknown, freed and reserved handles.
  GdiObject* find(int32_t handle) {
    Slot* s = slot(handle);
    return s && s->holdsObject ? s->object.get() : nullptr;
  }
  const GdiObject* find(int32_t handle) const { return const_cast<GdiHandleTable*>(this)->find(handle); }
  // Frees a live handle (object or reservation); an object's resources go with it.
  void remove(int32_t handle);

 private:
  static constexpr int32_t kFirst = 0x100;  // small numbers stand for system colour brushes
  static constexpr int kSlotBits = 20;
  static constexpr int32_t kSlotMask = (1 << kSlotBits) - 1;
  static constexpr uint32_t kGenerations = 1u << (31 - kSlotBits);

  struct Slot {
    uint32_t generation = 0;
    bool used = false;
    bool holdsObject = false;
    std::unique_ptr<GdiObject> object;  // on the heap: objects stay where they are while the table grows
  };

  Slot* slot(int32_t handle) {
    const int32_t low = handle & kSlotMask;
    if (handle <= 0 || low < kFirst) return nullptr;
    const size_t index = static_cast<size_t>(low - kFirst);
    if (index >= m_slots.size()) return nullptr;
    Slot& s = m_slots[index];
    if (!s.used || s.generation != (static_cast<uint32_t>(handle) >> kSlotBits)) return nullptr;
    return &s;
  }
  // A free slot, marked used, or null when the table is full; its index is stored in index.
  Slot* take(size_t& index);
  int32_t handleOf(size_t index) const {
    return static_cast<int32_t>((m_slots[index].generation << kSlotBits) | static_cast<uint32_t>(index + kFirst));
  }

  int32_t m_maxLive;
  std::vector<Slot> m_slots;
  std::vector<uint32_t> m_free;
};

}  // namespace corvane
