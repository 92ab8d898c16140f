#include <corvane/widgets/vex_color_label.h>

#include <corvane/host/screen.h>
#include <corvane/platform/api.h>
#include <corvane/runtime/checked.h>
#include <corvane/runtime/strings.h>
#include <corvane/runtime/val.h>

namespace corvane {

namespace {
constexpr OLE_COLOR kDefaultForeColor = static_cast<OLE_COLOR>(0x80000008);
constexpr OLE_COLOR kDefaultBackColor = static_cast<OLE_COLOR>(0x8000000F);
// Marks a split whose first word does not fit; no split result can look like it.
const std::string kNoFit = "novyradek";
}  // namespace

// ---- properties ----

void VexColorLabel::setForeColor(OLE_COLOR value) {
  surface().setForeColor(value);
  PropertyChanged("ForeColor");
  DrawLabel();
}

void VexColorLabel::drawAfterWidthChange() {
  m_OldWidth = CLng(surface().Width());
  DrawLabel();
  if (surface().Width() > static_cast<float>(m_OldWidth)) DrawLabel();
}

void VexColorLabel::setCaption(const std::string& value) {
  m_Caption = Trim(value);
  PropertyChanged("Caption");
  drawAfterWidthChange();
}

void VexColorLabel::setAutosize(bool value) {
  m_Autosize = value;
  PropertyChanged("Autosize");
  drawAfterWidthChange();
}

void VexColorLabel::setWordWrap(bool value) {
  m_WordWrap = value;
  PropertyChanged("WordWrap");
  DrawLabel();
}

void VexColorLabel::setFont(const FontRef& value) {
  surface().setFont(value);  // Nothing is error 380, "Cannot set Font to Nothing"
  PropertyChanged("Font");
  drawAfterWidthChange();
}

void VexColorLabel::setEnabled(bool value) {
  m_Enabled = value;
  applyEnabledToSurface();
  PropertyChanged("Enabled");
}

void VexColorLabel::setMouseIcon(const PictureRef& value) {
  surface().setMouseIcon(value);
  PropertyChanged("MouseIcon");
}

void VexColorLabel::setMousePointer(int16_t value) {
  surface().setMousePointer(value);
  PropertyChanged("MousePointer");
}

// ---- lifecycle ----

void VexColorLabel::InitProperties() {
  guarded([&] { surface().setBackColor(containerMember("BackColor").toLong()); });
  guarded([&] { surface().setForeColor(kDefaultForeColor); });
  m_Caption.clear();
  m_Autosize = false;
  m_WordWrap = false;
  guarded([&] { surface().setFont(ambient().Font()); });
  m_Enabled = true;
  guarded([&] { surface().setMouseIcon(LoadPicture()); });
  guarded([&] { surface().setMousePointer(0); });
}

void VexColorLabel::ReadProperties(PropertyBag& bag) {
  guarded([&] { surface().setForeColor(bag.ReadProperty("ForeColor", kDefaultForeColor).toLong()); });
  guarded([&] { surface().setBackColor(bag.ReadProperty("BackColor", kDefaultBackColor).toLong()); });
  guarded([&] { surface().setFont(bag.ReadProperty("Font", ambient().Font()).as<FontRef>()); });
  guarded([&] { m_Caption = bag.ReadProperty("Caption", ambient().DisplayName()).toString(); });
  guarded([&] { m_Autosize = bag.ReadProperty("Autosize", false).toBool(); });
  guarded([&] { m_WordWrap = bag.ReadProperty("WordWrap", false).toBool(); });
  guarded([&] {
    m_Enabled = bag.ReadProperty("Enabled", true).toBool();
    applyEnabledToSurface();
  });
  guarded([&] {
    PictureRef icon = bag.ReadProperty("MouseIcon", Variant()).as<PictureRef>();
    surface().setMouseIcon(icon ? icon : LoadPicture());
  });
  guarded([&] { surface().setMousePointer(bag.ReadProperty("MousePointer", int16_t(0)).toInteger()); });
}

void VexColorLabel::WriteProperties(PropertyBag& bag) {
  guarded([&] { bag.WriteProperty("ForeColor", surface().ForeColor(), kDefaultForeColor); });
  guarded([&] { bag.WriteProperty("BackColor", surface().BackColor(), kDefaultBackColor); });
  guarded([&] { bag.WriteProperty("Font", surface().Font(), ambient().Font()); });
  guarded([&] { bag.WriteProperty("Caption", m_Caption, ambient().DisplayName()); });
  guarded([&] { bag.WriteProperty("Autosize", m_Autosize, false); });
  guarded([&] { bag.WriteProperty("WordWrap", m_WordWrap, false); });
  guarded([&] { bag.WriteProperty("Enabled", m_Enabled, true); });
  guarded([&] {
    // An empty picture is stored as none.
    const PictureRef& icon = surface().MouseIcon();
    bag.WriteProperty("MouseIcon", icon && icon->Handle() ? Variant(icon) : Variant(), Variant());
  });
  guarded([&] { bag.WriteProperty("MousePointer", surface().MousePointer(), int16_t(0)); });
}

void VexColorLabel::onResize() {
  Resize();
  if (!m_Busy) DrawLabel();
}

// ---- parsing ----

LabelTag VexColorLabel::NextTag(int32_t index) const {
  const std::string& text = m_Parts(index).Text;
  LabelTag tag;
  for (;;) {
    tag.Start = CInt(InStr(tag.Start + 1, text, "<"));
    if (tag.Start == 0) return tag;
    tag.End = CInt(InStr(tag.Start, text, ">"));
    if (tag.End == 0) return tag;
    std::string t = LCase(Mid(text, tag.Start, tag.End - tag.Start + 1));
    auto set = [&](int32_t kind, std::string value) {
      tag.Kind = kind;
      tag.Value = std::move(value);
    };
    if (t == "<b>") set(2, "True");
    else if (t == "</b>") set(2, "False");
    else if (t == "<i>") set(3, "True");
    else if (t == "</i>") set(3, "False");
    else if (t == "<u>") set(4, "True");
    else if (t == "</u>") set(4, "False");
    else if (t == "<s>") set(5, "True");
    else if (t == "</s>") set(5, "False");
    else if (t == "<br>") set(7, "");
    else if (t == "</c>") set(6, "-1");
    else if (Left(t, 2) == "<c" && Len(t) < 20) set(6, Variant(Val(Mid(t, 3, Len(t) - 3))).toString());
    if (tag.Kind != 1) return tag;
    // Not a tag of ours: it stays text, and the search goes on behind its "<".
  }
}

void VexColorLabel::applyTag(LabelPart& part, const LabelTag& tag, int32_t defaultColour) const {
  switch (tag.Kind) {
    case 2: part.Bold = Variant(tag.Value).toBool() ? -1 : 0; break;
    case 3: part.Italic = Variant(tag.Value).toBool() ? -1 : 0; break;
    case 4: part.Underline = Variant(tag.Value).toBool() ? -1 : 0; break;
    case 5: part.Strikethrough = Variant(tag.Value).toBool() ? -1 : 0; break;
    case 6: {
      int32_t c = Variant(tag.Value).toLong();  // a number beyond 32 bits overflows here
      part.Color = c == -1 ? defaultColour : c;
      break;
    }
    case 7: part.NewLine = -1; break;
    default: break;
  }
}

void VexColorLabel::ParseCaption() {
  Surface& s = surface();
  int32_t defaultColour = s.ForeColor();
  if (defaultColour < 0) defaultColour = gdi().GetSysColor(defaultColour & 0xFFFFFF);

  m_Parts.redim(1, 1);
  LabelPart& first = m_Parts(1);
  first.Text = m_Caption;
  first.Bold = s.FontBold() ? -1 : 0;
  first.Italic = s.FontItalic() ? -1 : 0;
  first.Underline = s.FontUnderline() ? -1 : 0;
  first.Strikethrough = s.FontStrikethru() ? -1 : 0;
  first.NewLine = -1;
  first.Color = defaultColour;

  int32_t current = m_Parts.ubound();
  LabelTag tag = NextTag(current);
  while (tag.Kind != 1) {
    std::string before = Left(m_Parts(current).Text, tag.Start - 1);
    std::string rest = Mid(m_Parts(current).Text, tag.End + 1);
    if (Trim(before).empty() && tag.Kind != 7) {
      // The tag formats the current piece itself; its blanks go to the piece before.
      if (current > 1) m_Parts(current - 1).Text += before;
      m_Parts(current).Text = rest;
      applyTag(m_Parts(current), tag, defaultColour);
      tag = NextTag(current);
      continue;
    }
    m_Parts(current).Text = before;
    if (Trim(rest).empty()) break;  // a tag with only blanks behind it has no effect
    LabelPart next = m_Parts(current);
    next.Text = rest;
    next.NewLine = 0;
    applyTag(next, tag, defaultColour);
    m_Parts.redimPreserve(m_Parts.ubound() + 1);
    current = m_Parts.ubound();
    m_Parts(current) = std::move(next);
    tag = NextTag(current);
  }
  if (m_WordWrap) WrapParts();
}

// ---- wrapping ----

void VexColorLabel::InsertPart(int32_t index) {
  m_Parts.redimPreserve(m_Parts.ubound() + 1);
  for (int32_t j = m_Parts.ubound(); j >= index + 2; --j) m_Parts(j) = m_Parts(j - 1);
  m_Parts(index + 1) = m_Parts(index);
}

void VexColorLabel::SplitText(int32_t index, int32_t avail, std::string& head, std::string& tail, std::string& flag) {
  Surface& s = surface();
  const std::string text = m_Parts(index).Text;
  const int32_t len = Len(text);
  auto nextSpace = [&](int32_t p) {
    int32_t at = InStr(p, text, " ");
    return at == 0 ? len + 1 : at;
  };
  int32_t p1 = nextSpace(1);
  int32_t p2 = nextSpace(p1 + 1);
  for (;;) {
    if (p1 == len + 1) {
      int32_t space = InStr(text, " ");
      if (space > 0) {
        head = Left(text, space - 1);
        tail = LTrim(Mid(text, space + 1));
      } else {
        head.clear();
        tail.clear();
      }
      flag = kNoFit;
      return;
    }
    head = Left(text, p1 - 1);
    tail = Left(text, p2 - 1);
    if (s.TextWidth(head) <= static_cast<float>(avail) && s.TextWidth(tail) > static_cast<float>(avail)) {
      head = RTrim(head);
      tail = LTrim(Mid(text, p1 + 1));
      flag.clear();
      return;
    }
    p1 = p2;
    p2 = nextSpace(p1 + 1);
  }
}

void VexColorLabel::WrapParts() {
  Surface& s = surface();
  const float width = s.ScaleWidth();
  float x = 0;
  int32_t i = 1;
  while (i <= m_Parts.ubound()) {
    LabelPart& part = m_Parts(i);
    s.setFontBold(part.Bold != 0);
    s.setFontItalic(part.Italic != 0);
    if (part.NewLine) x = 0;
    const float lineBefore = x;
    x += s.TextWidth(part.Text);
    if (x <= width) {
      ++i;
      continue;
    }
    int32_t avail = CLng(width - lineBefore);
    std::string head, tail, flag;
    SplitText(i, avail, head, tail, flag);
    const bool atLineStart = m_Parts(i).NewLine != 0;
    if (!Trim(head).empty()) {
      if (flag == kNoFit && !atLineStart) {
        m_Parts(i).NewLine = -1;  // the first word goes to a new line; look at this piece again
        x = lineBefore;
        continue;
      }
      InsertPart(i);
      m_Parts(i).Text = head;
      m_Parts(i + 1).Text = tail;
      m_Parts(i + 1).NewLine = -1;
      ++i;
      continue;
    }
    if (!atLineStart) {
      m_Parts(i).NewLine = -1;
      x = lineBefore;
      continue;
    }
    if (i == m_Parts.ubound()) break;
    // An unbreakable piece stays whole and overflows; what follows starts a new line.
    m_Parts(i + 1).NewLine = -1;
    ++i;
  }
}

// ---- painting ----

void VexColorLabel::DrawLabel() {
  Surface& s = surface();
  guarded([&] { s.setAutoRedraw(true); });
  guarded([&] { s.Cls(); });

  std::string savedCaption = m_Caption;
  bool savedBold = false, savedItalic = false, savedUnderline = false, savedStrike = false;
  OLE_COLOR savedFore = 0;
  guarded([&] { savedBold = s.FontBold(); });
  guarded([&] { savedItalic = s.FontItalic(); });
  guarded([&] { savedUnderline = s.FontUnderline(); });
  guarded([&] { savedStrike = s.FontStrikethru(); });
  guarded([&] { savedFore = s.ForeColor(); });

  guarded([&] { ParseCaption(); });

  int32_t lineW = 0;
  const int32_t count = m_Parts.empty() ? 0 : m_Parts.ubound();
  for (int32_t i = 1; i <= count; ++i) {
    const LabelPart& part = m_Parts(i);
    guarded([&] { s.setFontBold(part.Bold != 0); });
    guarded([&] { s.setFontItalic(part.Italic != 0); });
    guarded([&] { s.setFontUnderline(part.Underline != 0); });
    guarded([&] { s.setFontStrikethru(part.Strikethrough != 0); });
    guarded([&] { s.setForeColor(part.Color); });
    if (m_Autosize) {
      guarded([&] {
        // Each piece on a line counts six pixels extra.
        lineW = CLng(static_cast<double>(CLng(lineW)) + CLng(s.TextWidth(part.Text)) +
                     6.0 * Screen::instance().TwipsPerPixelX());
      });
      m_Busy = -1;
      guarded([&] {
        if (s.Width() < static_cast<float>(lineW)) s.setWidth(static_cast<float>(lineW));
      });
    }
    const bool staysOnLine = i == count || m_Parts(i + 1).NewLine == 0;
    guarded([&] { s.Print(part.Text, !staysOnLine); });
    if (!staysOnLine) lineW = 0;
  }

  m_Caption = savedCaption;
  guarded([&] { s.setFontBold(savedBold); });
  guarded([&] { s.setFontItalic(savedItalic); });
  guarded([&] { s.setFontUnderline(savedUnderline); });
  guarded([&] { s.setFontStrikethru(savedStrike); });
  guarded([&] { s.setForeColor(savedFore); });
  m_Busy = 0;

  if (m_WordWrap || m_Autosize) {
    guarded([&] {
      std::string measure;
      for (int32_t i = 2; i <= count; ++i)
        if (m_Parts(i).NewLine) measure += "ABCD\r\n";
      s.setHeight(static_cast<float>(CLng(s.TextHeight(measure))));
    });
  }
  guarded([&] { s.setAutoRedraw(false); });
}

// ---- late binding ----

const Dispatch* VexColorLabel::dispatch() const {
  static const Dispatch d = [] {
    Dispatch t = standardDispatch();
    DispatchBuilder<VexColorLabel>(t)
        .prop("ForeColor", &VexColorLabel::ForeColor, &VexColorLabel::setForeColor)
        .prop("Caption", &VexColorLabel::Caption, &VexColorLabel::setCaption)
        .prop("Autosize", &VexColorLabel::Autosize, &VexColorLabel::setAutosize)
        .prop("WordWrap", &VexColorLabel::WordWrap, &VexColorLabel::setWordWrap)
        .prop("Font", &VexColorLabel::Font, &VexColorLabel::setFont)
        .prop("Enabled", &VexColorLabel::Enabled, &VexColorLabel::setEnabled)
        .prop("MouseIcon", &VexColorLabel::MouseIcon, &VexColorLabel::setMouseIcon)
        .prop("MousePointer", &VexColorLabel::MousePointer, &VexColorLabel::setMousePointer);
    return t;
  }();
  return &d;
}

}  // namespace corvane
