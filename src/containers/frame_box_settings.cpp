// SPDX-License-Identifier: MIT
#include <corvane/containers/frame_box_settings.h>
#include <corvane/runtime/val.h>

namespace corvane {

namespace {
constexpr OLE_COLOR kHintColour = 0x808080;

int16_t checkOf(const Variant& v) { return (v.toLong() & 1) != 0 ? 1 : 0; }
}  // namespace

FrameBoxSettings::FrameBoxSettings() : PropertyPage("Einstellungen", 5925, 3495) {
  auto label = [&](const std::string& name, const std::string& caption, float left, float top, float width) {
    addLabel(name, caption, left, top, width, 255);
  };
  auto hint = [&](const std::string& name, const std::string& caption, float left, float top) {
    Field& f = addLabel(name, caption, left, top, 3200, 450);
    f.foreColor = kHintColour;
    f.fontName = "Arial";
  };
  auto text = [&](const std::string& name, float top) { addTextBox(name, 1500, top, 1000, 285); };
  auto check = [&](const std::string& name, const std::string& caption, float top) {
    addCheckBox(name, caption, 120, top, 2400, 285);
  };

  label("lblScrollValue", "ScrollValue", 120, 150, 1300);
  text("txtScrollValue", 120);
  const char* glyphs[] = {"t", "v", "u"};
  for (int16_t i = 0; i < 3; ++i)
    addButton("cmdScroll", i, glyphs[i], 2580.0f + 300.0f * i, 120, 285, 285).fontName = "Marlett";
  hint("lblHintScrollValue", "dient nur in der IDE zum hoch und runterscrollen.", 120, 480);
  check("chkScrollVisible", "ScrollVisible", 900);
  label("lblFrameDistance", "FrameDistance", 120, 1350, 1300);
  text("txtFrameDistance", 1320);
  hint("lblHintFrameDistance", "Abstand zwischen den einzelnen Controls", 2600, 1350);
  check("chkAutoIndent", "AutoIndent", 1800);
  hint("lblHintAutoIndent", "automatische Breitenanpassung der Controls bei Scrollbar", 2600, 1830);
  check("chkScrollBarAlways", "ScrollBarAlways", 2300);
  hint("lblHintScrollBarAlways", "die Scrollbar immer anzeigen?", 2600, 2330);
  label("lblScrollBarTop", "ScrollBarTop", 120, 2830, 1300);
  text("txtScrollBarTop", 2800);
  hint("lblHintScrollBarTop", "An welcher Top-Position soll die Scrollbar anfangen?", 2600, 2830);
}

void FrameBoxSettings::SelectionChanged() {
  ObjectRef box = first();
  fieldRef("txtScrollValue").text = box->get("ScrollValue").toString();
  fieldRef("chkScrollVisible").value = checkOf(box->get("ScrollVisible"));
  fieldRef("txtFrameDistance").text = box->get("FrameDistance").toString();
  fieldRef("chkAutoIndent").value = checkOf(box->get("AutoIndent"));
  fieldRef("chkScrollBarAlways").value = checkOf(box->get("ScrollBarAlways"));
  fieldRef("txtScrollBarTop").text = box->get("ScrollBarTop").toString();
}

void FrameBoxSettings::ApplyChanges() {
  ObjectRef box = first();
  // Text boxes go to the numeric properties as they stand: a text that is no number fails there.
  box->let("ScrollValue", Variant(fieldRef("txtScrollValue").text));
  box->let("ScrollVisible", Variant(fieldRef("chkScrollVisible").value));
  box->let("FrameDistance", Variant(fieldRef("txtFrameDistance").text));
  box->let("AutoIndent", Variant(fieldRef("chkAutoIndent").value));
  box->let("ScrollBarAlways", Variant(fieldRef("chkScrollBarAlways").value));
  box->let("ScrollBarTop", Variant(fieldRef("txtScrollBarTop").text));
}

void FrameBoxSettings::onClick(const std::string& name, int16_t index) {
  if (name != "cmdScroll") return;
  const std::string& now = field("txtScrollValue").text;
  if (index == 0)
    setText("txtScrollValue", Variant(Val(now) + 1000).toString());
  else if (index == 1)
    setText("txtScrollValue", "0");
  else if (index == 2)
    setText("txtScrollValue", Variant(Val(now) - 1000).toString());
}

}  // namespace corvane
