// SPDX-License-Identifier: MIT
#include <corvane/html/html_dump.h>
#include <corvane/runtime/strings.h>
#include <corvane/runtime/variant.h>

#include <cstdio>

namespace corvane::html {

namespace {

std::string quoted(const std::string& text) {
  std::string out = "\"";
  for (char c : text) {
    auto byte = static_cast<unsigned char>(c);
    if (c == '"' || c == '\\') {
      out += '\\';
      out += c;
    } else if (c == '\n') {
      out += "\\n";
    } else if (c == '\r') {
      out += "\\r";
    } else if (c == '\t') {
      out += "\\t";
    } else if (byte < 0x20 || byte == 0x7F) {
      char buf[8];
      std::snprintf(buf, sizeof buf, "\\x%02X", byte);
      out += buf;
    } else {
      out += c;
    }
  }
  return out + "\"";
}

std::string colour(int32_t value) { return "&H" + Hex(value); }
std::string number(float value) { return Variant(value).toString(); }

class FieldList {
 public:
  void flag(const char* name, int16_t value) {
    if (value) m_text += std::string(" ") + name;
  }
  void text(const char* name, const std::string& value) {
    if (!value.empty()) m_text += std::string(" ") + name + "=" + quoted(value);
  }
  void integer(const char* name, int32_t value) {
    if (value) m_text += std::string(" ") + name + "=" + std::to_string(value);
  }
  void real(const char* name, float value) {
    if (value != 0) m_text += std::string(" ") + name + "=" + number(value);
  }
  void colourValue(const char* name, int32_t value) {
    if (value) m_text += std::string(" ") + name + "=" + colour(value);
  }
  const std::string& str() const { return m_text; }

 private:
  std::string m_text;
};

std::string words(const std::vector<std::string>& list) {
  std::string out = " words=[";
  for (size_t i = 0; i < list.size(); ++i) out += (i ? " " : "") + quoted(list[i]);
  return out + "]";
}

}  // namespace

std::string describeHtmlChunk(const HtmlChunk& c) {
  FieldList f;
  f.text("ID", c.ID);
  f.flag("Glue", c.Glue);
  f.flag("HasBgColor", c.HasBgColor);
  f.text("FontFace", c.FontFace);
  f.real("FontSize", c.FontSize);
  f.colourValue("Color", c.Color);
  f.text("Href", c.Href);
  f.text("Title", c.Title);
  f.integer("Top", c.Top);
  f.integer("Left", c.Left);
  f.integer("Bottom", c.Bottom);
  f.integer("Right", c.Right);
  f.integer("IndentX", c.IndentX);
  f.flag("AlignCenter", c.AlignCenter);
  f.flag("AlignRight", c.AlignRight);
  f.integer("ImageSlot", c.ImageSlot);
  f.integer("ImageWidth", c.ImageWidth);
  f.integer("ImageHeight", c.ImageHeight);
  f.text("ImageSource", c.ImageSource);
  f.text("Alt", c.Alt);
  f.integer("HSpace", c.HSpace);
  f.integer("VSpace", c.VSpace);
  f.flag("IsNumbered", c.IsNumbered);
  f.integer("ItemNumber", c.ItemNumber);
  f.real("Width", c.Width);
  f.integer("LayoutWidth", c.LayoutWidth);
  f.real("Height", c.Height);
  f.integer("Border", c.Border);
  f.integer("CellPadding", c.CellPadding);
  f.integer("CellSpacing", c.CellSpacing);
  f.integer("ColSpan", c.ColSpan);
  f.integer("LayoutHeight", c.LayoutHeight);
  f.integer("RowHeight", c.RowHeight);
  f.integer("VAlign", c.VAlign);
  f.colourValue("BgColor", c.BgColor);
  std::string line = "[" + std::to_string(c.TagID) + "] " + quoted(c.Source) + f.str();
  if (c.TagID == 0 || !c.Words.empty()) line += words(c.Words);
  return line;
}

std::string dumpHtmlDocument(const HtmlDocument& doc) {
  std::string out = "chunks=" + std::to_string(doc.mChunks.size()) +
                    " count=" + std::to_string(doc.mChunkCount) + " body=" + std::to_string(doc.mBodyIndex) +
                    " bodycolor=" + colour(doc.mBodyColor) +
                    " textcolor=" + colour(doc.view.DefaultTextColor);
  if (!doc.mBackgroundSource.empty()) out += " background=" + quoted(doc.mBackgroundSource);
  out += " anchors=[";
  for (size_t i = 0; i < doc.mAnchors.size(); ++i) out += (i ? " " : "") + std::to_string(doc.mAnchors[i]);
  out += "]\n";

  for (size_t i = 0; i < doc.mChunks.size(); ++i) {
    const HtmlChunk& c = doc.mChunks[i];
    HtmlChunk found;
    std::string first = doc.mFirstChild(c, found) ? std::to_string(found.Index) : "-";
    std::string next = doc.mNextSibling(c, found) ? std::to_string(found.Index) : "-";
    out += std::to_string(i) + " " + describeHtmlChunk(c) + " parent=" + std::to_string(c.Parent) +
           " kids=" + std::to_string(c.ChildCount) + " first=" + first + " next=" + next + "\n";
  }
  return out;
}

}  // namespace corvane::html
