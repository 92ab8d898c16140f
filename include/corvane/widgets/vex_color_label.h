// SPDX-License-Identifier: MIT
#pragma once
#include <string>
#include <string_view>
#include <vector>

#include <corvane/export.h>
#include <corvane/frame/control_base.h>
#include <corvane/runtime/event.h>
#include <corvane/runtime/vb_array.h>

namespace corvane {

// One formatted piece of a label's caption.
struct CORVANE_API LabelPart {
  std::string Text;
  int16_t Bold = 0;
  int16_t Italic = 0;
  int16_t Underline = 0;
  int16_t Strikethrough = 0;
  int16_t NewLine = 0;
  int32_t Color = 0;
};

// The result of looking for the next tag; Kind 1 means none was found.
struct CORVANE_API LabelTag {
  int32_t Kind = 1;
  std::string Value;
  int16_t Start = 0;
  int16_t End = 0;
};

// A label whose caption carries inline markup: <b>, <i>, <u>, <s>, <c colour>, </c> and <br>.
// It parses the caption into pieces, wraps them at blanks to its width when WordWrap is set,
// prints them one after the other and can grow to fit (Autosize). A repaint reuses the pieces of
// the last parse while the caption, the fore colour and the font's styles are the same.
class CORVANE_API VexColorLabel : public ControlBase {
 public:
  std::string typeName() const override { return "VexColorLabel"; }

  OLE_COLOR ForeColor() const { return surface().ForeColor(); }
  void setForeColor(OLE_COLOR value);
  const std::string& Caption() const { return m_Caption; }
  void setCaption(const std::string& value);
  bool Autosize() const { return m_Autosize; }
  void setAutosize(bool value);
  bool WordWrap() const { return m_WordWrap; }
  void setWordWrap(bool value);
  FontRef Font() const { return surface().Font(); }
  void setFont(const FontRef& value);
  void setEnabled(bool value) override;
  PictureRef MouseIcon() const { return surface().MouseIcon(); }
  void setMouseIcon(const PictureRef& value);
  int16_t MousePointer() const { return surface().MousePointer(); }
  void setMousePointer(int16_t value);

  Event<> Click, DblClick, Resize;
  Event<int16_t&, int16_t&, float&, float&> MouseDown, MouseMove, MouseUp;

  // Lifecycle.
  void InitProperties() override;
  void ReadProperties(PropertyBag& bag) override;
  void WriteProperties(PropertyBag& bag) override;
  void onResize() override;

  // The parsing and drawing steps, public so that tests can follow them.
  void DrawLabel();
  void ParseCaption();
  LabelTag NextTag(int32_t index) const;
  void WrapParts();
  void SplitText(int32_t index, int32_t avail, std::string& head, std::string& tail, std::string& flag);
  void InsertPart(int32_t index);
  const VbArray<LabelPart>& Parts() const { return m_Parts; }
  bool busy() const { return m_Busy != 0; }
  // How often the caption was parsed into pieces, for tests of what a repaint reuses.
  uint64_t captionParses() const { return m_captionParses; }

 protected:
  void redraw() override { DrawLabel(); }
  void onClick() override { Click(); }
  void onDblClick() override { DblClick(); }
  void onMouseDown(int16_t& b, int16_t& s, float& x, float& y) override { MouseDown(b, s, x, y); }
  void onMouseMove(int16_t& b, int16_t& s, float& x, float& y) override { MouseMove(b, s, x, y); }
  void onMouseUp(int16_t& b, int16_t& s, float& x, float& y) override { MouseUp(b, s, x, y); }
  const Dispatch* dispatch() const override;

 private:
  // Caption, Autosize and Font repaint twice when the first pass made the control wider.
  void drawAfterWidthChange();
  void applyTag(LabelPart& part, const LabelTag& tag, int32_t defaultColour) const;
  // NextTag on any text; the byte offsets of the tag's "<" and ">" go to the two pointers.
  static LabelTag findTag(std::string_view text, size_t* startByte = nullptr, size_t* endByte = nullptr);
  // SplitText on any text; the tail is the end of `text`, from its first character on.
  void splitAt(std::string_view text, int32_t avail, std::string& head, std::string_view& tail, std::string& flag);
  // Whether a text fits a width: `fits` is asked about the widths of ever longer beginnings of
  // the text, which stops at the first that does not fit, since no text is narrower than its
  // beginning. So a long text costs only as much as its part that fits.
  struct Probe {
    bool fits = false;   // the whole text fits; `width` is its width
    float width = 0;
    size_t failAt = 0;   // otherwise the length in bytes of a beginning that is too wide
  };
  template <class Fits>
  Probe probe(std::string_view text, Fits fits);
  void storeParts(std::vector<LabelPart>& parts);
  // ParseCaption without the wrapping.
  void parseParts();
  // What a parse depends on besides the markup rules.
  struct ParseInput {
    std::string caption;
    int32_t colour = 0;
    bool bold = false, italic = false, underline = false, strikethrough = false;
    bool operator==(const ParseInput&) const = default;
  };
  ParseInput parseInput();
  // DrawLabel's parse: the kept pieces when the parse's input is unchanged.
  void parseForDrawing();

  std::string m_Caption;
  bool m_Autosize = false;
  bool m_WordWrap = false;
  int16_t m_Busy = 0;
  int32_t m_OldWidth = 0;
  VbArray<LabelPart> m_Parts;
  // The last parse that completed, by its input; with WordWrap (which rebuilds the parts) a copy of
  // its pieces (m_keptCopy). m_partsAreParse: m_Parts still holds those pieces unwrapped.
  bool m_parseKept = false, m_keptCopy = false, m_partsAreParse = false;
  ParseInput m_keptInput;
  std::vector<LabelPart> m_keptParts;
  uint64_t m_captionParses = 0;
};

}  // namespace corvane
