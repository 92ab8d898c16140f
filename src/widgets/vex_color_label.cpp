// SPDX-License-Identifier: MIT
#include <corvane/widgets/vex_color_label.h>

#include <algorithm>

#include <corvane/host/screen.h>
#include <corvane/platform/api.h>
#include <corvane/runtime/checked.h>
#include <corvane/runtime/strings.h>
#include <corvane/runtime/utf8.h>
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

namespace {
bool isBlank(std::string_view s) { return s.find_first_not_of(' ') == std::string_view::npos; }
std::string_view ltrimView(std::string_view s) {
  size_t b = s.find_first_not_of(' ');
  return b == std::string_view::npos ? std::string_view() : s.substr(b);
}
// A part with the formatting of `p` and no text.
LabelPart formatOf(const LabelPart& p) {
  LabelPart f;
  f.Bold = p.Bold;
  f.Italic = p.Italic;
  f.Underline = p.Underline;
  f.Strikethrough = p.Strikethrough;
  f.NewLine = p.NewLine;
  f.Color = p.Color;
  return f;
}
// The first character boundary at or after byte `target`, walking from the boundary `from`.
size_t boundaryFrom(std::string_view s, size_t from, size_t target) {
  while (from < target && from < s.size()) from += utf8::charSize(s, from);
  return std::min(from, s.size());
}
}  // namespace

LabelTag VexColorLabel::NextTag(int32_t index) const { return findTag(m_Parts(index).Text); }

// Positions are 1-based characters in 16 bits: a "<" or ">" beyond 32767 is an overflow (error 6),
// as the positions' conversion gives. The characters in front of each "<" are counted once, and the
// ">" found for one "<" serves every later "<" in front of it, so a search costs the length of the
// text it walks once.
LabelTag VexColorLabel::findTag(std::string_view text, size_t* startByte, size_t* endByte) {
  LabelTag tag;
  size_t searchFrom = 0;
  size_t counted = 0;     // bytes whose characters are counted ...
  int64_t charsBefore = 0;  // ... and how many characters they hold
  size_t close = std::string_view::npos;
  int64_t closePos = 0;
  for (;;) {
    const size_t open = text.find('<', searchFrom);
    if (open == std::string_view::npos) {
      tag.Start = 0;
      return tag;
    }
    charsBefore += utf8::length(text.substr(counted, open - counted));
    counted = open;
    tag.Start = CInt(static_cast<double>(charsBefore + 1));
    if (close == std::string_view::npos || close < open) {
      close = text.find('>', open);
      if (close == std::string_view::npos) {
        tag.End = 0;
        return tag;
      }
      closePos = charsBefore + 1 + utf8::length(text.substr(open, close - open));
    }
    tag.End = CInt(static_cast<double>(closePos));
    // A recognised tag has fewer than 20 characters, and a character has at most four bytes.
    const std::string_view candidate = text.substr(open, close - open + 1);
    if (candidate.size() < 80) {
      const std::string t = LCase(candidate);
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
      if (tag.Kind != 1) {
        if (startByte) *startByte = open;
        if (endByte) *endByte = close;
        return tag;
      }
    }
    // Not a tag of ours: it stays text, and the search goes on behind its "<".
    searchFrom = open + 1;
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

void VexColorLabel::storeParts(std::vector<LabelPart>& parts) {
  m_partsAreParse = false;
  if (parts.empty()) {
    m_Parts.erase();
    return;
  }
  m_Parts.redim(1, static_cast<int32_t>(parts.size()));
  std::move(parts.begin(), parts.end(), m_Parts.begin());
  parts.clear();
}

// The steps of the caption's parsing, with the current part (always the last) holding the rest of
// the caption as a view: its text is copied once, when the part is finished. So the caption is
// copied once in all, and no part keeps a buffer larger than its own text. A failing tag leaves the
// parts made so far, the current one with its text as it stands.
void VexColorLabel::ParseCaption() {
  parseParts();
  if (m_WordWrap) WrapParts();
}

VexColorLabel::ParseInput VexColorLabel::parseInput() {
  Surface& s = surface();
  ParseInput in;
  in.caption = m_Caption;
  in.colour = s.ForeColor();
  if (in.colour < 0) in.colour = gdi().GetSysColor(in.colour & 0xFFFFFF);
  in.bold = s.FontBold();
  in.italic = s.FontItalic();
  in.underline = s.FontUnderline();
  in.strikethrough = s.FontStrikethru();
  return in;
}

void VexColorLabel::parseForDrawing() {
  ParseInput in = parseInput();
  const bool same = m_parseKept && in == m_keptInput;
  if (!same || (!m_partsAreParse && !m_keptCopy)) {
    m_parseKept = m_keptCopy = false;
    m_keptParts.clear();
    parseParts();  // an error leaves nothing kept, so the next repaint parses and fails again
    m_keptInput = std::move(in);
    m_parseKept = true;
  } else if (!m_partsAreParse) {
    std::vector<LabelPart> copy = m_keptParts;
    storeParts(copy);
  }
  m_partsAreParse = true;
  if (m_WordWrap) {
    if (!m_keptCopy) m_keptParts.assign(m_Parts.begin(), m_Parts.end());
    m_keptCopy = true;
    WrapParts();
  }
}

void VexColorLabel::parseParts() {
  ++m_captionParses;
  Surface& s = surface();
  int32_t defaultColour = s.ForeColor();
  if (defaultColour < 0) defaultColour = gdi().GetSysColor(defaultColour & 0xFFFFFF);

  std::vector<LabelPart> parts;
  LabelPart current;
  current.Bold = s.FontBold() ? -1 : 0;
  current.Italic = s.FontItalic() ? -1 : 0;
  current.Underline = s.FontUnderline() ? -1 : 0;
  current.Strikethrough = s.FontStrikethru() ? -1 : 0;
  current.NewLine = -1;
  current.Color = defaultColour;
  std::string_view text = m_Caption;  // the current part's text
  bool open = true;                   // the current part is not yet among `parts`
  auto finishCurrent = [&](std::string_view finalText) {
    current.Text.assign(finalText);
    parts.push_back(std::move(current));
    open = false;
  };

  try {
    size_t startByte = 0, endByte = 0;
    LabelTag tag = findTag(text, &startByte, &endByte);
    while (tag.Kind != 1) {
      const std::string_view before = text.substr(0, startByte);
      const std::string_view rest = text.substr(endByte + 1);
      if (isBlank(before) && tag.Kind != 7) {
        // The tag formats the current piece itself; its blanks go to the piece before.
        if (!parts.empty()) parts.back().Text += before;
        text = rest;
        applyTag(current, tag, defaultColour);
        tag = findTag(text, &startByte, &endByte);
        continue;
      }
      LabelPart next = formatOf(current);
      next.NewLine = 0;
      finishCurrent(before);
      if (isBlank(rest)) break;  // a tag with only blanks behind it has no effect
      // The new part holds the rest before the tag's effect: a failing effect leaves it so.
      current = std::move(next);
      text = rest;
      open = true;
      applyTag(current, tag, defaultColour);
      tag = findTag(text, &startByte, &endByte);
    }
    if (open) finishCurrent(text);
  } catch (...) {
    if (open) finishCurrent(text);
    storeParts(parts);
    throw;
  }
  storeParts(parts);
}

// ---- wrapping ----

void VexColorLabel::InsertPart(int32_t index) {
  m_partsAreParse = false;
  m_Parts.redimPreserve(m_Parts.ubound() + 1);
  for (int32_t j = m_Parts.ubound(); j >= index + 2; --j) m_Parts(j) = m_Parts(j - 1);
  m_Parts(index + 1) = m_Parts(index);
}

template <class Fits>
VexColorLabel::Probe VexColorLabel::probe(std::string_view text, Fits fits) {
  Surface& s = surface();
  size_t measured = 0;
  for (;;) {
    const size_t cut = boundaryFrom(text, measured, std::max<size_t>(64, 2 * measured));
    const float w = s.TextWidth(std::string(text.substr(0, cut)));
    if (!fits(w)) return Probe{false, w, cut};
    if (cut == text.size()) return Probe{true, w, cut};
    measured = cut;
  }
}

void VexColorLabel::SplitText(int32_t index, int32_t avail, std::string& head, std::string& tail, std::string& flag) {
  const std::string text = m_Parts(index).Text;
  std::string_view tailView;
  splitAt(text, avail, head, tailView, flag);
  tail.assign(tailView);
}

// The splitting rule walks the blanks from the left and breaks at the first blank whose text in
// front fits `avail` while the text up to the next blank does not; without one, the first word
// goes alone ("novyradek"). The text in front of a blank only grows to the right, so the blanks
// that fit come first: a search among them finds the same blank, and measures only what fits.
void VexColorLabel::splitAt(std::string_view text, int32_t avail, std::string& head, std::string_view& tail,
                            std::string& flag) {
  const size_t firstSpace = text.find(' ');
  auto noFit = [&] {
    if (firstSpace != std::string_view::npos) {
      head.assign(text.substr(0, firstSpace));
      tail = ltrimView(text.substr(firstSpace + 1));
    } else {
      head.clear();
      tail = {};
    }
    flag = kNoFit;
  };
  if (firstSpace == std::string_view::npos) return noFit();  // no blank: nothing to break at
  const float limit = static_cast<float>(avail);
  auto fits = [&](float w) { return w <= limit; };
  const Probe whole = probe(text, fits);
  if (whole.fits) return noFit();  // the text up to the end fits too: no blank qualifies

  // Only blanks in front of a beginning that is too wide can fit.
  std::vector<size_t> blanks;
  const std::string_view candidates = text.substr(0, whole.failAt);
  for (size_t at = firstSpace; at != std::string_view::npos; at = candidates.find(' ', at + 1)) blanks.push_back(at);
  Surface& s = surface();
  size_t fitting = 0, unknownEnd = blanks.size();  // blanks[0, fitting) fit, [unknownEnd, ...) do not
  while (fitting < unknownEnd) {
    const size_t mid = fitting + (unknownEnd - fitting) / 2;
    if (fits(s.TextWidth(std::string(text.substr(0, blanks[mid])))))
      fitting = mid + 1;
    else
      unknownEnd = mid;
  }
  if (fitting == 0) return noFit();
  const size_t at = blanks[fitting - 1];
  head = RTrim(text.substr(0, at));
  tail = ltrimView(text.substr(at + 1));
  flag.clear();
}

// The wrapping rule, part by part. The parts are rebuilt into a new list: a finished part is
// appended, and the part in hand keeps its text as a view into its old part until it is finished,
// so a split costs the line it cuts off, not the rest of the text. The results are those of the
// rule worked in place: InsertPart's copy is the part in hand with the tail as its text.
void VexColorLabel::WrapParts() {
  Surface& s = surface();
  const float width = s.ScaleWidth();
  std::vector<LabelPart> input;
  input.reserve(m_Parts.size());
  for (LabelPart& p : m_Parts) input.push_back(std::move(p));
  m_Parts.erase();

  std::vector<LabelPart> parts;
  parts.reserve(input.size());
  LabelPart part;          // the part in hand; its text is `text`
  std::string_view text;
  bool inHand = false;
  size_t next = 0;         // the first part of `input` not yet taken
  auto finishPart = [&] {
    part.Text.assign(text);
    parts.push_back(std::move(part));
    part = LabelPart();
    inHand = false;
  };
  auto keepRest = [&] {
    if (inHand) finishPart();
    for (; next < input.size(); ++next) parts.push_back(std::move(input[next]));
    storeParts(parts);
  };

  try {
    float x = 0;
    while (inHand || next < input.size()) {
      if (!inHand) {
        const LabelPart& source = input[next++];
        part = formatOf(source);  // the text stays a view into the source
        text = source.Text;
        inHand = true;
      }
      s.setFontBold(part.Bold != 0);
      s.setFontItalic(part.Italic != 0);
      if (part.NewLine) x = 0;
      const float lineBefore = x;
      const Probe measured = probe(text, [&](float w) { return lineBefore + w <= width; });
      if (measured.fits) {
        x = lineBefore + measured.width;
        finishPart();
        continue;
      }
      const int32_t avail = CLng(width - lineBefore);
      std::string head, flag;
      std::string_view tail;
      splitAt(text, avail, head, tail, flag);
      const bool atLineStart = part.NewLine != 0;
      if (!isBlank(head)) {
        if (flag == kNoFit && !atLineStart) {
          part.NewLine = -1;  // the first word goes to a new line; look at this piece again
          x = lineBefore;
          continue;
        }
        LabelPart copy = formatOf(part);  // InsertPart: the copy takes the tail and starts a line
        copy.NewLine = -1;
        text = head;
        finishPart();
        part = std::move(copy);
        text = tail;
        inHand = true;
        continue;
      }
      if (!atLineStart) {
        part.NewLine = -1;
        x = lineBefore;
        continue;
      }
      if (next == input.size()) break;  // the last part stays as it is
      // An unbreakable piece stays whole and overflows; what follows starts a new line.
      input[next].NewLine = -1;
      finishPart();
    }
  } catch (...) {
    keepRest();
    throw;
  }
  keepRest();
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

  guarded([&] { parseForDrawing(); });

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
