// SPDX-License-Identifier: MIT
#include <corvane/containers/frame_settings.h>

namespace corvane {

namespace {
// A check box shows a property's value And 1.
int16_t checkOf(const Variant& v) { return (v.toLong() & 1) != 0 ? 1 : 0; }
}  // namespace

FrameSettings::FrameSettings() : PropertyPage("Einstellungen", 5850, 3465) {
  addCheckBox("chkExpandiert", "Expandiert (Aufgeklappt bzw. Zugeklappt)", 240, 240, 5300, 285);
  addCheckBox("chkExpandierbar", "Expandierbar (Auf- und Zuklappen erlauben?)", 240, 600, 5300, 285);
}

void FrameSettings::SelectionChanged() {
  ObjectRef frame = first();
  fieldRef("chkExpandiert").value = checkOf(frame->get("Expandiert"));
  fieldRef("chkExpandierbar").value = checkOf(frame->get("Expandierbar"));
}

void FrameSettings::ApplyChanges() {
  ObjectRef frame = first();
  frame->let("Expandiert", Variant(fieldRef("chkExpandiert").value));
  frame->let("Expandierbar", Variant(fieldRef("chkExpandierbar").value));
}

}  // namespace corvane
