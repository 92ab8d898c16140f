// SPDX-License-Identifier: MIT
#include <corvane/host/property_page.h>
#include <corvane/host/screen.h>
#include <corvane/platform/api.h>
#include <corvane/runtime/checked.h>
#include <corvane/runtime/runtime_error.h>

namespace corvane {

PropertyPage::PropertyPage(std::string caption, float width, float height)
    : m_caption(std::move(caption)), m_width(width), m_height(height) {}

void PropertyPage::setSelectedControls(std::vector<ObjectRef> controls) {
  m_selected = std::move(controls);
  SelectionChanged();
  m_changed = false;  // reading the values is no change
}

void PropertyPage::Apply() {
  ApplyChanges();
  m_changed = false;
}

ObjectRef PropertyPage::first() const {
  if (m_selected.empty() || !m_selected[0]) throw RuntimeError(err::ObjectNotSet);
  return m_selected[0];
}

PropertyPage::Field& PropertyPage::addField(FieldKind kind, const std::string& name,
                                            const std::string& caption, float left, float top, float width,
                                            float height) {
  Field f;
  f.kind = kind;
  f.name = name;
  f.caption = caption;
  f.left = left, f.top = top, f.width = width, f.height = height;
  m_fields.push_back(std::move(f));
  return m_fields.back();
}

PropertyPage::Field& PropertyPage::addCheckBox(const std::string& name, const std::string& caption,
                                               float left, float top, float width, float height) {
  return addField(CheckBox, name, caption, left, top, width, height);
}

PropertyPage::Field& PropertyPage::addTextBox(const std::string& name, float left, float top, float width,
                                              float height) {
  return addField(TextBox, name, {}, left, top, width, height);
}

PropertyPage::Field& PropertyPage::addLabel(const std::string& name, const std::string& caption, float left,
                                            float top, float width, float height) {
  return addField(Label, name, caption, left, top, width, height);
}

PropertyPage::Field& PropertyPage::addButton(const std::string& name, int16_t index,
                                             const std::string& caption, float left, float top, float width,
                                             float height) {
  Field& f = addField(Button, name, caption, left, top, width, height);
  f.index = index;
  return f;
}

PropertyPage::Field& PropertyPage::fieldRef(const std::string& name, int16_t index) {
  for (Field& f : m_fields)
    if (f.name == name && f.index == index) return f;
  throw RuntimeError(err::SubscriptOutOfRange, "No field '" + name + "' on the page");
}

const PropertyPage::Field& PropertyPage::field(const std::string& name, int16_t index) const {
  return const_cast<PropertyPage*>(this)->fieldRef(name, index);
}

void PropertyPage::setText(const std::string& name, const std::string& text) {
  Field& f = fieldRef(name);
  if (f.kind != TextBox) throw RuntimeError(err::MemberNotFound);
  f.text = text;
  changed(name);
}

void PropertyPage::setValue(const std::string& name, int16_t value) {
  Field& f = fieldRef(name);
  if (f.kind != CheckBox) throw RuntimeError(err::MemberNotFound);
  if (value < 0 || value > 1) throw RuntimeError(err::InvalidPropertyValue);
  f.value = value;
  changed(name);
}

void PropertyPage::click(const std::string& name, int16_t index) {
  Field& f = fieldRef(name, index);
  if (f.kind == CheckBox) {
    setValue(name, f.value ? 0 : 1);
    return;
  }
  if (f.kind == Button) onClick(name, index);
}

// ---- drawing ----

void PropertyPage::draw(Surface& target) const {
  HDC dc = target.hdc();
  Screen& screen = Screen::instance();
  auto px = [&](float twips, bool horizontal) {
    return CLng(twips / (horizontal ? screen.TwipsPerPixelX() : screen.TwipsPerPixelY()));
  };
  auto fill = [&](const RECT& r, COLORREF c) {
    HBRUSH b = gdi().CreateSolidBrush(c);
    gdi().FillRect(dc, r, b);
    gdi().DeleteObject(b);
  };
  auto text = [&](const Field& f, RECT r, const std::string& s, int32_t flags) {
    FontSpec font;
    font.name = f.fontName;
    font.size = 8.25;
    gdi().SetDCFont(dc, font);
    gdi().SetTextColor(dc, translateColor(f.foreColor));
    gdi().SetBkMode(dc, 1);
    gdi().DrawTextA(dc, s, -1, r, flags);
  };
  fill(RECT{0, 0, px(m_width, true), px(m_height, false)}, gdi().GetSysColor(syscolor::BTNFACE));
  for (const Field& f : m_fields) {
    RECT r{px(f.left, true), px(f.top, false), px(f.left + f.width, true), px(f.top + f.height, false)};
    switch (f.kind) {
      case CheckBox: {
        int32_t mid = (r.Top + r.Bottom) / 2;
        RECT box{r.Left, mid - 6, r.Left + 13, mid + 7};
        fill(box, gdi().GetSysColor(syscolor::WINDOW));
        gdi().DrawEdge(dc, box, EDGE_SUNKEN, BF_RECT);
        if (f.value) {
          // A tick of two strokes, three pixels thick.
          COLORREF ink = gdi().GetSysColor(syscolor::WINDOWTEXT);
          for (int32_t k = 0; k < 7; ++k) {
            int32_t x = box.Left + 3 + k, y = k < 3 ? mid - 1 + k : mid + 1 - (k - 2);
            fill(RECT{x, y, x + 1, y + 3}, ink);
          }
        }
        text(f, RECT{r.Left + 17, r.Top, r.Right, r.Bottom}, f.caption,
             DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
        break;
      }
      case TextBox:
        fill(r, gdi().GetSysColor(syscolor::WINDOW));
        gdi().DrawEdge(dc, r, EDGE_SUNKEN, BF_RECT);
        if (f.multiLine)
          text(f, RECT{r.Left + 4, r.Top + 3, r.Right - 2, r.Bottom - 2}, f.text, DT_WORDBREAK | DT_NOPREFIX);
        else
          text(f, RECT{r.Left + 4, r.Top, r.Right - 2, r.Bottom}, f.text,
               DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
        break;
      case Label:
        text(f, r, f.caption, DT_WORDBREAK | DT_NOPREFIX);
        break;
      case Button:
        fill(r, gdi().GetSysColor(syscolor::BTNFACE));
        gdi().DrawEdge(dc, r, EDGE_RAISED, BF_RECT);
        text(f, r, f.caption, DT_SINGLELINE | DT_VCENTER | DT_CENTER | DT_NOPREFIX);
        break;
    }
  }
  target.Refresh();
}

}  // namespace corvane
