// SPDX-License-Identifier: MIT
#include <corvane/html/html_layout.h>
#include <corvane/html/html_tags.h>
#include <corvane/runtime/checked.h>
#include <corvane/runtime/guard.h>
#include <corvane/runtime/runtime_error.h>
#include <corvane/runtime/strings.h>

namespace corvane::html {

namespace {

std::string withBlanks(const std::string& word) {
  std::string out;
  out.reserve(word.size());
  for (size_t p = 0; p < word.size();) {
    if (word.compare(p, 6, "&nbsp;") == 0) {
      out.push_back(' ');
      p += 6;
    } else {
      out.push_back(word[p++]);
    }
  }
  return out;
}

bool isBlank(const std::string& word) { return withBlanks(word).find_first_not_of(' ') == std::string::npos; }

template <class A>
auto& slot(A& array, int32_t index) {
  if (index < 0 || index >= static_cast<int32_t>(array.size())) throw RuntimeError(err::SubscriptOutOfRange);
  return array[static_cast<size_t>(index)];
}

}  // namespace

HtmlLayout::HtmlLayout(HtmlDocument& document, Surface& page, std::vector<PictureRef>& images,
                       HtmlLayoutSettings settings, LoadImageHandler loadImage)
    : m_doc(document), m_page(page), m_images(images), m_set(settings), m_loadImage(std::move(loadImage)) {}

bool HtmlLayout::mIsInlineTag(int32_t id) {
  return (id >= 10 && id <= 15) || (id >= 39 && id <= 42) || (id >= 48 && id <= 51) || (id >= 54 && id <= 57);
}

void HtmlLayout::mResetFont() {
  guarded([&] { m_page.Font()->setName(m_doc.view.DefaultFontName); });
  guarded([&] { m_page.Font()->setSize(m_doc.view.DefaultFontSize); });
  guarded([&] { m_page.setForeColor(m_doc.view.DefaultTextColor); });
  m_linkColourOf = -1;
  m_page.setFontBold(false);
  m_page.setFontItalic(false);
  m_page.setFontUnderline(false);
}

int32_t HtmlLayout::lineHeightOfFont() {
  return static_cast<int32_t>(m_page.TextHeight("X")) + m_set.DefaultSpacing;
}
int32_t HtmlLayout::indentOfFont() { return 2 * width("W"); }

void HtmlLayout::linkColourFrom(int32_t link) {
  m_linkColourOf = link;
  m_linkColour = static_cast<int32_t>(m_page.ForeColor());
}

void HtmlLayout::print(const std::string& text) {
  // Text in a colour that a link's hover state chose is kept for quick hover repaints.
  if (m_hoverRuns && m_linkColourOf > 0 && static_cast<int32_t>(m_page.ForeColor()) == m_linkColour)
    guarded([&] { m_hoverRuns->record(m_page, static_cast<int16_t>(m_linkColourOf), text); });
  m_page.Print(text, false);
}

void HtmlLayout::blockBreak() {
  Y += LH;
  LH = lineHeightOfFont();
}

// ---- the walk ----

void HtmlLayout::mRender(bool final) {
  mDocHeight = m_set.ViewportHeight;
  if (!final) mDocWidth = m_set.ViewportWidth;
  mResetFont();
  curSize = m_doc.view.DefaultFontSize;
  LH = lineHeightOfFont();
  IND = indentOfFont();
  LM = m_set.DefaultPadding;
  RM = static_cast<int32_t>(m_page.ScaleWidth()) - m_set.DefaultPadding - 5;
  X = LM;
  Y = m_set.DefaultPadding;
  LI = 0;
  XO = 0;
  centerOn = rightOn = lineFresh = skipText = inTable = false;
  listDepth = 0;
  listKind.fill(0);
  listCount.fill(0);
  openAnchor = -1;
  linkPending = false;
  lineEndX = 0;
  tableDepth = 0;
  if (!m_doc.mBackgroundSource.empty()) guarded([&] { mTileBackground(0); });

  const int32_t last = m_doc.upperBound();
  i = 1;
  while (i <= last && !(m_doc.chunk(i).IsTag && m_doc.chunk(i).TagID == TagBody)) ++i;
  if (i > last) return;

  while (i < m_doc.mChunkCount && i <= last) {
    HtmlChunk& c = m_doc.chunk(i);
    c.Top = Y;
    c.IndentX = 0;
    c.Left = X;
    const int32_t id = c.IsTag ? c.TagID : TagText;
    if (id != TagCell && centerOn) c.AlignCenter = -1;
    if (!c.IsTag) {
      if (skipText) {
        ++i;
      } else {
        c.IndentX = XO;
        if (inTable) {
          int32_t half = tableDepth > 0 ? tables[static_cast<size_t>(tableDepth - 1)].CellSpacing / 2 : 0;
          guarded([&] { half = slot(tables, tableDepth - 1).CellSpacing / 2; });
          mFlowText(rightOn, centerOn, RM, LM + half, half);
        } else {
          mFlowText(rightOn, centerOn, RM, LM, m_set.DefaultSpacing);
        }
      }
    } else {
      guarded([&] { handleTag(c, final); });
      if (id != TagComment) {
        c.Bottom = Y + LH + m_set.DefaultSpacing;
        c.Right = lineEndX;
      }
      ++i;
    }
    if (Y > mDocHeight - 10) mDocHeight = Y + LH;
  }
}

void HtmlLayout::alignFromAncestors(const HtmlChunk& c) {
  rightOn = centerOn = false;
  HtmlChunk found;
  if (m_doc.mAncestorOf(c, found, TagDiv) || m_doc.mAncestorOf(c, found, TagCell)) {
    rightOn = found.AlignRight != 0;
    centerOn = found.AlignCenter != 0;
  } else if (m_doc.mAncestorOf(c, found, TagCenter)) {
    centerOn = true;
  }
}

void HtmlLayout::closeBlock(HtmlChunk& c) {
  alignFromAncestors(c);
  marginReturn();
  XO = X - LM;
  c.IndentX = XO;
  if (lineFresh) {
    lineFresh = false;
  } else {
    blockBreak();
    lineFresh = true;
  }
}

void HtmlLayout::handleTag(HtmlChunk& c, bool final) {
  switch (c.TagID) {
    case TagBold:
    case TagBoldEnd:
    case TagItalic:
    case TagItalicEnd:
    case TagUnderline:
    case TagUnderlineEnd:
    case TagBig:
    case TagSmall:
      mApplyInlineTag(i);
      break;
    case TagParagraph:
    case TagDiv:
      marginReturn();
      Y += LH;
      XO = X - LM;
      c.IndentX = XO;
      LH = lineHeightOfFont();
      rightOn = c.AlignRight != 0;
      centerOn = c.AlignCenter != 0;
      if (static_cast<int32_t>(m_page.ScaleWidth()) == RM)
        RM = static_cast<int32_t>(m_page.ScaleWidth()) - m_set.DefaultPadding - 3;
      break;
    case TagParagraphEnd:
    case TagDivEnd:
      closeBlock(c);
      break;
    case TagBreak:
      marginReturn();
      blockBreak();
      XO = X - LM;
      c.IndentX = XO;
      lineFresh = true;
      break;
    case TagRule:
      X = LM;
      c.Top = Y;
      m_page.Line(static_cast<float>(LM), static_cast<float>(Y),
                  static_cast<float>(RM - m_set.DefaultPadding), static_cast<float>(Y), 0);
      Y += m_set.DefaultSpacing + 1;
      break;
    case TagList:
    case TagOrderedList: {
      ++listDepth;
      LI += IND;
      XO = LI + IND;
      c.IndentX = XO;
      if (listDepth == 1 && !lineFresh) {
        blockBreak();
        lineFresh = true;
      } else {
        lineFresh = false;
      }
      // A level beyond the array fails here; the indentation above stands.
      slot(listKind, listDepth) = c.TagID == TagOrderedList ? -1 : 0;
      if (c.TagID == TagOrderedList) slot(listCount, listDepth) = 0;
      break;
    }
    case TagListEnd:
    case TagOrderedListEnd:
      guarded([&] { slot(listKind, listDepth) = 0; });
      --listDepth;
      LI = LI - IND < 0 ? 0 : LI - IND;
      XO = LI;
      c.IndentX = LI;
      if (listDepth == 0 && !lineFresh) {
        blockBreak();
        lineFresh = true;
      } else {
        lineFresh = false;
      }
      break;
    case TagListItem: {
      marginReturn();
      blockBreak();
      c.Top = Y;
      c.IndentX = LI;
      guarded([&] {
        if (slot(listKind, listDepth)) {
          int16_t& count = slot(listCount, listDepth);
          count = static_cast<int16_t>(count + 1);
          c.IsNumbered = -1;
          c.ItemNumber = count;
        }
      });
      m_page.setCurrentY(static_cast<float>(Y));
      m_page.setCurrentX(static_cast<float>(LM + c.IndentX));
      if (c.IsNumbered) {
        print(std::to_string(c.ItemNumber) + ". ");
        X += width("W. ");
      } else {
        const std::string bullet = String(1, 149) + "  ";
        print(bullet);
        X += width(bullet);
      }
      XO = X;
      break;
    }
    case TagFont:
      guarded([&] { m_page.Font()->setName(c.FontFace); });
      guarded([&] { m_page.Font()->setSize(c.FontSize); });
      guarded([&] { m_page.setForeColor(c.Color); });
      m_linkColourOf = -1;
      curSize = c.FontSize;
      break;
    case TagFontEnd:
      mResetFont();
      curSize = m_doc.view.DefaultFontSize;
      LH = lineHeightOfFont();
      IND = indentOfFont();
      break;
    case TagAnchor:
      if (!m_doc.view.EnableAnchors) break;
      if (!c.Href.empty()) {
        const bool hovered = m_set.HoverIndex != 0 && m_set.HoverIndex == c.Index;
        m_page.setForeColor(hovered ? m_set.LinkHoverColor : m_set.LinkColor);
        linkColourFrom(c.Index);
        linkPending = true;
      }
      openAnchor = i;
      lineEndX = X;
      break;
    case TagAnchorEnd:
      if (!m_doc.view.EnableAnchors) break;
      m_page.setFontUnderline(false);
      linkPending = false;
      m_page.setForeColor(m_doc.view.DefaultTextColor);
      m_linkColourOf = -1;
      if (openAnchor >= 0) {
        HtmlChunk& a = m_doc.chunk(openAnchor);
        a.Bottom = Y - m_set.DefaultSpacing + LH;
        a.Right = lineEndX;
        openAnchor = -1;
      }
      break;
    case TagImage:
      handleImage(c, final);
      break;
    case TagBlockquote:
      Y += LH;
      if (!lineFresh) blockBreak();
      X = LM + IND;
      LI += IND;
      XO = LI;
      c.IndentX = XO;
      break;
    case TagBlockquoteEnd:
      blockBreak();
      X -= IND;
      LI -= IND;
      XO = LI;
      c.IndentX = XO;
      break;
    case TagHeading:
      marginReturn();
      guarded([&] { m_page.Font()->setSize(c.FontSize); });
      m_page.setFontBold(true);
      LH = lineHeightOfFont();
      IND = indentOfFont();
      if (m_page.CurrentY() > m_set.DefaultPadding && !inTable) blockBreak();
      break;
    case TagHeadingEnd:
    case TagBigEnd:
    case TagSmallEnd:
      marginReturn();
      blockBreak();
      guarded([&] { m_page.Font()->setSize(curSize); });
      m_page.setFontBold(false);
      LH = lineHeightOfFont();
      IND = indentOfFont();
      break;
    case TagCenter:
      centerOn = true;
      break;
    case TagCenterEnd:
      centerOn = false;
      break;
    case TagFormEnd:
    case TagScriptEnd:
    case TagStyleEnd:
      skipText = false;
      break;
    case TagScript:
    case TagStyle:
      skipText = true;
      break;
    case TagTable:
      handleTable(c, final);
      break;
    case TagTableEnd:
      handleTableEnd(c, final);
      break;
    case TagRow:
      handleRow(c);
      break;
    case TagRowEnd:
      handleRowEnd(c, final);
      break;
    case TagCell:
      handleCell(c, final);
      break;
    case TagCellEnd:
      handleCellEnd(c, final);
      break;
    default:
      break;
  }
}

void HtmlLayout::mApplyInlineTag(int32_t index) {
  HtmlChunk& c = m_doc.chunk(index);
  switch (c.TagID) {
    case TagBold:
      m_page.setFontBold(true);
      break;
    case TagBoldEnd:
      m_page.setFontBold(false);
      break;
    case TagItalic:
      m_page.setFontItalic(true);
      break;
    case TagItalicEnd:
      m_page.setFontItalic(false);
      break;
    case TagUnderline:
      m_page.setFontUnderline(true);
      break;
    case TagUnderlineEnd:
      m_page.setFontUnderline(false);
      break;
    case TagFont:
      guarded([&] { m_page.Font()->setName(c.FontFace); });
      guarded([&] { m_page.Font()->setSize(c.FontSize); });
      guarded([&] { m_page.setForeColor(c.Color); });
      m_linkColourOf = -1;
      curSize = c.FontSize;
      LH = lineHeightOfFont();
      IND = indentOfFont();
      break;
    case TagFontEnd:
      mResetFont();
      curSize = m_doc.view.DefaultFontSize;
      IND = indentOfFont();
      break;
    case TagAnchor: {
      int32_t colour = m_set.LinkColor;
      if (m_doc.view.EnableAnchors && !c.Href.empty() && m_set.HoverIndex != 0 && m_set.HoverIndex == c.Index)
        colour = m_set.LinkHoverColor;
      m_page.setForeColor(colour);
      m_linkColourOf = -1;
      if (m_doc.view.EnableAnchors && !c.Href.empty()) linkColourFrom(c.Index);
      linkPending = true;
      break;
    }
    case TagAnchorEnd:
      m_page.setFontUnderline(false);
      m_page.setForeColor(m_doc.view.DefaultTextColor);
      m_linkColourOf = -1;
      linkPending = false;
      break;
    case TagBig:
    case TagSmall:
      guarded([&] { m_page.Font()->setSize(c.FontSize); });
      break;
    case TagBigEnd:
    case TagSmallEnd:
      LH = lineHeightOfFont();
      guarded([&] { m_page.Font()->setSize(curSize); });
      m_page.setFontBold(false);
      LH = lineHeightOfFont();
      IND = indentOfFont();
      break;
    default:
      break;
  }
}

// ---- text runs ----

void HtmlLayout::mFlowText(bool right, bool center, int32_t rightLimit, int32_t leftLimit, int32_t spacing) {
  struct Line {
    int32_t firstChunk, firstWord, lastChunk, lastWord;
    std::string text;
    int32_t width;
  };
  // Phase 1: cut the run into lines with the font as it will be when printing.
  const std::string savedName = m_page.Font()->Name();
  const double savedSize = m_page.Font()->Size();
  const bool savedBold = m_page.FontBold(), savedItalic = m_page.FontItalic(),
             savedUnderline = m_page.FontUnderline();
  const OLE_COLOR savedColour = m_page.ForeColor();
  const bool savedLinkPending = linkPending;
  const int32_t savedLinkColourOf = m_linkColourOf, savedLinkColour = m_linkColour;
  int32_t lineIndent = m_doc.chunk(i).IndentX;
  const int32_t last = std::min<int32_t>(m_doc.mChunkCount - 1, m_doc.upperBound());
  const int32_t blank = width(" ");

  std::vector<Line> lines;
  int32_t c = i, word = 0;
  bool ended = false;
  // A text chunk without words is passed like an inline tag.
  auto advance = [&]() {
    for (;;) {
      ++c;
      if (c > last) return false;
      const HtmlChunk& n = m_doc.chunk(c);
      if (!n.IsTag) {
        word = 0;
        if (!n.Words.empty()) return true;
        lines.back().lastChunk = c;
        continue;
      }
      if (mIsInlineTag(n.TagID)) {
        guarded([&] { mApplyInlineTag(c); });
        lines.back().lastChunk = c;
      } else if (n.TagID == TagUnknown) {
        lines.back().lastChunk = c;
      } else if (n.TagID == TagScript) {
        while (c <= last && !(m_doc.chunk(c).IsTag && m_doc.chunk(c).TagID == TagScriptEnd)) ++c;
      } else {
        return false;
      }
    }
  };
  while (!ended) {
    lines.push_back({c, word, c, word, "", lines.empty() ? X : lineIndent + leftLimit});
    Line& line = lines.back();
    if (m_doc.chunk(c).Words.empty() && !advance()) ended = true;
    while (!ended) {
      const HtmlChunk& t = m_doc.chunk(c);
      const std::string& w = t.Words[static_cast<size_t>(word)];
      const std::string sep = !line.text.empty() && line.text.back() != ' ' && !t.Glue ? " " : "";
      const int32_t need = width(sep + w);
      if (!line.text.empty() && line.width + need + spacing >= rightLimit) break;
      line.lastChunk = c;
      line.lastWord = word;
      if (word > 0 || sep == " ") {
        line.width += blank;
        line.text += " ";
      }
      const std::string shown = withBlanks(w);
      line.width += width(shown);
      line.text += shown;
      if (++word < static_cast<int32_t>(t.Words.size())) continue;
      if (!advance()) ended = true;
    }
    if (!line.text.empty() && line.text.back() == ' ') line.width -= blank;
  }
  const int32_t stop = c;
  linkPending = savedLinkPending;
  guarded([&] { m_page.Font()->setName(savedName); });
  guarded([&] { m_page.Font()->setSize(savedSize); });
  m_page.setFontBold(savedBold);
  m_page.setFontItalic(savedItalic);
  m_page.setFontUnderline(savedUnderline);
  m_page.setForeColor(savedColour);
  m_linkColourOf = savedLinkColourOf;
  m_linkColour = savedLinkColour;

  // Phase 2: place and print.
  const bool enableAnchors = m_doc.view.EnableAnchors;
  for (size_t k = 0; k < lines.size(); ++k) {
    const Line& line = lines[k];
    int32_t at = line.firstChunk;
    if (k == 0 && X != leftLimit && X + spacing != leftLimit) {
      lineIndent = m_doc.chunk(at).IndentX - spacing;
    } else if (right) {
      X = rightLimit - (line.width - leftLimit) - spacing;
    } else if (center) {
      X = CLng((rightLimit - line.width) / 2.0) + leftLimit;
    } else {
      X = lineIndent + leftLimit;
    }
    const int32_t alignedStart = X;
    bool blankPending = false;
    for (; at <= line.lastChunk; ++at) {
      HtmlChunk& ch = m_doc.chunk(at);
      if (ch.IsTag) {
        ch.Left = X;
        ch.Top = Y;
        ch.IndentX = XO;
        ch.Bottom = LH + Y + m_set.DefaultSpacing;
        ch.Right = X;
        if (mIsInlineTag(ch.TagID)) guarded([&] { mApplyInlineTag(at); });
        if (enableAnchors && ch.TagID == TagAnchor) {
          openAnchor = at;
          lineEndX = X;
          ch.Left = X;
        } else if (enableAnchors && ch.TagID == TagAnchorEnd && openAnchor >= 0) {
          HtmlChunk& a = m_doc.chunk(openAnchor);
          a.Bottom = LH + Y + m_set.DefaultSpacing;
          a.Right = lineEndX;
          openAnchor = -1;
        } else if (ch.TagID == TagScript) {
          while (at < line.lastChunk && !(m_doc.chunk(at).IsTag && m_doc.chunk(at).TagID == TagScriptEnd))
            ++at;
        }
        continue;
      }
      const int32_t firstWord = at == line.firstChunk ? line.firstWord : 0;
      const bool lastChunk = at == line.lastChunk;
      const int32_t lastWord = lastChunk ? line.lastWord : static_cast<int32_t>(ch.Words.size()) - 1;
      for (int32_t w = firstWord; w <= lastWord && w < static_cast<int32_t>(ch.Words.size()); ++w) {
        const std::string& wordText = ch.Words[static_cast<size_t>(w)];
        m_page.setCurrentY(static_cast<float>(Y));
        m_page.setCurrentX(static_cast<float>(X));
        if (X > lineIndent + leftLimit && !(ch.Glue && w == 0) && !blankPending) {
          // A blank word emits nothing, so the gap stays owed to the next word.
          if (linkPending) {
            m_page.setCurrentX(m_page.CurrentX() + m_page.TextWidth(" "));
            blankPending = true;
          } else if (!isBlank(wordText)) {
            // An aligned line was placed without its leading blank; none is printed at its start.
            const bool aligned = right || center;
            if (!aligned || X - 1 >= alignedStart) {
              print(" ");
              blankPending = true;
            }
          }
        }
        if (linkPending && enableAnchors && openAnchor >= 0)
          m_doc.chunk(openAnchor).Left = static_cast<int32_t>(m_page.CurrentX());
        if (!isBlank(wordText)) {
          if (linkPending) {
            m_page.setFontUnderline(m_set.UnderlineLinks);
            linkPending = false;
          }
          print(withBlanks(wordText));
          blankPending = false;
        }
        X = static_cast<int32_t>(m_page.CurrentX());
        if (openAnchor >= 0) lineEndX = X;
      }
      ch.Bottom = 2 * LH + Y + m_set.DefaultSpacing;
      ch.Right = X;
    }
    Y += LH;
    m_page.setCurrentY(static_cast<float>(Y));
    // A one-line run leaves the pen behind its text, so that what follows continues the line.
    if (lines.size() > 1) X = lineIndent + leftLimit;
  }
  Y -= LH;
  lineFresh = false;
  i = stop;
}

// ---- images and background ----

void HtmlLayout::handleImage(HtmlChunk& c, bool final) {
  if (c.ImageSlot == 0) {
    m_images.emplace_back();
    c.ImageSlot = static_cast<int32_t>(m_images.size()) - 1;
    std::string source = c.ImageSource;
    if (m_loadImage) m_loadImage(source, m_images.back());
    if (Y > m_set.DefaultPadding && !inTable && !lineFresh) {
      Y += LH;
      c.Top = Y;
      LH = lineHeightOfFont();
    }
    const PictureRef& pic = m_images.back();
    if (!pic || pic->Handle() == 0) {
      c.Border = 1;
    } else {
      if (c.ImageWidth == 0) c.ImageWidth = CLng(m_page.ScaleX(static_cast<float>(pic->Width()), 8, 3));
      if (c.ImageHeight == 0) c.ImageHeight = CLng(m_page.ScaleY(static_cast<float>(pic->Height()), 8, 3));
    }
  }
  if (centerOn || c.AlignCenter) {
    c.AlignCenter = -1;
    X = std::max((RM - LM - c.ImageWidth) / 2 + LM, LM);
  }
  X += c.HSpace;
  if (c.Border > 0) {
    draw3DFrame(true, X, Y + c.VSpace, X + c.ImageWidth + c.Border, Y + c.VSpace + c.ImageHeight + c.Border);
    X += c.Border;
  }
  const PictureRef& pic = slot(m_images, c.ImageSlot);
  if (pic && pic->Handle() != 0)
    guarded([&] {
      m_page.PaintPicture(pic, static_cast<float>(X), static_cast<float>(Y + c.VSpace),
                          static_cast<float>(c.ImageWidth), static_cast<float>(c.ImageHeight));
    });
  X += c.ImageWidth + c.Border + c.HSpace;
  LH = std::max(LH, c.ImageHeight + 2 * c.Border + 2 * c.VSpace);
  lineEndX = X;
  if (!final && m_set.EnableScroll != 0) mDocWidth = std::max(mDocWidth, X + m_set.DefaultPadding);
}

void HtmlLayout::mTileBackground(int32_t offset) {
  std::string source = m_doc.mBackgroundSource;
  PictureRef pic;
  if (m_loadImage) m_loadImage(source, pic);
  if (!pic || pic->Handle() == 0) return;
  const int32_t w = CLng(m_page.ScaleX(static_cast<float>(pic->Width()), 8, 3));
  const int32_t h = CLng(m_page.ScaleY(static_cast<float>(pic->Height()), 8, 3));
  if (w <= 0 || h <= 0) return;
  const int32_t rows = CLng(m_page.ScaleHeight() / h + 1);
  const int32_t cols = CLng(m_page.ScaleWidth() / w);
  for (int32_t r = 0; r <= rows; ++r)
    for (int32_t col = 0; col <= cols; ++col)
      m_page.PaintPicture(pic, static_cast<float>(col * w), static_cast<float>(r * h - (offset % h)),
                          static_cast<float>(w), static_cast<float>(h));
}

void HtmlLayout::draw3DFrame(bool sunken, int32_t x1, int32_t y1, int32_t x2, int32_t y2) {
  const OLE_COLOR save = m_page.ForeColor();
  const OLE_COLOR shadow = static_cast<OLE_COLOR>(0x80000010);
  const OLE_COLOR light = m_page.BackColor() == 0xFFFFFF ? static_cast<OLE_COLOR>(0x8000000F) : 0xFFFFFF;
  const OLE_COLOR topLeft = sunken ? shadow : light;
  const OLE_COLOR bottomRight = sunken ? light : shadow;
  auto f = [](int32_t v) { return static_cast<float>(v); };
  m_page.Line(f(x1), f(y1), f(x2), f(y1), topLeft);
  m_page.Line(f(x1), f(y1), f(x1), f(y2), topLeft);
  m_page.Line(f(x1), f(y2), f(x2), f(y2), bottomRight);
  m_page.Line(f(x2), f(y2), f(x2), f(y1 - 1), bottomRight);
  m_page.setForeColor(save);
}

}  // namespace corvane::html
