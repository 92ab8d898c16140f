// SPDX-License-Identifier: MIT
#pragma once
#include <corvane/export.h>
#include <corvane/host/surface.h>
#include <corvane/platform/system_macros_begin.h>
#include <corvane/runtime/object.h>

#include <cstdint>
#include <string>
#include <vector>

namespace corvane {

// A designer's property page: a caption, a surface of simple fields (check boxes, text boxes,
// labels, buttons), the controls selected in the designer, and the two hooks the designer calls:
// SelectionChanged to read the values of the first selected control into the fields, and
// ApplyChanges to write them back. A field that the user changes marks the page as changed.
class CORVANE_API PropertyPage : public Object {
 public:
  enum FieldKind : int16_t { CheckBox, TextBox, Label, Button };
  // One field of the page; positions and sizes in twips.
  struct Field {
    std::string name;
    int16_t index = -1;  // the index within a group of fields of one name, -1 for none
    FieldKind kind = Label;
    std::string caption;  // check boxes, labels and buttons
    std::string text;     // text boxes
    int16_t value = 0;    // check boxes: 0 or 1
    float left = 0, top = 0, width = 0, height = 0;
    OLE_COLOR foreColor = static_cast<OLE_COLOR>(0x80000012);
    std::string fontName = "MS Sans Serif";
    bool multiLine = false;  // text boxes: lines from the top, wrapped at the width
  };

  std::string Caption() const { return m_caption; }
  float designWidth() const { return m_width; }
  float designHeight() const { return m_height; }

  bool Changed() const { return m_changed; }
  void setChanged(bool v) { m_changed = v; }

  // The designer's selection; setting it runs SelectionChanged.
  const std::vector<ObjectRef>& SelectedControls() const { return m_selected; }
  void setSelectedControls(std::vector<ObjectRef> controls);
  // The designer applies the page: ApplyChanges, and the page is unchanged again. An error of a
  // property goes back to the designer and the page stays changed.
  void Apply();

  // What a user does with the fields; each raises the field's change notification.
  void setText(const std::string& name, const std::string& text);
  void setValue(const std::string& name, int16_t value);
  void click(const std::string& name, int16_t index = -1);

  const std::vector<Field>& fields() const { return m_fields; }
  const Field& field(const std::string& name, int16_t index = -1) const;

  // Paints the page onto a surface (its face, then every field), as a designer shows it.
  void draw(Surface& target) const;

 protected:
  PropertyPage(std::string caption, float width, float height);
  virtual void SelectionChanged() = 0;
  virtual void ApplyChanges() = 0;
  // A button was clicked; the default does nothing.
  virtual void onClick(const std::string&, int16_t) {}

  // Adds a field (positions and sizes in twips).
  Field& addCheckBox(const std::string& name, const std::string& caption, float left, float top, float width,
                     float height);
  Field& addTextBox(const std::string& name, float left, float top, float width, float height);
  Field& addLabel(const std::string& name, const std::string& caption, float left, float top, float width,
                  float height);
  Field& addButton(const std::string& name, int16_t index, const std::string& caption, float left, float top,
                   float width, float height);
  Field& fieldRef(const std::string& name, int16_t index = -1);
  // The first selected control; error 91 when nothing is selected.
  ObjectRef first() const;

 private:
  void changed(const std::string&) { m_changed = true; }
  Field& addField(FieldKind kind, const std::string& name, const std::string& caption, float left, float top,
                  float width, float height);

  std::string m_caption;
  float m_width, m_height;
  bool m_changed = false;
  std::vector<ObjectRef> m_selected;
  std::vector<Field> m_fields;
};

}  // namespace corvane

#include <corvane/platform/system_macros_end.h>
