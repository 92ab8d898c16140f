// SPDX-License-Identifier: MIT
#include <corvane/html/html_decode.h>
#include <corvane/html/html_tags.h>
#include <corvane/html/html_tokenizer.h>
#include <corvane/runtime/checked.h>
#include <corvane/runtime/guard.h>
#include <corvane/runtime/indexed_text.h>
#include <corvane/runtime/strings.h>
#include <corvane/runtime/val.h>
#include <corvane/runtime/variant.h>

namespace corvane::html {

namespace {
constexpr int16_t kTrue = -1;

// A WIDTH or HEIGHT of a tag other than IMG: with "%" a fraction, otherwise the number itself.
float sizeValue(const std::string& value) {
  if (InStr(value, "%") > 0) return CSng(Variant(Replace(value, "%", "")).toDouble() / 100);
  return Variant(value).toSingle();
}
}  // namespace

void HtmlTokenizer::appendChunk(std::string_view source, int16_t glue) {
  HtmlChunk chunk;
  chunk.Source = std::string(source);
  chunk.Glue = glue;
  chunk.Index = m_doc.mChunkCount;
  int16_t count = add16(m_doc.mChunkCount, 1);
  m_doc.mChunks.push_back(std::move(chunk));
  m_doc.mChunkCount = count;
}

void HtmlTokenizer::mSplitChunks() {
  m_doc.mChunks.clear();
  m_doc.mChunkCount = 0;
  const IndexedText text(m_doc.mText);
  const int32_t length = text.Len();
  int16_t glue = 0;
  int16_t start = 1;
  int16_t stop = 0;
  try {
    while (stop < length) {
      start = CInt(text.InStr(start, "<"));
      if (start == 0) break;  // the wrappers always leave a "<"; this only guards against a loop
      if (text.midView(start, 4) == "<!--")
        stop = add16(CInt(text.InStr(start, "-->")), 2);
      else
        stop = CInt(text.InStr(add16(start, 1), ">"));

      if (stop < 1) {
        start = add16(start, 1);  // a stray "<": text begins behind it
      } else {
        if (stop < start) break;  // a comment without "-->" would be walked again without end
        std::string_view tag = text.midView(start, stop - start + 1);
        if (!Trim(tag).empty()) {
          appendChunk(tag, 0);
          if (start > 1) glue = text.midView(start - 1, 1) != " " ? kTrue : 0;
        }
        stop = add16(stop, 1);
        start = stop;
      }

      stop = CInt(text.InStr(start, "<"));
      if (stop > 0 && stop > start) {
        std::string_view run = text.midView(start, stop - start);
        if (!Trim(run).empty()) appendChunk(run, glue);
        start = stop;
      } else if (stop == 0) {
        stop = CInt(length);  // text behind the last tag is never appended
      }
    }
  } catch (const RuntimeError&) {
    // A position beyond 32767 does not fit the 16-bit positions: the split ends there.
  }
}

void HtmlTokenizer::mClassifyAll() {
  for (int32_t i = 0; i < m_doc.mChunkCount; ++i) guarded([&] { mClassifyChunk(m_doc.chunk(i)); });
}

void HtmlTokenizer::mClassifyChunk(HtmlChunk& chunk) {
  if (!HtmlTagReader::mIsTagChunk(chunk.Source)) {
    chunk.TagID = TagText;
    chunk.IsTag = 0;
    guarded([&] {
      std::string decoded = mDecodeText(chunk.Source);
      if (InStr(decoded, " ") > 0)
        chunk.Words = Split(decoded, " ");
      else
        chunk.Words = {decoded};
    });
    return;
  }
  chunk.IsTag = kTrue;
  std::string name;
  guarded([&] { name = HtmlTagReader::mstrTagID(chunk.Source); });
  guarded([&] { setTagDefaults(chunk, name); });
  // Every tag reads its attributes, close tags and unknown tags too.
  guarded([&] { m_doc.tagReader.mintExtractTagAttributes(chunk.Source); });
  mApplyAttributes(chunk);
}

void HtmlTokenizer::setTagDefaults(HtmlChunk& chunk, const std::string& name) {
  const HtmlViewDefaults& view = m_doc.view;
  chunk.TagID = tagIdOfName(name);
  switch (chunk.TagID) {
    case TagBody:
      m_doc.mBodyIndex = chunk.Index;
      break;
    case TagTable:
      chunk.CellSpacing = 2;
      chunk.CellPadding = 2;
      chunk.Width = 1.0f;
      break;
    case TagCell:
      chunk.ColSpan = 1;
      chunk.Width = 1.0f;
      chunk.VAlign = 3;
      chunk.BgColor = view.BackColor;
      break;
    case TagFont:
      chunk.FontFace = view.DefaultFontName;
      chunk.Color = view.DefaultTextColor;
      chunk.FontSize = view.DefaultFontSize;
      break;
    case TagAnchor:
      chunk.Top = chunk.Left = chunk.Bottom = chunk.Right = -1;
      break;
    case TagImage:
      chunk.HSpace = chunk.VSpace = 2;
      break;
    case TagHeading:
      // The size always starts from the view's default, never from the surrounding size.
      chunk.FontSize = CSng((7 - Val(Mid(name, 2, 1))) * 1.2 + view.DefaultFontSize);
      break;
    case TagBig:
      chunk.FontSize = CSng(view.DefaultFontSize + 1.0);
      break;
    case TagSmall:
      chunk.FontSize = CSng(view.DefaultFontSize - 1.0);
      break;
    default:
      break;
  }
}

void HtmlTokenizer::mApplyAttributes(HtmlChunk& chunk) {
  const auto& names = m_doc.tagReader.mAttrNames;
  const auto& values = m_doc.tagReader.mAttrValues;
  for (size_t i = 0; i < names.size() && i < values.size(); ++i)
    guarded([&] { applyAttribute(chunk, names[i], values[i]); });
}

void HtmlTokenizer::applyAttribute(HtmlChunk& chunk, const std::string& name, const std::string& value) {
  const bool isImage = chunk.TagID == TagImage;
  if (name == "ALIGN") {
    std::string upper = UCase(value);
    if (upper == "CENTER") chunk.AlignCenter = kTrue;
    if (upper == "RIGHT") chunk.AlignRight = kTrue;
  } else if (name == "ALT") {
    chunk.Alt = mDecodeText(value);
  } else if (name == "BACKGROUND") {
    m_doc.mBackgroundSource = value;
  } else if (name == "BGCOLOR") {
    int32_t colour = colorFromAttribute(value);
    if (chunk.TagID == TagBody) {
      m_doc.mBodyColor = colour;
    } else {
      chunk.BgColor = colour;
      chunk.HasBgColor = kTrue;
    }
  } else if (name == "BORDER") {
    chunk.Border = Variant(value).toInteger();
  } else if (name == "CELLPADDING") {
    chunk.CellPadding = Variant(value).toInteger();
  } else if (name == "CELLSPACING") {
    chunk.CellSpacing = Variant(value).toInteger();
  } else if (name == "COLOR") {
    chunk.Color = colorFromAttribute(value);
  } else if (name == "COLSPAN") {
    chunk.ColSpan = Variant(value).toInteger();
  } else if (name == "FACE") {
    int32_t comma = InStr(value, ",");
    chunk.FontFace = comma >= 2 ? Left(value, comma - 1) : value;
  } else if (name == "HEIGHT") {
    if (isImage)
      chunk.ImageHeight = Variant(value).toLong();
    else
      chunk.Height = sizeValue(value);
  } else if (name == "HREF") {
    chunk.Href = mDecodeText(value);
  } else if (name == "HSPACE") {
    chunk.HSpace = Variant(value).toInteger();
  } else if (name == "ID" || name == "NAME") {
    chunk.ID = value;
  } else if (name == "SIZE") {
    if (!IsNumeric(value)) return;
    double size = Variant(value).toDouble();
    std::string sign = Left(value, 1);
    if (sign == "+" || sign == "-")
      chunk.FontSize = CSng(size * 1.2 + m_doc.view.DefaultFontSize);
    else
      chunk.FontSize = CSng((size - 3) * 1.2 + m_doc.view.DefaultFontSize);
  } else if (name == "SRC") {
    chunk.ImageSource = mDecodeText(value);
  } else if (name == "TEXT") {
    m_doc.view.DefaultTextColor = colorFromAttribute(value);
  } else if (name == "TITLE") {
    chunk.Title = value;
  } else if (name == "VALIGN") {
    std::string upper = UCase(value);
    if (upper == "CENTER") chunk.VAlign = 4;
    if (upper == "BOTTOM") chunk.VAlign = 5;
  } else if (name == "VSPACE") {
    chunk.VSpace = Variant(value).toInteger();
  } else if (name == "WIDTH") {
    if (isImage)
      chunk.ImageWidth = Variant(value).toLong();
    else if (InStr(value, "%") > 0)
      chunk.Width = sizeValue(value);
    else
      chunk.Width = Variant(Replace(value, "px", "")).toSingle();
  }
}

}  // namespace corvane::html
